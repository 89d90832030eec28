// A small host: loads a plug-in, starts it with a callback table that prints
// what arrives, asks one question and stops it.
#include <dlfcn.h>

#include <cstdio>
#include <string>

#include <vantrel/ddk.h>

namespace {

void onLog(void*, int level, const char* message) {
    std::printf("log    level %d: %s\n", level, message);
}

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
    if (create == nullptr || destroy == nullptr || describe == nullptr) {
        std::fprintf(stderr, "hello_host: %s is not a hello camera plug-in\n", argv[1]);
        return 4;
    }

    DDKServiceProvider table{};
    table.logCallback = &onLog;

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
    }
    plugin->shutdown();
    destroy(plugin);
    dlclose(module);
    return status;
}
