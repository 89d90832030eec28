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

// The entry-point templates instantiated by a C++11 plug-in with two extensions.
struct Camera : vantrel::ddk::IVideoExtension, vantrel::ddk::IDeviceManagementExtension {
    DDKError* videoStreams(const char*, VideoStreamConfigurationsHandle*) const override { return nullptr; }
    DDKError* videoPresets(const char*, VideoStreamPresetsHandle*) const override { return nullptr; }
    DDKError* applyVideoStream(const char*, VideoStreamConfigurationHandle*) override { return nullptr; }
    DDKError* applyVideoPreset(const char*, const char*) override { return nullptr; }
    DDKError* encoderOptions(const char*, VideoOptionsQueryHandle*, EncoderOptionsHandle*) const override { return nullptr; }
    DDKError* analyticsProfiles(const char*, VideoAnalyticsProfilesHandle*) const override { return nullptr; }
    DDKError* activateAnalyticsProfile(const char*, int) override { return nullptr; }
    DDKError* reboot(const char*) override { return nullptr; }
    DDKError* factoryReset(const char*, ddk_bool) override { return nullptr; }
    DDKError* networkAddresses(const char*, NetworkAddressCollectionHandle*) const override { return nullptr; }
    DDKError* setNetworkAddresses(const char*, NetworkAddressCollectionHandle*) override { return nullptr; }
};
}  // namespace

VANTREL_DDK_PLUGIN(Camera, "c++11 camera")

int main() {
    const DDKPluginDescriptor* descriptor = vantrel_ddk_plugin_entry(DDK_PLUGIN_ABI_VERSION);
    if (descriptor == nullptr || ddk_check_plugin_descriptor(descriptor) != 0) return 1;
    DDKPlugin* camera = descriptor->create();
    if (vantrel::ddk::find_extension<vantrel::ddk::IVideoExtension>(*descriptor, camera) == nullptr) return 1;
    if (descriptor->start(camera, nullptr) != nullptr) return 1;
    descriptor->stop(camera);
    descriptor->destroy(camera);
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
    // The stream records as a C++11 plug-in uses them.
    vantrel::ddk::internal::VideoStreamConfigurations streams;
    VideoStreamConfigurationHandle* stream = ddk_add_video_stream_to_configurations(
        reinterpret_cast<VideoStreamConfigurationsHandle*>(&streams), "main", 4);
    if (&vantrel::from_handle<vantrel::ddk::internal::VideoStreamConfiguration>(stream) != &streams["main"]) return 1;
    vantrel::ddk::internal::VideoAnalyticsProfiles profiles;
    if (&vantrel::from_handle<vantrel::ddk::internal::VideoAnalyticsProfiles>(
            reinterpret_cast<VideoAnalyticsProfilesHandle*>(&profiles)) != &profiles) return 1;
    vantrel::ddk::internal::EncoderOptions options;
    options.resolutions.insert(vantrel::ddk::internal::Resolution(640, 480));
    vantrel::ddk::internal::VideoOptionsQuery query;
    query.setEncodingType(DDK_ENCODING_H265);
    vantrel::ddk::internal::VideoOptionsQuery copy(query);
    vantrel::AudioStreamConfigurations audio;
    audio["mic"].vbr = true;
    vantrel::AudioSource source = vantrel::AudioSource();
    if (!(copy == query) || !audio["mic"].bigEndian || source.level != 0) return 1;
    // The event records: copyable, the sabotage rule built by the library.
    const vantrel::SabotageEvent sabotage(1, 2, "a", "b");
    vantrel::AnalyticsEvent analytics = sabotage;
    vantrel::MotionEvent motion(3);
    vantrel::MotionEvent motionCopy = motion;
    const vantrel::DiagnosticsEvent diagnostics(1, 2, 3);
    const bool events = analytics.ruleName == "Camera Sabotage" && motionCopy.value == 3 &&
                        diagnostics.value == 3;
    const bool ok = threw && events;
    std::puts(ok ? "cxx11_header_check: ok" : "cxx11_header_check: FAILED");
    return ok ? 0 : 1;
}
