/* The public header as a C99 host sees it: every frame declaration compiles,
   links and behaves. Exit status 0 means all checks passed. */
#include <vantrel/ddk.h>

#include <stddef.h>
#include <stdint.h>
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

/* The records C++ passes by value, as a C host reads them through the
   pointer it receives: a std::string is a data pointer, a length and a
   16-byte local buffer. */
struct cxx_string {
    const char* data;
    size_t length;
    union {
        char local[16];
        size_t capacity;
    } u;
};
struct diagnostics_view {
    const void* vptr;
    uint8_t byte1;
    uint8_t byte2;
    uint32_t value;
};
struct analytics_view {
    const void* vptr;
    uint32_t value1;
    uint32_t value2;
    struct cxx_string text1, ruleName, ruleId, numericId, text2;
    unsigned char flag;
};
struct motion_view {
    uint32_t value;
    struct cxx_string text1;
    struct cxx_string text2;
};

static int same_text(const struct cxx_string* s, const char* text) {
    const size_t n = strlen(text);
    return s->length == n && memcmp(s->data, text, n) == 0 && s->data[n] == '\0';
}

/* What the event callbacks received; each keeps a copy or a verdict. */
static struct diagnostics_view diagnostics_seen;
static int analytics_ok = -1;
static int motion_ok = -1;
static int refreshes = 0;

static void on_alarm(void* context, AlarmEvent event) { *(AlarmEvent*)context = event; }
static void on_motion(void* context, const DDKMotionEventArg* event) {
    const struct motion_view* view = (const struct motion_view*)(const void*)event;
    motion_ok = context == (void*)&motion_ok && view->value == 77 && same_text(&view->text1, "xyz") &&
                same_text(&view->text2, "");
}
static void on_analytics(void* context, const DDKAnalyticsEventArg* event) {
    const struct analytics_view* view = (const struct analytics_view*)(const void*)event;
    analytics_ok = context == (void*)&analytics_ok && view->vptr != NULL && view->value1 == 5 &&
                   view->value2 == 0xFFFFFFFFu && same_text(&view->text1, "last") &&
                   same_text(&view->ruleName, "Camera Sabotage") &&
                   same_text(&view->ruleId, "com.tolvo.rule.camerasabotage") &&
                   same_text(&view->numericId, "570445347") && same_text(&view->text2, "first") &&
                   view->flag == 0;
}
static void on_diagnostics(void* context, const DDKDiagnosticsEventArg* event) {
    (void)context;
    diagnostics_seen = *(const struct diagnostics_view*)(const void*)event;
}
/* Appends the flag as a decimal digit to the context's number. */
static void on_state(void* context, int enabled) { *(int*)context = *(int*)context * 10 + enabled; }
static void on_refresh(void* context) { *(int*)context += 1; }

/* A plug-in descriptor made of C functions, as a C host checks it. */
static DDKPlugin* c_create(void) { return NULL; }
static void c_destroy(DDKPlugin* plugin) { (void)plugin; }
static DDKError* c_start(DDKPlugin* plugin, DDKServiceProvider* provider) { (void)plugin; (void)provider; return NULL; }
static void c_stop(DDKPlugin* plugin) { (void)plugin; }
static void* c_extension(DDKPlugin* plugin, int kind) { (void)plugin; (void)kind; return NULL; }

