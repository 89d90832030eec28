// The smallest useful camera plug-in: it starts, reports its model through a
// string handle, logs and raises events through the host's table and stops.
#include <vantrel/ddk.h>

#include <cstring>

namespace {

class HelloCamera : public vantrel::ddk::IPlugin {
public:
    // Fills a host-owned string handle, as every extension answer does.
    DDKError* describe(StringHandle* model) const {
        static const char kModel[] = "Hello Camera HC-1";
        if (ddk_set_string(model, kModel, sizeof kModel - 1) != 0) {
            const int code = 1;
            return ddk_new_error("cannot fill the model text", &code);
        }
        return nullptr;
    }

    // One event of every kind, as a running camera would raise them over time.
    void raiseDemoEvents() {
        DDKServiceProvider* host = serviceProvider;
        const AlarmEvent doorOpened = {2, 1, 1, 1700000000u};  // input 2, raised
        ddk_signal_alarm(host, doorOpened);
        ddk_signal_audio_enabled(host);
        ddk_signal_audio_disabled(host);
        ddk_signal_motion_detection_enabled(host);
        static const char kWindow[] = "window 1";
        static const char kZone[] = "zone A";
        ddk_signal_motion_detected(host, 42, kWindow, sizeof kWindow - 1, kZone, sizeof kZone - 1);
        ddk_signal_motion_detection_disabled(host);
        ddk_signal_video_loss_event(host, 0, 1, 1500);  // channel 0, lost, after 1500 ms
        ddk_signal_sabotage_event(host, "lens covered", 0, 87, "camera 1");
        ddk_signal_refresh_ddf(host);
    }

private:
    DDKError* doInit() override {
        ddk_log(serviceProvider, 1, "hello camera: sensor ready");
        return nullptr;
    }
    void doShutdown() override { ddk_log(serviceProvider, 1, "hello camera: stopped"); }
};

}  // namespace

extern "C" {
__attribute__((visibility("default"))) vantrel::ddk::IPlugin* hello_camera_create() {
    return new HelloCamera();
}
__attribute__((visibility("default"))) void hello_camera_destroy(vantrel::ddk::IPlugin* plugin) {
    delete plugin;
}
__attribute__((visibility("default"))) DDKError* hello_camera_describe(vantrel::ddk::IPlugin* plugin,
                                                                        StringHandle* model) {
    return static_cast<HelloCamera*>(plugin)->describe(model);
}
__attribute__((visibility("default"))) void hello_camera_raise_demo_events(vantrel::ddk::IPlugin* plugin) {
    static_cast<HelloCamera*>(plugin)->raiseDemoEvents();
}
}
