// What the sample camera reports, asked directly as a host would.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "simcam.h"

// The entry point simcam.cpp defines (found with dlsym by a real host).
extern "C" const DDKPluginDescriptor* vantrel_ddk_plugin_entry(uint32_t hostAbiVersion);

namespace {

using namespace vantrel;
using namespace vantrel::ddk;
using namespace vantrel::ddk::internal;

template <class Handle, class Record>
Handle* handle(Record& record) {
    return reinterpret_cast<Handle*>(&record);
}

// Fails the test with the record's text, and releases it.
void expectOk(DDKError* error) {
    EXPECT_EQ(error, nullptr) << (error != nullptr && error->message != nullptr ? error->message : "");
    ddk_free_error(error);
}

int codeOf(DDKError* error) {
    const int code = error != nullptr ? error->code : -1;
    ddk_free_error(error);
    return code;
}

// Records callback kinds from any thread.
struct Host {
    DDKServiceProvider table{};
    std::mutex mutex;
    std::vector<std::string> kinds;
    std::vector<std::string> logs;

    Host() {
        table.alarmCallback = [](void* c, AlarmEvent) { static_cast<Host*>(c)->add("alarm"); };
        table.motionCallback = [](void* c, MotionEvent) { static_cast<Host*>(c)->add("motion"); };
        table.analyticsCallback = [](void* c, AnalyticsEvent) { static_cast<Host*>(c)->add("analytics"); };
        table.diagnosticsCallback = [](void* c, DiagnosticsEvent) { static_cast<Host*>(c)->add("diagnostics"); };
        table.refreshDdfCallback = [](void* c) { static_cast<Host*>(c)->add("refresh"); };
        table.audioStateCallback = [](void* c, int on) { static_cast<Host*>(c)->add(on ? "audio on" : "audio off"); };
        table.motionDetectionStateCallback = [](void* c, int on) {
            static_cast<Host*>(c)->add(on ? "detection on" : "detection off");
        };
        table.logCallback = [](void* c, int, const char* m) {
            Host* h = static_cast<Host*>(c);
            std::lock_guard<std::mutex> lock(h->mutex);
            h->logs.push_back(m);
        };
        table.alarmContext = table.audioContext = table.motionContext = table.analyticsContext =
            table.diagnosticsContext = table.refreshDdfContext = table.logContext = this;
    }
    void add(const std::string& kind) {
        std::lock_guard<std::mutex> lock(mutex);
        kinds.push_back(kind);
    }
    std::vector<std::string> seen() {
        std::lock_guard<std::mutex> lock(mutex);
        return kinds;
    }
};

class SimCamTest : public ::testing::Test {
protected:
    simcam::SimCam camera;
    IVideoExtension& video = camera;
    IZoomExtension& zoom = camera;
    IScriptControlExtension& scripts = camera;
    IImageSettingsExtension& image = camera;
    IMediaSessionExtension& media = camera;
    IAlarmExtension& alarm = camera;
};

TEST_F(SimCamTest, ReportsTwoSourcesWithTheirStreams) {
    std::vector<std::string> sources;
    expectOk(video.sourceTokens(handle<StringListHandle>(sources)));
    EXPECT_EQ(sources, (std::vector<std::string>{"video0", "video1"}));

    std::map<std::string, VideoStreamConfiguration> streams;
    expectOk(video.videoStreams("video0", handle<VideoStreamConfigurationsHandle>(streams)));
    ASSERT_EQ(streams.size(), 3u);
    auto* main = handle<VideoStreamConfigurationHandle>(streams.at("video0-main"));
    EncodingType encoding = DDK_ENCODING_NONE;
    unsigned width = 0, height = 0, gop = 0;
    int profile = -1;
    EXPECT_EQ(ddk_video_get_encoding(main, &encoding), 0);
    EXPECT_EQ(encoding, DDK_ENCODING_H264);
    EXPECT_EQ(ddk_video_get_resolution(main, &width, &height), 0);
    EXPECT_EQ(width * 10000 + height, 1920u * 10000 + 1080);
    EXPECT_EQ(ddk_video_get_gop(main, &gop), 0);
    EXPECT_EQ(gop, 60u);
    EXPECT_EQ(ddk_video_get_profile(main, &profile), 0);
    EXPECT_EQ(profile, 2);
    // Motion JPEG carries no GOP settings.
    EXPECT_EQ(ddk_video_get_profile(handle<VideoStreamConfigurationHandle>(streams.at("video0-mjpeg")), &profile),
              -2);

    EXPECT_EQ(codeOf(video.videoStreams("video9", handle<VideoStreamConfigurationsHandle>(streams))), 1);
    EXPECT_EQ(codeOf(video.videoStreams("video0", nullptr)), 2);
}

TEST_F(SimCamTest, EncoderOptionsHonourEveryFilter) {
    struct Case {
        const char* source;
        int encoding;          // -1: no filter
        unsigned width, height; // 0: no filter
        int framerate;         // -1: no filter
        std::set<int> encodings;
        std::size_t resolutions;
        std::vector<unsigned> framerates;  // largest first
        bool gopSettings;
    };
    const std::vector<Case> cases = {
        {"video0", -1, 0, 0, -1, {1, 2, 3}, 3, {30, 25, 20, 15, 10, 5, 1}, true},
        {"video0", 3, 0, 0, -1, {3}, 2, {25, 20, 15, 10, 5, 1}, false},
        {"video0", 3, 1280, 720, -1, {3}, 1, {15, 10, 5, 1}, false},
        {"video0", -1, 640, 360, -1, {1, 3}, 1, {30, 25, 20, 15, 10, 5, 1}, true},
        {"video0", -1, 0, 0, 25, {1, 2, 3}, 3, {25}, true},
        {"video0", 3, 1280, 720, 25, {}, 0, {}, false},
        {"video1", -1, 0, 0, 30, {}, 0, {}, false},
        {"video1", 1, 320, 240, -1, {1}, 1, {15, 10, 5, 1}, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.source) + " encoding " + std::to_string(c.encoding) + " " +
                     std::to_string(c.width) + "x" + std::to_string(c.height) + " @" + std::to_string(c.framerate));
        VideoOptionsQuery query;
        if (c.encoding >= 0) query.setEncodingType(static_cast<EncodingType>(c.encoding));
        if (c.width != 0) query.setResolution(c.width, c.height);
        if (c.framerate >= 0) query.setFramerate(static_cast<unsigned>(c.framerate));
        EncoderOptions options;
        expectOk(video.encoderOptions(c.source, handle<VideoOptionsQueryHandle>(query),
                                      handle<EncoderOptionsHandle>(options)));
        EXPECT_EQ(std::set<int>(options.encodings.begin(), options.encodings.end()), c.encodings);
        EXPECT_EQ(options.resolutions.size(), c.resolutions);
        EXPECT_EQ(std::vector<unsigned>(options.framerates.begin(), options.framerates.end()), c.framerates);
        EXPECT_EQ(!options.videoProfiles.empty(), c.gopSettings);
        EXPECT_EQ(options.hasGopRange, c.gopSettings);
        EXPECT_TRUE(options.hasBitrateRange && options.hasDscpRange && options.hasSigning);
    }
    // No query at all asks for everything.
    EncoderOptions all;
    expectOk(video.encoderOptions("video1", nullptr, handle<EncoderOptionsHandle>(all)));
    EXPECT_EQ(all.encodings.size(), 2u);
}

