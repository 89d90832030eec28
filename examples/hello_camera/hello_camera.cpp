// The smallest useful camera plug-in: it starts, reports its model through a
// string handle, logs through the host's table and stops.
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
}