int main(void) {
    int code = 11;
    int log_count = 0;
    AlarmEvent alarm;
    DDKServiceProvider table;
    PluginParameters list;
    DDKError* error;
    DDKPluginDescriptor descriptor;
    ddk_bool flag = 1;
    EncodingType encoding = DDK_ENCODING_H264;
    unsigned int value = 0;
    unsigned int format = 3;

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
    table.motionContext = &motion_ok;
    table.analyticsContext = &analytics_ok;
    table.refreshDdfContext = &refreshes;

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

    {
        /* The media session families take C-sized values and fail safely on null handles. */
        const uint16_t count = 4;
        const int32_t code = -1;
        int32_t type = 5;
        CHECK(ddk_add_media_session_to_collection(NULL) == NULL);
        CHECK(ddk_set_media_session_mime(NULL, "a/b", &count) == -1);
        CHECK(ddk_set_media_session_stream_type(NULL, &code) == -1);
        CHECK(ddk_set_media_session_transmission_mode(NULL, code) == -1);
        CHECK(ddk_add_stream_connection_info(NULL) == NULL);
        CHECK(ddk_get_stream_connection_infos_size(NULL) == 0);
        CHECK(ddk_get_stream_connection_info_at(NULL, 0xFFFFFFFFu) == NULL);
        CHECK(ddk_set_stream_connection_info_token(NULL, "", 0) == -2);
        CHECK(ddk_set_stream_connection_info_mime_type(NULL, "video/H264", 10) == -1);
        CHECK(ddk_set_stream_connection_info_type(NULL, code) == -1);
        CHECK(ddk_append_network_address(NULL, code, NULL, 0) == -1);
        CHECK(ddk_get_network_address_collection_size(NULL) == 0);
        CHECK(ddk_get_network_address_at(NULL, 0) == NULL);
        CHECK(ddk_get_network_address(NULL) == NULL);
        CHECK(ddk_get_network_address_type(NULL, &type) == -1 && type == 5);
    }
    /* Stream configuration families: null handles give their failure values. */
    CHECK(sizeof(EncodingType) == 4 && (EncodingType)-1 < 0);
    CHECK(DDK_ENCODING_NONE == 0 && DDK_ENCODING_H264 == 1 && DDK_ENCODING_H265 == 2);
    CHECK(ddk_video_set_encoding(NULL, DDK_ENCODING_NONE) == -2);
    CHECK(ddk_video_set_encoding(NULL, encoding) == -1);
    CHECK(ddk_video_get_encoding(NULL, &encoding) == -1);
    CHECK(ddk_video_set_dscp(NULL, 64) == -2);
    CHECK(ddk_video_get_timeout(NULL) == 900);
    CHECK(ddk_video_get_mtu(NULL) == 1500);
    CHECK(ddk_video_get_multicast(NULL, &value, NULL, &flag) == NULL);
    ddk_video_set_descriptive_name(NULL, "x", 1);
    CHECK(ddk_add_video_stream_to_configurations(NULL, "main", 4) == NULL);
    CHECK(ddk_add_to_presets(NULL, "day", 3) == NULL);
    CHECK(ddk_get_video_stream_configurations_count(NULL) == 0);
    CHECK(ddk_get_video_stream_configuration_at(NULL, 0) == NULL);
    CHECK(ddk_get_video_stream_configuration(NULL, "main") == NULL);
    CHECK(ddk_add_encoding_to_encoder_options(NULL, DDK_ENCODING_NONE) == -2);
    CHECK(ddk_add_resolution_to_encoder_options(NULL, 640, 480) == -1);
    CHECK(ddk_set_signing_on_encoder_options(NULL, flag) == -1);
    CHECK(ddk_get_encoder_query_encoding(NULL, &encoding) == -1);
    CHECK(ddk_get_encoder_query_video_resolution(NULL, &value, &value) == -1);
    CHECK(ddk_add_video_analytics_profile(NULL, "p", 1, 1) == NULL);
    CHECK(ddk_add_audio_to_configurations(NULL, "mic", 3) == NULL);
    CHECK(ddk_audio_set_format(NULL, &format) == -1);
    CHECK(ddk_audio_set_source_level(NULL, 101) == -2);
    CHECK(ddk_audio_enable_vbr(NULL) == -1);

    {
        /* Every signal reaches its C callback; the records arrive by address. */
        const AlarmEvent raised = {3, 1, 1, 1700000000u};
        int audio = 1, motion_state = 1;
        AlarmEvent* received = &alarm;
        memset(&alarm, 0, sizeof alarm);
        ddk_signal_alarm(&table, raised);
        CHECK(memcmp(received, &raised, sizeof raised) == 0);

        table.audioContext = &audio;
        ddk_signal_audio_enabled(&table);
        ddk_signal_audio_disabled(&table);
        CHECK(audio == 110);
        table.motionContext = &motion_state;
        ddk_signal_motion_detection_disabled(&table);
        ddk_signal_motion_detection_enabled(&table);
        CHECK(motion_state == 101);
        table.motionContext = &motion_ok;
        ddk_signal_refresh_ddf(&table);
        CHECK(refreshes == 1);

        ddk_signal_video_loss_event(&table, 1, 7, 123456u);
        CHECK(diagnostics_seen.vptr != NULL);
        CHECK(diagnostics_seen.byte1 == 1 && diagnostics_seen.byte2 == 7);
        CHECK(diagnostics_seen.value == 123456u);
        ddk_signal_sabotage_event(&table, "first", 5, 0xFFFFFFFFu, "last");
        CHECK(analytics_ok == 1);
        ddk_signal_motion_detected(&table, 77, "xyzzy", 3, NULL, 4);
        CHECK(motion_ok == 1);

        ddk_signal_refresh_ddf(NULL);
        table.refreshDdfCallback = NULL;
        ddk_signal_refresh_ddf(&table);
        CHECK(refreshes == 1);
    }

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
    memset(&descriptor, 0, sizeof descriptor);
    descriptor.abiVersion = DDK_PLUGIN_ABI_VERSION;
    descriptor.size = sizeof descriptor;
    descriptor.name = "c plug-in";
    descriptor.extensionMask = 1u << DDK_EXTENSION_VIDEO;
    descriptor.create = c_create;
    descriptor.destroy = c_destroy;
    descriptor.start = c_start;
    descriptor.stop = c_stop;
    descriptor.extension = c_extension;
    CHECK(offsetof(DDKPluginDescriptor, abiVersion) == 0);
    CHECK(DDK_EXTENSION_COUNT == 9);
    CHECK(strcmp(DDK_PLUGIN_ENTRY_SYMBOL, "vantrel_ddk_plugin_entry") == 0);
    CHECK(ddk_check_plugin_descriptor(&descriptor) == 0);
    CHECK(ddk_check_plugin_descriptor(NULL) == -1);
    descriptor.abiVersion = DDK_PLUGIN_ABI_VERSION + 1;
    CHECK(ddk_check_plugin_descriptor(&descriptor) == -2);

    if (failures == 0) puts("c_api_check: all checks passed");
    return failures == 0 ? 0 : 1;
}
