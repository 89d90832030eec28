// A plug-in and host built against the installed package with find_package.
#include <vantrel/ddk.h>

#include <cstdio>
#include <cstring>

namespace {
struct Plugin : vantrel::ddk::IPlugin {
    DDKError* doInit() override {
        const int code = 42;
        return ddk_new_error("from installed package", &code);
    }
};
}  // namespace

int main() {
    Plugin plugin;
    DDKError* error = plugin.init(nullptr);
    const bool ok = error != nullptr && error->code == 42 &&
                    std::strcmp(error->message, "from installed package") == 0;
    ddk_free_error(error);
    std::puts(ok ? "consumer: ok" : "consumer: FAILED");
    return ok ? 0 : 1;
}
