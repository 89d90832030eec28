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