TEST_F(SimCamTest, ZoomGoesThroughTheMagnificationFactors) {
    unsigned hundredths = 0;
    expectOk(zoom.getMagHundredthsX("video0", hundredths));
    EXPECT_EQ(hundredths, 150u);  // magnification 5, F = 30
    expectOk(zoom.setMagHundredthsX("video0", 300u, 0));
    unsigned char magnification = 0;
    expectOk(zoom.getMagnification("video0", magnification));
    EXPECT_EQ(magnification, 10);
    expectOk(zoom.getMagHundredthsX("video0", hundredths));
    EXPECT_EQ(hundredths, 300u);
    // The lens stops at its longest focal length: magnification 100.
    expectOk(zoom.setMagHundredthsX("video1", 1000u, 0));  // F = 12: 83.3 rounds to 83
    expectOk(zoom.getMagnification("video1", magnification));
    EXPECT_EQ(magnification, 83);
    expectOk(zoom.setMagnification("video1", 250, 0));
    expectOk(zoom.getMagHundredthsX("video1", hundredths));
    EXPECT_EQ(hundredths, 1200u);
    EXPECT_EQ(codeOf(zoom.getMagHundredthsX("video7", hundredths)), 1);
    EXPECT_EQ(hundredths, 100u);
    EXPECT_EQ(codeOf(zoom.zoomIn("video0", 0)), 2);
}

