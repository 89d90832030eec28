// Small plug-ins that break the kit's rules, one per failure mode of the
// inspector; the build compiles this file once per BROKEN_* definition.
#include <map>
#include <stdexcept>
#include <string>

#include <vantrel/ddk.h>

using namespace vantrel::ddk;

namespace {

class Plain : public IPlugin {};

class FailingStart : public IPlugin {
    DDKError* doInit() override {
        const int code = 42;
        return ddk_new_error("sensor not found", &code);
    }
};

// Device information whose manufacturer question throws.
class ThrowingInfo : public IDeviceInfoExtension {
public:
    DDKError* manufacturer(const char*, StringHandle*) const override {
        throw std::runtime_error("firmware query timed out");
    }
    DDKError* modelNumber(const char*, StringHandle*) const override { return nullptr; }
    DDKError* serialNumber(const char*, StringHandle*) const override { return nullptr; }
    DDKError* firmwareVersion(const char*, StringHandle*) const override { return nullptr; }
    DDKError* hardwareId(const char*, StringHandle*) const override { return nullptr; }
    DDKError* macAddress(const char*, StringHandle*) const override { return nullptr; }
    DDKError* deviceName(const char*, StringHandle*) const override { return nullptr; }
    DDKError* setDeviceName(const char*, const char*) override { return nullptr; }
    DDKError* capabilities(const char*, StringListHandle*) const override { return nullptr; }
};

// Starts and answers, but reports a stream without a resolution, offers no
// encoder options, throws from one question and leaks an error record.
class Sloppy : public IVideoExtension {
public:
    DDKError* videoStreams(const char*, VideoStreamConfigurationsHandle* streams) const override {
        VideoStreamConfigurationHandle* config = ddk_add_video_stream_to_configurations(streams, "main", 4);
        ddk_video_set_encoding(config, DDK_ENCODING_H264);
        const int code = 3;
        ddk_new_error("dropped on the floor", &code);
        return nullptr;
    }
    DDKError* videoPresets(const char*, VideoStreamPresetsHandle*) const override { return nullptr; }
    DDKError* applyVideoStream(const char*, VideoStreamConfigurationHandle*) override { return nullptr; }
    DDKError* applyVideoPreset(const char*, const char*) override { return nullptr; }
    DDKError* encoderOptions(const char*, VideoOptionsQueryHandle*, EncoderOptionsHandle*) const override {
        return nullptr;
    }
    DDKError* analyticsProfiles(const char*, VideoAnalyticsProfilesHandle*) const override { throw 7; }
    DDKError* activateAnalyticsProfile(const char*, int) override { return nullptr; }
};

}  // namespace

#if defined(BROKEN_NO_ENTRY)
// Exports something, but not the entry point.
extern "C" VANTREL_DDK_API int camera_version() { return 1; }

#elif defined(BROKEN_REFUSES_ABI)
// Built against another kit: refuses the host's ABI version.
extern "C" VANTREL_DDK_API const DDKPluginDescriptor* vantrel_ddk_plugin_entry(uint32_t) { return nullptr; }

#elif defined(BROKEN_OTHER_ABI)
// Answers whatever the host asks with a descriptor of another ABI version.
extern "C" VANTREL_DDK_API const DDKPluginDescriptor* vantrel_ddk_plugin_entry(uint32_t) {
    static DDKPluginDescriptor descriptor = [] {
        DDKPluginDescriptor d = describe_plugin<Plain>("future");
        d.abiVersion = DDK_PLUGIN_ABI_VERSION + 1;
        return d;
    }();
    return &descriptor;
}

#elif defined(BROKEN_NO_OBJECT)
extern "C" VANTREL_DDK_API const DDKPluginDescriptor* vantrel_ddk_plugin_entry(uint32_t host) {
    static DDKPluginDescriptor descriptor = [] {
        DDKPluginDescriptor d = describe_plugin<Plain>("empty");
        d.create = []() -> DDKPlugin* { return nullptr; };
        return d;
    }();
    return offer_plugin(&descriptor, host);
}

#elif defined(BROKEN_INIT_FAILS)
VANTREL_DDK_PLUGIN(FailingStart, "failing start")

#elif defined(BROKEN_THROWS)
VANTREL_DDK_PLUGIN(ThrowingInfo, "throwing")

#elif defined(BROKEN_SLOPPY)
VANTREL_DDK_PLUGIN(Sloppy, "sloppy")

#else
#error "define one BROKEN_* kind"
#endif
