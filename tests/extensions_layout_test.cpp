// Binary-interface facts of the extension interfaces: every operation's
// vtable slot (the host calls them by position), sizes and bases.
#include <gtest/gtest.h>

#include <cxxabi.h>

#include <cstddef>
#include <typeinfo>

#include "support/stub_extensions.h"
#include "support/vtable.h"
#include "vantrel/ddk.h"

using namespace vantrel::ddk;
using testing_support::vtable_entry;
using testing_support::vtable_index;

namespace {

struct Slot {
  const char* name;
  long index;  // from vtable_index: 0-based, the two destructors at 0 and 1
  long slot;   // 1-based, as the interface tables count
};

#define SLOT(Class, op, n) Slot{#Class "::" #op, vtable_index(&Class::op), n}

void expect_slots(const Slot* begin, const Slot* end) {
  for (const Slot* s = begin; s != end; ++s) EXPECT_EQ(s->index + 1, s->slot) << s->name;
}

TEST(ExtensionVtables, OperationsWithDefaultBodies) {
  const Slot slots[] = {
      SLOT(IVideoExtension, sourceTokens, 5),
      SLOT(IVideoExtension, multicastDefaults, 13),
      SLOT(IMediaSessionExtension, publicRSA, 18),
      SLOT(IZoomExtension, magnificationFactors, 5),
      SLOT(IZoomExtension, getMagHundredthsX, 6),
      SLOT(IZoomExtension, setMagHundredthsX, 7),
      SLOT(IZoomExtension, getMagnification, 8),
      SLOT(IZoomExtension, setMagnification, 9),
      SLOT(IScriptControlExtension, runScript, 7),
      SLOT(IScriptControlExtension, activateAuxiliary, 15),
      SLOT(IScriptControlExtension, deactivateAuxiliary, 16),
      SLOT(IScriptControlExtension, rotate180Degrees, 17),
      SLOT(IScriptControlExtension, panToZero, 18),
      SLOT(IScriptControlExtension, runAutoScan, 19),
      SLOT(IScriptControlExtension, runRandomScan, 20),
      SLOT(IScriptControlExtension, runFrameScan, 21),
      SLOT(IScriptControlExtension, stopScan, 22),
      SLOT(IImageSettingsExtension, setDefaultBrightness, 9),
      SLOT(IImageSettingsExtension, setDefaultContrast, 14),
      SLOT(IImageSettingsExtension, setDefaultHue, 19),
      SLOT(IImageSettingsExtension, setDefaultSaturation, 24),
      SLOT(IDeviceInfoExtension, modelDescription, 5),
  };
  expect_slots(std::begin(slots), std::end(slots));
}

// The host contract: the place of every operation the host calls.
TEST(ExtensionVtables, HostContractOperations) {
  const Slot slots[] = {
      SLOT(IAlarmExtension, alarmInputs, 5),
      SLOT(IAlarmExtension, alarmOutputs, 6),
      SLOT(IAlarmExtension, setAlarmOutput, 7),
      SLOT(IAlarmExtension, motionRegions, 8),
      SLOT(IAlarmExtension, setMotionRegions, 9),
      SLOT(IAlarmExtension, enableMotionDetection, 10),
      SLOT(IAlarmExtension, disableMotionDetection, 11),
      SLOT(IDeviceInfoExtension, manufacturer, 6),
      SLOT(IDeviceInfoExtension, modelNumber, 7),
      SLOT(IDeviceInfoExtension, serialNumber, 8),
      SLOT(IDeviceInfoExtension, firmwareVersion, 9),
      SLOT(IDeviceInfoExtension, hardwareId, 10),
      SLOT(IDeviceInfoExtension, macAddress, 11),
      SLOT(IDeviceInfoExtension, deviceName, 12),
      SLOT(IDeviceInfoExtension, setDeviceName, 13),
      SLOT(IDeviceInfoExtension, capabilities, 14),
      SLOT(IDeviceManagementExtension, reboot, 5),
      SLOT(IDeviceManagementExtension, factoryReset, 6),
      SLOT(IDeviceManagementExtension, networkAddresses, 7),
      SLOT(IDeviceManagementExtension, setNetworkAddresses, 8),
      SLOT(IImageSettingsExtension, brightness, 5),
      SLOT(IImageSettingsExtension, setBrightness, 6),
      SLOT(IImageSettingsExtension, brightnessRange, 7),
      SLOT(IImageSettingsExtension, adjustBrightness, 8),
      SLOT(IImageSettingsExtension, contrast, 10),
      SLOT(IImageSettingsExtension, setContrast, 11),
      SLOT(IImageSettingsExtension, contrastRange, 12),
      SLOT(IImageSettingsExtension, adjustContrast, 13),
      SLOT(IImageSettingsExtension, hue, 15),
      SLOT(IImageSettingsExtension, setHue, 16),
      SLOT(IImageSettingsExtension, hueRange, 17),
      SLOT(IImageSettingsExtension, adjustHue, 18),
      SLOT(IImageSettingsExtension, saturation, 20),
      SLOT(IImageSettingsExtension, setSaturation, 21),
      SLOT(IImageSettingsExtension, saturationRange, 22),
      SLOT(IImageSettingsExtension, adjustSaturation, 23),
      SLOT(IMediaSessionExtension, mediaSessions, 5),
      SLOT(IMediaSessionExtension, startMediaSession, 6),
      SLOT(IMediaSessionExtension, stopMediaSession, 7),
      SLOT(IMediaSessionExtension, renewMediaSession, 8),
      SLOT(IMediaSessionExtension, pauseMediaSession, 9),
      SLOT(IMediaSessionExtension, resumeMediaSession, 10),
      SLOT(IMediaSessionExtension, streamConnectionInfos, 11),
      SLOT(IMediaSessionExtension, requestKeyFrame, 12),
      SLOT(IMediaSessionExtension, snapshotUri, 13),
      SLOT(IMediaSessionExtension, multicastAddresses, 14),
      SLOT(IMediaSessionExtension, audioSourceTokens, 15),
      SLOT(IMediaSessionExtension, audioStreams, 16),
      SLOT(IMediaSessionExtension, audioSource, 17),
      SLOT(IMediaSessionExtension, setSessionKey, 19),
      SLOT(IMediaSessionExtension, enableAudio, 20),
      SLOT(IMediaSessionExtension, disableAudio, 21),
      SLOT(IMediaSessionExtension, audioOutputTokens, 22),
      SLOT(IMediaSessionExtension, audioBackchannelUri, 23),
      SLOT(IMediaSessionExtension, setAudioOutputLevel, 24),
      SLOT(IScriptControlExtension, presets, 5),
      SLOT(IScriptControlExtension, tours, 6),
      SLOT(IScriptControlExtension, gotoPreset, 8),
      SLOT(IScriptControlExtension, savePreset, 9),
      SLOT(IScriptControlExtension, removePreset, 10),
      SLOT(IScriptControlExtension, startTour, 11),
      SLOT(IScriptControlExtension, stopTour, 12),
      SLOT(IScriptControlExtension, move, 13),
      SLOT(IScriptControlExtension, stopMove, 14),
      SLOT(ITimeManagementExtension, timeZone, 5),
      SLOT(ITimeManagementExtension, setTimeZone, 6),
      SLOT(ITimeManagementExtension, systemTime, 7),
      SLOT(ITimeManagementExtension, setSystemTime, 8),
      SLOT(ITimeManagementExtension, ntpServers, 9),
      SLOT(ITimeManagementExtension, setNtpServers, 10),
      SLOT(ITimeManagementExtension, synchronizeTime, 11),
      SLOT(IVideoExtension, videoStreams, 6),
      SLOT(IVideoExtension, videoPresets, 7),
      SLOT(IVideoExtension, applyVideoStream, 8),
      SLOT(IVideoExtension, applyVideoPreset, 9),
      SLOT(IVideoExtension, encoderOptions, 10),
      SLOT(IVideoExtension, analyticsProfiles, 11),
      SLOT(IVideoExtension, activateAnalyticsProfile, 12),
      SLOT(IZoomExtension, magnificationRange, 10),
      SLOT(IZoomExtension, zoomIn, 11),
      SLOT(IZoomExtension, zoomOut, 12),
      SLOT(IZoomExtension, stopZoom, 13),
  };
  expect_slots(std::begin(slots), std::end(slots));
}

template <class Extension>
void expect_plain_extension(const char* name) {
  SCOPED_TRACE(name);
  EXPECT_EQ(sizeof(Extension), sizeof(IPlugin)) << "adds no fields";
  EXPECT_TRUE(std::has_virtual_destructor<Extension>::value);
  // Single, public, non-virtual inheritance: the class's type information
  // names IPlugin as its one base.
  const auto* info = dynamic_cast<const abi::__si_class_type_info*>(&typeid(Extension));
  ASSERT_NE(info, nullptr);
  EXPECT_EQ(*info->__base_type, typeid(IPlugin));
}

TEST(ExtensionLayout, EachIsIPluginAloneWithoutFields) {
  expect_plain_extension<IAlarmExtension>("alarm");
  expect_plain_extension<IDeviceInfoExtension>("device info");
  expect_plain_extension<IDeviceManagementExtension>("device management");
  expect_plain_extension<IImageSettingsExtension>("image settings");
  expect_plain_extension<IMediaSessionExtension>("media session");
  expect_plain_extension<IScriptControlExtension>("script control");
  expect_plain_extension<ITimeManagementExtension>("time management");
  expect_plain_extension<IVideoExtension>("video");
  expect_plain_extension<IZoomExtension>("zoom");
}

TEST(ExtensionLayout, HooksAreInheritedNotOverridden) {
  struct Plain : IPlugin {};
  const Plain plain;
  const testing_support::StubAlarm alarm;
  const testing_support::StubDeviceInfo deviceInfo;
  const testing_support::StubDeviceManagement deviceManagement;
  const testing_support::StubImageSettings imageSettings;
  const testing_support::StubMediaSession mediaSession;
  const testing_support::StubScriptControl scriptControl;
  const testing_support::StubTimeManagement timeManagement;
  const testing_support::StubVideo video;
  const testing_support::StubZoom zoom;
  const IPlugin* parts[] = {&alarm,         &deviceInfo,     &deviceManagement, &imageSettings, &mediaSession,
                            &scriptControl, &timeManagement, &video,            &zoom};
  for (const IPlugin* part : parts) {
    EXPECT_EQ(vtable_entry(part, 2), vtable_entry(&plain, 2)) << typeid(*part).name();
    EXPECT_EQ(vtable_entry(part, 3), vtable_entry(&plain, 3)) << typeid(*part).name();
  }
}

TEST(PluginDescriptorLayout, VersionFirstThenPointers) {
  constexpr std::size_t P = sizeof(void*);
  EXPECT_EQ(offsetof(DDKPluginDescriptor, abiVersion), 0u);
  EXPECT_EQ(offsetof(DDKPluginDescriptor, size), 4u);
  EXPECT_EQ(offsetof(DDKPluginDescriptor, name), 8u);
  EXPECT_EQ(offsetof(DDKPluginDescriptor, extensionMask), 8 + P);
  EXPECT_EQ(offsetof(DDKPluginDescriptor, create), 8 + 2 * P);
  EXPECT_EQ(offsetof(DDKPluginDescriptor, destroy), 8 + 3 * P);
  EXPECT_EQ(offsetof(DDKPluginDescriptor, start), 8 + 4 * P);
  EXPECT_EQ(offsetof(DDKPluginDescriptor, stop), 8 + 5 * P);
  EXPECT_EQ(offsetof(DDKPluginDescriptor, extension), 8 + 6 * P);
  EXPECT_EQ(sizeof(DDKPluginDescriptor), 8 + 7 * P);
  EXPECT_EQ(DDK_PLUGIN_ABI_VERSION, VANTREL_DDK_VERSION_MAJOR);
}

}  // namespace
