// SimCam: a simulated two-sensor camera that implements every extension of
// the kit. It is the template for a vendor's plug-in: each operation answers
// from the tables in camera_model.h where a real plug-in would ask its device.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include <vantrel/ddk.h>

#include "camera_model.h"

namespace simcam {

class SimCam : public vantrel::ddk::IVideoExtension,
               public vantrel::ddk::IMediaSessionExtension,
               public vantrel::ddk::IAlarmExtension,
               public vantrel::ddk::IZoomExtension,
               public vantrel::ddk::IScriptControlExtension,
               public vantrel::ddk::IImageSettingsExtension,
               public vantrel::ddk::IDeviceInfoExtension,
               public vantrel::ddk::IDeviceManagementExtension,
               public vantrel::ddk::ITimeManagementExtension {
public:
    SimCam();
    ~SimCam() override;

    // How often the event thread raises the next simulated event.
    void setEventPeriod(std::chrono::milliseconds period) { eventPeriod_ = period; }
    // The last motion script a source ran (0: none), for the tests.
    int lastScript(const std::string& source) const;

    // ---- Start and stop ----------------------------------------------------
    DDKError* doInit() override;
    void doShutdown() override;

    // ---- IVideoExtension -------------------------------------------------
    DDKError* sourceTokens(StringListHandle* tokens) const override;
    DDKError* videoStreams(const char* sourceToken, VideoStreamConfigurationsHandle* configurations) const override;
    DDKError* videoPresets(const char* sourceToken, VideoStreamPresetsHandle* presets) const override;
    DDKError* applyVideoStream(const char* sourceToken, VideoStreamConfigurationHandle* configuration) override;
    DDKError* applyVideoPreset(const char* sourceToken, const char* presetName) override;
    DDKError* encoderOptions(const char* sourceToken, VideoOptionsQueryHandle* query,
                             EncoderOptionsHandle* options) const override;
    DDKError* analyticsProfiles(const char* sourceToken, VideoAnalyticsProfilesHandle* profiles) const override;
    DDKError* activateAnalyticsProfile(const char* sourceToken, int profileId) override;
    DDKError* multicastDefaults(const char* token, VideoStreamConfigurationHandle* configuration) const override;

    // ---- IMediaSessionExtension ----------------------------------------------
    DDKError* mediaSessions(MediaSessionCollectionHandle* sessions) const override;
    DDKError* startMediaSession(const char* streamToken, int transmissionMode, const char* destinationIp,
                                unsigned short destinationPort, MediaSessionCollectionHandle* sessions) override;
    DDKError* stopMediaSession(const char* sessionId) override;
    DDKError* renewMediaSession(const char* sessionId, unsigned short timeout) override;
    DDKError* pauseMediaSession(const char* sessionId) override;
    DDKError* resumeMediaSession(const char* sessionId) override;
    DDKError* streamConnectionInfos(const char* streamToken, StreamConnectionInfosHandle* infos) const override;
    DDKError* requestKeyFrame(const char* streamToken) override;
    DDKError* snapshotUri(const char* sourceToken, StringHandle* uri) const override;
    DDKError* multicastAddresses(const char* streamToken, NetworkAddressCollectionHandle* addresses) const override;
    DDKError* audioSourceTokens(StringListHandle* tokens) const override;
    DDKError* audioStreams(const char* sourceToken, AudioStreamConfigurationsHandle* configurations) const override;
    DDKError* audioSource(const char* sourceToken, AudioSourceHandle* source) const override;
    DDKError* setSessionKey(const char* sessionId, const char* encryptedKey) override;
    DDKError* enableAudio(const char* sourceToken) override;
    DDKError* disableAudio(const char* sourceToken) override;
    DDKError* audioOutputTokens(StringListHandle* tokens) const override;
    DDKError* audioBackchannelUri(const char* outputToken, StringHandle* uri) const override;
    DDKError* setAudioOutputLevel(const char* outputToken, unsigned int level) override;

    // ---- IAlarmExtension ---------------------------------------------------
    DDKError* alarmInputs(StringListHandle* inputs) const override;
    DDKError* alarmOutputs(StringListHandle* outputs) const override;
    DDKError* setAlarmOutput(const char* output, ddk_bool active) override;
    DDKError* motionRegions(const char* sourceToken, MotionDetectionRegionListHandle* regions) const override;
    DDKError* setMotionRegions(const char* sourceToken, MotionDetectionRegionListHandle* regions) override;
    DDKError* enableMotionDetection(const char* sourceToken) override;
    DDKError* disableMotionDetection(const char* sourceToken) override;

    // ---- IZoomExtension: the kit converts hundredths through these ---------
    DDKError* magnificationFactors(const char* token, unsigned int& firstHundredths,
                                   unsigned int& secondHundredths) override;
    DDKError* getMagnification(const char* token, unsigned char& magnification) override;
    DDKError* setMagnification(const char* token, const unsigned char& magnification,
                               const unsigned char& option) override;
    DDKError* magnificationRange(const char* token, unsigned int& minimumHundredthsX,
                                 unsigned int& maximumHundredthsX) const override;
    DDKError* zoomIn(const char* token, const unsigned char& speed) override;
    DDKError* zoomOut(const char* token, const unsigned char& speed) override;
    DDKError* stopZoom(const char* token) override;

    // ---- IScriptControlExtension: the eight scripts reach runScript ---------
    DDKError* presets(const char* token, PresetVectorHandle* presetFlags) const override;
    DDKError* tours(const char* token, TourVectorHandle* tourFlags) const override;
    DDKError* runScript(const char* token, int script) override;
    DDKError* gotoPreset(const char* token, unsigned int preset) override;
    DDKError* savePreset(const char* token, unsigned int preset) override;
    DDKError* removePreset(const char* token, unsigned int preset) override;
    DDKError* startTour(const char* token, unsigned int tour) override;
    DDKError* stopTour(const char* token) override;
    DDKError* move(const char* token, int panSpeed, int tiltSpeed) override;
    DDKError* stopMove(const char* token) override;

    // ---- IImageSettingsExtension --------------------------------------------
    DDKError* brightness(const char* token, int& level) const override;
    DDKError* setBrightness(const char* token, int level) override;
    DDKError* brightnessRange(const char* token, int& minimum, int& maximum) const override;
    DDKError* adjustBrightness(const char* token, int steps) override;
    DDKError* setDefaultBrightness(const char* token) override;
    DDKError* contrast(const char* token, int& level) const override;
    DDKError* setContrast(const char* token, int level) override;
    DDKError* contrastRange(const char* token, int& minimum, int& maximum) const override;
    DDKError* adjustContrast(const char* token, int steps) override;
    DDKError* setDefaultContrast(const char* token) override;
    DDKError* hue(const char* token, int& level) const override;
    DDKError* setHue(const char* token, int level) override;
    DDKError* hueRange(const char* token, int& minimum, int& maximum) const override;
    DDKError* adjustHue(const char* token, int steps) override;
    DDKError* setDefaultHue(const char* token) override;
    DDKError* saturation(const char* token, int& level) const override;
    DDKError* setSaturation(const char* token, int level) override;
    DDKError* saturationRange(const char* token, int& minimum, int& maximum) const override;
    DDKError* adjustSaturation(const char* token, int steps) override;
    DDKError* setDefaultSaturation(const char* token) override;

    // ---- IDeviceInfoExtension ----------------------------------------------
    DDKError* modelDescription(StringHandle* description) override;
    DDKError* manufacturer(const char* token, StringHandle* name) const override;
    DDKError* modelNumber(const char* token, StringHandle* number) const override;
    DDKError* serialNumber(const char* token, StringHandle* number) const override;
    DDKError* firmwareVersion(const char* token, StringHandle* version) const override;
    DDKError* hardwareId(const char* token, StringHandle* id) const override;
    DDKError* macAddress(const char* token, StringHandle* address) const override;
    DDKError* deviceName(const char* token, StringHandle* name) const override;
    DDKError* setDeviceName(const char* token, const char* name) override;
    DDKError* capabilities(const char* token, StringListHandle* features) const override;

    // ---- IDeviceManagementExtension -----------------------------------------
    DDKError* reboot(const char* token) override;
    DDKError* factoryReset(const char* token, ddk_bool keepNetworkSettings) override;
    DDKError* networkAddresses(const char* token, NetworkAddressCollectionHandle* addresses) const override;
    DDKError* setNetworkAddresses(const char* token, NetworkAddressCollectionHandle* addresses) override;

    // ---- ITimeManagementExtension -------------------------------------------
    DDKError* timeZone(const char* token, TimeZoneHandle* zone) const override;
    DDKError* setTimeZone(const char* token, TimeZoneHandle* zone) override;
    DDKError* systemTime(const char* token, int64_t& utcSeconds) const override;
    DDKError* setSystemTime(const char* token, int64_t utcSeconds) override;
    DDKError* ntpServers(const char* token, NetworkAddressCollectionHandle* servers) const override;
    DDKError* setNtpServers(const char* token, NetworkAddressCollectionHandle* servers) override;
    DDKError* synchronizeTime(const char* token) override;

private:
    // An image setting of one source.
    struct Level {
        int value;
        int minimum;
        int maximum;
        int standard;  // the factory default
    };
    // What the device remembers about one video source.
    struct SourceState {
        unsigned char magnification = 0;
        int zoomSpeed = 0;  // >0 zooming in, <0 out
        int lastScript = 0;
        bool motionDetection = true;
        std::string activePreset;
        int activeProfile = 1;
        std::vector<bool> presetsInUse;
        Level brightness{50, 0, 100, 50};
        Level contrast{50, 0, 100, 50};
        Level hue{0, -180, 180, 0};
        Level saturation{50, 0, 100, 50};
        std::vector<vantrel::MotionDetectionRegion> regions;
    };
    struct Session {
        std::string id;
        std::string streamToken;
        int transmissionMode;
        std::string destinationIp;
        unsigned short destinationPort;
        unsigned short timeout;
        int state;  // 1 playing, 2 paused
    };

    // The table the host gave at start; every part holds the same one.
    DDKServiceProvider* host() const { return IAlarmExtension::serviceProvider; }
    void log(const std::string& line) const;

    // Null and the source's state, or an error record for an unknown token.
    DDKError* findSource(const char* token, const SourceSpec*& desc) const;
    // Saving and removing a preset differ only in the flag they leave.
    DDKError* markPreset(const char* token, unsigned int preset, bool inUseNow);
    // Enabling and disabling motion detection differ only in the state and the signal.
    DDKError* switchMotionDetection(const char* sourceToken, bool on);
    SourceState& state(const SourceSpec& desc) { return sources_.at(desc.token); }
    const SourceState& state(const SourceSpec& desc) const { return sources_.at(desc.token); }
    static const StreamSpec* findStream(const char* token, const SourceSpec** owner = nullptr);
    DDKError* level(const char* token, Level SourceState::*which, int& value) const;
    DDKError* setLevel(const char* token, Level SourceState::*which, int value);
    DDKError* levelRange(const char* token, Level SourceState::*which, int& minimum, int& maximum) const;
    DDKError* adjustLevel(const char* token, Level SourceState::*which, int steps);
    DDKError* restoreLevel(const char* token, Level SourceState::*which);

    void runEvents();
    void stopEvents();

    mutable std::mutex mutex_;  // guards everything below but the event thread's own state
    std::map<std::string, SourceState> sources_;
    std::vector<Session> sessions_;
    unsigned nextSession_ = 1;
    std::string deviceName_ = kDefaultDeviceName;
    std::vector<std::pair<int32_t, std::string>> addresses_;
    std::vector<std::pair<int32_t, std::string>> ntpServers_;
    int64_t clockOffset_ = 0;  // seconds between the device clock and the system clock
    bool audioEnabled_ = true;
    unsigned audioOutputLevel_ = 50;
    bool relayClosed_ = false;

    std::chrono::milliseconds eventPeriod_{250};
    std::thread events_;
    std::mutex eventsMutex_;
    std::condition_variable eventsWake_;
    bool stopping_ = false;
};

}  // namespace simcam
