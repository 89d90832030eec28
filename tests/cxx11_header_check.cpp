// The umbrella header under C++11 and -pedantic, as old vendor toolchains
// compile it; also exercises the inline template from a C++11 unit.
#include <vantrel/ddk.h>

#include <cstdio>
#include <string>

#if __cplusplus != 201103L
#error "this unit must be compiled as C++11"
#endif

namespace {
struct Plugin : vantrel::ddk::IPlugin {};
}  // namespace

int main() {
    Plugin plugin;
    if (plugin.init(nullptr) != nullptr) return 1;
    plugin.shutdown();
    std::string text;
    if (&vantrel::from_handle<std::string>(reinterpret_cast<StringHandle*>(&text)) != &text) return 1;
    bool threw = false;
    try {
        vantrel::from_handle<std::string>(static_cast<StringHandle*>(nullptr));
    } catch (const vantrel::InvalidHandleException&) {
        threw = true;
    }
    std::puts(threw ? "cxx11_header_check: ok" : "cxx11_header_check: FAILED");
    return threw ? 0 : 1;
}