TEST_F(SimCamTest, ScriptsReachRunScriptWithTheirCodes) {
    const std::vector<std::pair<DDKError* (IScriptControlExtension::*)(const char*), int>> scriptsAndCodes = {
        {&IScriptControlExtension::runAutoScan, 99},        {&IScriptControlExtension::runRandomScan, 97},
        {&IScriptControlExtension::runFrameScan, 98},       {&IScriptControlExtension::stopScan, 96},
        {&IScriptControlExtension::activateAuxiliary, 86},  {&IScriptControlExtension::deactivateAuxiliary, 84},
        {&IScriptControlExtension::rotate180Degrees, 33},   {&IScriptControlExtension::panToZero, 34},
    };
    for (const auto& s : scriptsAndCodes) {
        expectOk((scripts.*s.first)("video1"));
        EXPECT_EQ(camera.lastScript("video1"), s.second);
    }
    EXPECT_EQ(camera.lastScript("video0"), 0);
}

TEST_F(SimCamTest, PresetAndTourFlags) {
    std::vector<bool> presets, tours;
    expectOk(scripts.presets("video0", handle<PresetVectorHandle>(presets)));
    ASSERT_EQ(presets.size(), 16u);
    std::vector<unsigned> enabled;
    for (unsigned i = 0; i < presets.size(); ++i) if (presets[i]) enabled.push_back(i);
    EXPECT_EQ(enabled, (std::vector<unsigned>{1, 2, 3, 7}));

    expectOk(scripts.savePreset("video0", 9));
    expectOk(scripts.removePreset("video0", 1));
    EXPECT_EQ(codeOf(scripts.gotoPreset("video0", 1)), 2);
    expectOk(scripts.gotoPreset("video0", 9));
    EXPECT_EQ(codeOf(scripts.savePreset("video0", 16)), 2);

    expectOk(scripts.tours("video1", handle<TourVectorHandle>(tours)));
    EXPECT_EQ(tours, std::vector<bool>(2, false));
}

TEST_F(SimCamTest, ImageSettingsStayInRangeAndRestore) {
    int level = 0, low = 0, high = 0;
    expectOk(image.setBrightness("video0", 80));
    expectOk(image.brightness("video0", level));
    EXPECT_EQ(level, 80);
    expectOk(image.adjustBrightness("video0", 100));
    expectOk(image.brightness("video0", level));
    EXPECT_EQ(level, 100);
    expectOk(image.setDefaultBrightness("video0"));
    expectOk(image.brightness("video0", level));
    EXPECT_EQ(level, 50);
    expectOk(image.hueRange("video1", low, high));
    EXPECT_EQ(low, -180);
    EXPECT_EQ(high, 180);
    EXPECT_EQ(codeOf(image.setHue("video1", 181)), 2);
    expectOk(image.adjustSaturation("video1", -3));
    expectOk(image.saturation("video1", level));
    EXPECT_EQ(level, 35);
}

TEST_F(SimCamTest, MediaSessionsStartAndStop) {
    std::vector<MediaSession> started;
    expectOk(media.startMediaSession("video1-sub", 1, "192.0.2.77", 6000, handle<MediaSessionCollectionHandle>(started)));
    ASSERT_EQ(started.size(), 1u);
    EXPECT_EQ(started[0].id, "session-2");
    EXPECT_EQ(started[0].mime, "video/H264");
    EXPECT_EQ(started[0].destinationPort, 6000);
    EXPECT_EQ(codeOf(media.startMediaSession("video1-sub", 1, "", 6000, nullptr)), 2);

    std::vector<MediaSession> now;
    expectOk(media.mediaSessions(handle<MediaSessionCollectionHandle>(now)));
    ASSERT_EQ(now.size(), 2u);
    EXPECT_EQ(now[0].streamToken, "video0-main");
    expectOk(media.pauseMediaSession("session-2"));
    expectOk(media.stopMediaSession("session-1"));
    EXPECT_EQ(codeOf(media.stopMediaSession("session-1")), 1);
    now.clear();
    expectOk(media.mediaSessions(handle<MediaSessionCollectionHandle>(now)));
    ASSERT_EQ(now.size(), 1u);
    EXPECT_EQ(now[0].streamState, 2);

    std::vector<StreamConnectionInfo> infos;
    expectOk(media.streamConnectionInfos("video0-mjpeg", handle<StreamConnectionInfosHandle>(infos)));
    ASSERT_EQ(infos.size(), 2u);
    EXPECT_EQ(infos[1].url, "http://192.0.2.10/mjpeg/video0-mjpeg");
    EXPECT_EQ(infos[1].mimeType, "video/JPEG");
    EXPECT_EQ(codeOf(media.requestKeyFrame("video0-mjpeg")), DDK_ERROR_NOT_SUPPORTED);
}

