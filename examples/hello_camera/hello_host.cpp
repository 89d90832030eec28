// A small host: loads a plug-in, starts it with a callback table that prints
// what arrives, asks one question, lets it raise its events and stops it.
#include <dlfcn.h>

#include <cstdio>
#include <string>

#include <vantrel/ddk.h>

namespace {

void onLog(void*, int level, const char* message) {
    std::printf("log    level %d: %s\n", level, message);
}

// Every callback receives the context registered for it; this host uses it
// as a label. The records are the library's temporaries: copy to keep.
const char* label(void* context) { return static_cast<const char*>(context); }

void onAlarm(void* context, AlarmEvent event) {
    std::printf("%-6s source %u, type %u, %s at %u\n", label(context), event.source, event.type,
                event.state != 0 ? "raised" : "cleared", event.timestamp);
}

void onAudioState(void* context, int enabled) {
    std::printf("%-6s %s\n", label(context), enabled != 0 ? "enabled" : "disabled");
}

void onMotionDetectionState(void* context, int enabled) {
    std::printf("%-6s detection %s\n", label(context), enabled != 0 ? "enabled" : "disabled");
}

void onMotion(void* context, vantrel::MotionEvent event) {
    std::printf("%-6s detected: value %u, \"%s\", \"%s\"\n", label(context), event.value,
                event.text1.c_str(), event.text2.c_str());
}

void onAnalytics(void* context, vantrel::AnalyticsEvent event) {
    std::printf("%-6s rule \"%s\" (%s, %s): %u, %u, \"%s\", \"%s\", flag %d\n", label(context),
                event.ruleName.c_str(), event.ruleId.c_str(), event.numericId.c_str(), event.value1,
                event.value2, event.text1.c_str(), event.text2.c_str(), event.flag ? 1 : 0);
}

void onDiagnostics(void* context, vantrel::DiagnosticsEvent event) {
    std::printf("%-6s video loss: %u, %u, %u\n", label(context), event.byte1, event.byte2, event.value);
}

void onRefreshDdf(void* context) { std::printf("%-6s the plug-in's DDF changed\n", label(context)); }

template <class Fn>
Fn symbol(void* module, const char* name) {
    return reinterpret_cast<Fn>(dlsym(module, name));
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s PLUGIN.so\n", argv[0]);
        return 2;
    }
    void* module = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
    if (module == nullptr) {
        std::fprintf(stderr, "hello_host: cannot load %s: %s\n", argv[1], dlerror());
        return 3;
    }
    auto create = symbol<vantrel::ddk::IPlugin* (*)()>(module, "hello_camera_create");
    auto destroy = symbol<void (*)(vantrel::ddk::IPlugin*)>(module, "hello_camera_destroy");
    auto describe =
        symbol<DDKError* (*)(vantrel::ddk::IPlugin*, StringHandle*)>(module, "hello_camera_describe");
    auto raiseDemoEvents =
        symbol<void (*)(vantrel::ddk::IPlugin*)>(module, "hello_camera_raise_demo_events");
    if (create == nullptr || destroy == nullptr || describe == nullptr || raiseDemoEvents == nullptr) {
        std::fprintf(stderr, "hello_host: %s is not a hello camera plug-in\n", argv[1]);
        return 4;
    }

    char alarm[] = "alarm", audio[] = "audio", motion[] = "motion", analytics[] = "rule",
         diagnostics[] = "diag", refresh[] = "ddf";
    DDKServiceProvider table{};
    table.alarmCallback = &onAlarm;
    table.audioStateCallback = &onAudioState;
    table.motionCallback = &onMotion;
    table.motionDetectionStateCallback = &onMotionDetectionState;
    table.analyticsCallback = &onAnalytics;
    table.diagnosticsCallback = &onDiagnostics;
    table.refreshDdfCallback = &onRefreshDdf;
    table.logCallback = &onLog;
    table.alarmContext = alarm;
    table.audioContext = audio;
    table.motionContext = motion;  // shared by motion events and detection state
    table.analyticsContext = analytics;
    table.diagnosticsContext = diagnostics;
    table.refreshDdfContext = refresh;

    vantrel::ddk::IPlugin* plugin = create();
    int status = 0;
    if (DDKError* error = plugin->init(&table)) {
        std::printf("init failed (code %d): %s\n", error->code, error->message);
        ddk_free_error(error);
        status = 5;
    } else {
        std::string model;  // the host owns the container behind the handle
        if (DDKError* failure = describe(plugin, reinterpret_cast<StringHandle*>(&model))) {
            std::printf("describe failed: %s\n", failure->message);
            ddk_free_error(failure);
            status = 6;
        } else {
            std::printf("model  %s\n", ddk_string_to_cstr(reinterpret_cast<StringHandle*>(&model)));
        }
        raiseDemoEvents(plugin);
    }
    plugin->shutdown();
    destroy(plugin);
    dlclose(module);
    return status;
}
