/* The public header as a C99 host sees it: every frame declaration compiles,
   links and behaves. Exit status 0 means all checks passed. */
#include <vantrel/ddk.h>

#include <stddef.h>
#include <stdio.h>
#include <string.h>

static int failures = 0;
#define CHECK(cond)                                                      \
    do {                                                                 \
        if (!(cond)) {                                                   \
            fprintf(stderr, "%s:%d: check failed: %s\n", __FILE__, __LINE__, #cond); \
            ++failures;                                                  \
        }                                                                \
    } while (0)

static int logged_level = -1;
static void on_log(void* context, int level, const char* message) {
    (void)message;
    *(int*)context += 1;
    logged_level = level;
}

static void on_alarm(void* context, AlarmEvent event) { *(AlarmEvent*)context = event; }
static void on_motion(void* context, const DDKMotionEventArg* event) { (void)context; (void)event; }
static void on_analytics(void* context, const DDKAnalyticsEventArg* event) { (void)context; (void)event; }
static void on_diagnostics(void* context, const DDKDiagnosticsEventArg* event) { (void)context; (void)event; }
static void on_state(void* context, int enabled) { (void)context; (void)enabled; }
static void on_refresh(void* context) { (void)context; }

int main(void) {
    int code = 11;
    int log_count = 0;
    AlarmEvent alarm;
    DDKServiceProvider table;
    PluginParameters list;
    DDKError* error;
    ddk_bool flag = 1;

    /* Every callback slot accepts a C function of the documented C shape. */
    memset(&table, 0, sizeof table);
    table.alarmCallback = on_alarm;
    table.audioStateCallback = on_state;
    table.motionCallback = on_motion;
    table.motionDetectionStateCallback = on_state;
    table.analyticsCallback = on_analytics;
    table.diagnosticsCallback = on_diagnostics;
    table.refreshDdfCallback = on_refresh;
    table.logCallback = on_log;
    table.alarmContext = &alarm;
    table.logContext = &log_count;

    CHECK(sizeof(DDKServiceProvider) == 15 * sizeof(void*));
    CHECK(offsetof(DDKServiceProvider, logContext) == 14 * sizeof(void*));
    CHECK(sizeof(AlarmEvent) == 16);
    CHECK(offsetof(DDKError, code) == sizeof(void*));
    CHECK(offsetof(PluginEntry, next) == 3 * sizeof(void*));
    CHECK(sizeof(flag) == 1);

    error = ddk_new_error("c host", &code);
    CHECK(error != NULL && error->code == 11 && strcmp(error->message, "c host") == 0);
    ddk_free_error(error);
    ddk_free_error(NULL);

    ddk_log(&table, 3, "from C");
    CHECK(log_count == 1 && logged_level == 3);
    ddk_log(NULL, 3, "dropped");

    CHECK(ddk_set_string(NULL, "x", 1) == -1);
    CHECK(ddk_append_string(NULL, NULL, 1) == -2);
    CHECK(ddk_prepend_string(NULL, "x", 1) == -1);
    CHECK(ddk_string_to_cstr(NULL) == NULL);
    CHECK(ddk_get_string_list_size(NULL) == 0);
    CHECK(ddk_get_string_at(NULL, 0) == NULL);

    list.reserved = NULL;
    list.head = NULL;
    insert_plugin(&list, &code, NULL, &list);
    insert_plugin(&list, NULL, &code, NULL);
    CHECK(list.head != NULL && list.head->param1 == &code && list.head->param3 == &list);
    CHECK(list.head != NULL && list.head->next != NULL && list.head->next->param2 == &code);
    free_parameters(&list);
    CHECK(list.head == NULL);

    {
        const unsigned char* mask = (const unsigned char*)&code;
        unsigned short mask_size = 9;
        unsigned int x1 = 5;
        CHECK(ddk_get_motion_region_list_size(NULL) == 0);
        CHECK(ddk_append_motion_region(NULL) == NULL);
        CHECK(ddk_get_motion_region_at(NULL, 0) == NULL);
        CHECK(ddk_set_motion_region_enabled(NULL) == -1);
        CHECK(ddk_get_motion_region_enabled(NULL) == 0);
        CHECK(ddk_set_motion_region_threshold(NULL, 1) == -1);
        CHECK(ddk_get_motion_region_sensitivity(NULL) == 0);
        CHECK(ddk_get_motion_region_mask(NULL, &mask, &mask_size) == -1);
        CHECK(mask == NULL && mask_size == 0);
        CHECK(ddk_set_motion_region_dimensions(NULL, 0, 0, 1, 1, mask, 1) == -1);
        CHECK(ddk_get_motion_region_coordinates(NULL, &x1, &x1, &x1, &x1) == -1 && x1 == 5);
    }
    CHECK(ddk_set_preset_vector_size(NULL, 3) == -1);
    CHECK(ddk_set_preset_enabled(NULL, 0) == -1);
    CHECK(ddk_set_tour_disabled(NULL, 0) == -1);
    CHECK(ddk_set_timezone_name(NULL, NULL, 4) == -1);
    CHECK(ddk_get_timezone_dstname(NULL) == NULL);
    ddk_set_timezone_gmtoffset(NULL, -3600);
    CHECK(ddk_get_timezone_gmtoffset(NULL) == 0);

    if (failures == 0) puts("c_api_check: all checks passed");
    return failures == 0 ? 0 : 1;
}
