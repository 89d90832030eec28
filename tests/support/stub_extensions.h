// Concrete extension classes whose pure operations succeed and do nothing,
// so that tests can build plug-ins that override only what they examine.
#pragma once

#include "vantrel/ddk.h"

namespace testing_support {

using namespace vantrel::ddk;

struct StubAlarm : IAlarmExtension {
  DDKError* alarmInputs(StringListHandle*) const override { return nullptr; }
  DDKError* alarmOutputs(StringListHandle*) const override { return nullptr; }
  DDKError* setAlarmOutput(const char*, ddk_bool) override { return nullptr; }
  DDKError* motionRegions(const char*, MotionDetectionRegionListHandle*) const override { return nullptr; }
  DDKError* setMotionRegions(const char*, MotionDetectionRegionListHandle*) override { return nullptr; }
  DDKError* enableMotionDetection(const char*) override { return nullptr; }
  DDKError* disableMotionDetection(const char*) override { return nullptr; }
};

struct StubDeviceInfo : IDeviceInfoExtension {
  DDKError* manufacturer(const char*, StringHandle*) const override { return nullptr; }
  DDKError* modelNumber(const char*, StringHandle*) const override { return nullptr; }
  DDKError* serialNumber(const char*, StringHandle*) const override { return nullptr; }
  DDKError* firmwareVersion(const char*, StringHandle*) const override { return nullptr; }
  DDKError* hardwareId(const char*, StringHandle*) const override { return nullptr; }
  DDKError* macAddress(const char*, StringHandle*) const override { return nullptr; }
  DDKError* deviceName(const char*, StringHandle*) const override { return nullptr; }
  DDKError* setDeviceName(const char*, const char*) override { return nullptr; }
  DDKError* capabilities(const char*, StringListHandle*) const override { return nullptr; }
};

struct StubDeviceManagement : IDeviceManagementExtension {
  DDKError* reboot(const char*) override { return nullptr; }
  DDKError* factoryReset(const char*, ddk_bool) override { return nullptr; }
  DDKError* networkAddresses(const char*, NetworkAddressCollectionHandle*) const override { return nullptr; }
  DDKError* setNetworkAddresses(const char*, NetworkAddressCollectionHandle*) override { return nullptr; }
};

struct StubImageSettings : IImageSettingsExtension {
  DDKError* brightness(const char*, int&) const override { return nullptr; }
  DDKError* setBrightness(const char*, int) override { return nullptr; }
  DDKError* brightnessRange(const char*, int&, int&) const override { return nullptr; }
  DDKError* adjustBrightness(const char*, int) override { return nullptr; }
  DDKError* contrast(const char*, int&) const override { return nullptr; }
  DDKError* setContrast(const char*, int) override { return nullptr; }
  DDKError* contrastRange(const char*, int&, int&) const override { return nullptr; }
  DDKError* adjustContrast(const char*, int) override { return nullptr; }
  DDKError* hue(const char*, int&) const override { return nullptr; }
  DDKError* setHue(const char*, int) override { return nullptr; }
  DDKError* hueRange(const char*, int&, int&) const override { return nullptr; }
  DDKError* adjustHue(const char*, int) override { return nullptr; }
  DDKError* saturation(const char*, int&) const override { return nullptr; }
  DDKError* setSaturation(const char*, int) override { return nullptr; }
  DDKError* saturationRange(const char*, int&, int&) const override { return nullptr; }
  DDKError* adjustSaturation(const char*, int) override { return nullptr; }
};

struct StubMediaSession : IMediaSessionExtension {
  DDKError* mediaSessions(MediaSessionCollectionHandle*) const override { return nullptr; }
  DDKError* startMediaSession(const char*, int, const char*, unsigned short,
                              MediaSessionCollectionHandle*) override {
    return nullptr;
  }
  DDKError* stopMediaSession(const char*) override { return nullptr; }
  DDKError* renewMediaSession(const char*, unsigned short) override { return nullptr; }
  DDKError* pauseMediaSession(const char*) override { return nullptr; }
  DDKError* resumeMediaSession(const char*) override { return nullptr; }
  DDKError* streamConnectionInfos(const char*, StreamConnectionInfosHandle*) const override { return nullptr; }
  DDKError* requestKeyFrame(const char*) override { return nullptr; }
  DDKError* snapshotUri(const char*, StringHandle*) const override { return nullptr; }
  DDKError* multicastAddresses(const char*, NetworkAddressCollectionHandle*) const override { return nullptr; }
  DDKError* audioSourceTokens(StringListHandle*) const override { return nullptr; }
  DDKError* audioStreams(const char*, AudioStreamConfigurationsHandle*) const override { return nullptr; }
  DDKError* audioSource(const char*, AudioSourceHandle*) const override { return nullptr; }
  DDKError* setSessionKey(const char*, const char*) override { return nullptr; }
  DDKError* enableAudio(const char*) override { return nullptr; }
  DDKError* disableAudio(const char*) override { return nullptr; }
  DDKError* audioOutputTokens(StringListHandle*) const override { return nullptr; }
  DDKError* audioBackchannelUri(const char*, StringHandle*) const override { return nullptr; }
  DDKError* setAudioOutputLevel(const char*, unsigned int) override { return nullptr; }
};

struct StubScriptControl : IScriptControlExtension {
  DDKError* presets(const char*, PresetVectorHandle*) const override { return nullptr; }
  DDKError* tours(const char*, TourVectorHandle*) const override { return nullptr; }
  DDKError* runScript(const char*, int) override { return nullptr; }
  DDKError* gotoPreset(const char*, unsigned int) override { return nullptr; }
  DDKError* savePreset(const char*, unsigned int) override { return nullptr; }
  DDKError* removePreset(const char*, unsigned int) override { return nullptr; }
  DDKError* startTour(const char*, unsigned int) override { return nullptr; }
  DDKError* stopTour(const char*) override { return nullptr; }
  DDKError* move(const char*, int, int) override { return nullptr; }
  DDKError* stopMove(const char*) override { return nullptr; }
};

struct StubTimeManagement : ITimeManagementExtension {
  DDKError* timeZone(const char*, TimeZoneHandle*) const override { return nullptr; }
  DDKError* setTimeZone(const char*, TimeZoneHandle*) override { return nullptr; }
  DDKError* systemTime(const char*, int64_t&) const override { return nullptr; }
  DDKError* setSystemTime(const char*, int64_t) override { return nullptr; }
  DDKError* ntpServers(const char*, NetworkAddressCollectionHandle*) const override { return nullptr; }
  DDKError* setNtpServers(const char*, NetworkAddressCollectionHandle*) override { return nullptr; }
  DDKError* synchronizeTime(const char*) override { return nullptr; }
};

struct StubVideo : IVideoExtension {
  DDKError* videoStreams(const char*, VideoStreamConfigurationsHandle*) const override { return nullptr; }
  DDKError* videoPresets(const char*, VideoStreamPresetsHandle*) const override { return nullptr; }
  DDKError* applyVideoStream(const char*, VideoStreamConfigurationHandle*) override { return nullptr; }
  DDKError* applyVideoPreset(const char*, const char*) override { return nullptr; }
  DDKError* encoderOptions(const char*, VideoOptionsQueryHandle*, EncoderOptionsHandle*) const override {
    return nullptr;
  }
  DDKError* analyticsProfiles(const char*, VideoAnalyticsProfilesHandle*) const override { return nullptr; }
  DDKError* activateAnalyticsProfile(const char*, int) override { return nullptr; }
};

struct StubZoom : IZoomExtension {
  DDKError* magnificationFactors(const char*, unsigned int&, unsigned int&) override { return nullptr; }
  DDKError* magnificationRange(const char*, unsigned int&, unsigned int&) const override { return nullptr; }
  DDKError* zoomIn(const char*, const unsigned char&) override { return nullptr; }
  DDKError* zoomOut(const char*, const unsigned char&) override { return nullptr; }
  DDKError* stopZoom(const char*) override { return nullptr; }
};

}  // namespace testing_support
