// A camera plug-in built as a loadable module, the way a vendor builds one:
// three extensions, one line of entry point.
#include <vantrel/ddk.h>

#include "support/stub_extensions.h"

namespace {

class TestCamera : public testing_support::StubVideo,
                   public testing_support::StubAlarm,
                   public testing_support::StubDeviceInfo {
public:
    DDKError* sourceTokens(StringListHandle* tokens) const override {
        ddk_append_string(tokens, "front", 5);
        ddk_append_string(tokens, "rear", 4);
        return nullptr;
    }
    DDKError* manufacturer(const char*, StringHandle* name) const override {
        ddk_set_string(name, "Test Optics", 11);
        return nullptr;
    }

private:
    // Runs once for the three parts; the alarm part already holds the table.
    DDKError* doInit() override {
        ddk_log(IVideoExtension::serviceProvider, 1, "test camera started");
        const AlarmEvent startup = {7, 1, 1, 0};
        signalAlarm(startup);
        return nullptr;
    }
    void doShutdown() override { ddk_log(IDeviceInfoExtension::serviceProvider, 1, "test camera stopped"); }
};

}  // namespace

VANTREL_DDK_PLUGIN(TestCamera, "test camera")