TEST_F(SimCamTest, MotionRegionsKeepTheirMasks) {
    std::vector<MotionDetectionRegion> regions;
    expectOk(alarm.motionRegions("video0", handle<MotionDetectionRegionListHandle>(regions)));
    ASSERT_EQ(regions.size(), 3u);
    const unsigned char* mask = nullptr;
    unsigned size = 0;
    regions[0].mask(mask, size);
    ASSERT_NE(mask, nullptr);
    EXPECT_EQ(size, regions[0].maskByteCount());
    EXPECT_EQ(mask[0], 0x55);
    regions[1].mask(mask, size);
    EXPECT_EQ(mask, nullptr);
    EXPECT_FALSE(regions[2].isEnabled());
    EXPECT_EQ(regions[1].sensitivity(), 60);

    // The host's list replaces the source's regions.
    std::vector<MotionDetectionRegion> one(1);
    one[0].setDimensions(0, 0, 7, 0, nullptr, 0);
    expectOk(alarm.setMotionRegions("video1", handle<MotionDetectionRegionListHandle>(one)));
    std::vector<MotionDetectionRegion> back;
    expectOk(alarm.motionRegions("video1", handle<MotionDetectionRegionListHandle>(back)));
    ASSERT_EQ(back.size(), 1u);
    EXPECT_EQ(back[0].macroBlockCount(), 8u);
}

TEST_F(SimCamTest, DeviceAndTime) {
    IDeviceInfoExtension& info = camera;
    ITimeManagementExtension& time = camera;
    std::string text;
    expectOk(info.modelDescription(handle<StringHandle>(text)));
    EXPECT_EQ(text, simcam::kModelDescription);
    TimeZone zone;
    expectOk(time.timeZone("0", handle<TimeZoneHandle>(zone)));
    EXPECT_EQ(zone.name, "CET");
    EXPECT_EQ(zone.dstEnd, 299);
    int64_t before = 0, after = 0;
    expectOk(time.systemTime("0", before));
    expectOk(time.setSystemTime("0", before + 3600));
    expectOk(time.systemTime("0", after));
    EXPECT_GE(after - before, 3600);
    EXPECT_LE(after - before, 3602);
    std::vector<NetworkAddress> none;
    expectOk(time.setNtpServers("0", handle<NetworkAddressCollectionHandle>(none)));
    EXPECT_EQ(codeOf(time.synchronizeTime("0")), DDK_ERROR_NOT_SUPPORTED);
}

// The event thread starts with the plug-in, raises each kind of event and
// ends with it; state changes signal the host at once.
TEST(SimCamEvents, ThreadRunsFromStartToStop) {
    Host host;
    simcam::SimCam camera;
    camera.setEventPeriod(std::chrono::milliseconds(20));
    IPlugin& part = static_cast<IAlarmExtension&>(camera);
    ASSERT_EQ(part.init(&host.table), nullptr);
    std::set<std::string> kinds;
    for (int i = 0; i < 200 && kinds.size() < 4; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        const std::vector<std::string> seen = host.seen();
        kinds = std::set<std::string>(seen.begin(), seen.end());
    }
    EXPECT_EQ(kinds, (std::set<std::string>{"alarm", "motion", "analytics", "diagnostics"}));

    IMediaSessionExtension& media = camera;
    IAlarmExtension& alarm = camera;
    IDeviceInfoExtension& info = camera;
    expectOk(media.disableAudio(simcam::kAudioSource));
    expectOk(alarm.disableMotionDetection("video0"));
    expectOk(alarm.enableMotionDetection("video0"));
    expectOk(info.setDeviceName("0", "Gate"));
    part.shutdown();
    const std::size_t stopped = host.seen().size();
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    const std::vector<std::string> seen = host.seen();
    EXPECT_EQ(seen.size(), stopped);
    for (const char* kind : {"audio off", "detection off", "detection on", "refresh"}) {
        EXPECT_NE(std::find(seen.begin(), seen.end(), kind), seen.end()) << kind;
    }
    EXPECT_EQ(host.logs.front(), "simcam: connected to the simulated device");
    EXPECT_EQ(host.logs.back(), "simcam: disconnected");
}

TEST(SimCamEntry, OffersEveryExtensionToItsOwnKit) {
    const DDKPluginDescriptor* descriptor = vantrel_ddk_plugin_entry(DDK_PLUGIN_ABI_VERSION);
    ASSERT_NE(descriptor, nullptr);
    EXPECT_EQ(ddk_check_plugin_descriptor(descriptor), 0);
    EXPECT_EQ(descriptor->extensionMask, (1u << DDK_EXTENSION_COUNT) - 1);
    EXPECT_STREQ(descriptor->name, "simcam");
    EXPECT_EQ(vantrel_ddk_plugin_entry(DDK_PLUGIN_ABI_VERSION + 1), nullptr);
}

}  // namespace
