// The simulated camera, as data: what SimCam reports to the host. A vendor
// replaces these tables with answers read from the real device.
//
// Codes that the kit leaves to host and plug-in are this camera's own:
//   encodings       1 H.264, 2 H.265 (the kit's), 3 Motion JPEG (ours)
//   profiles        0 baseline, 1 main, 2 high
//   rate controls   1 constant bit rate, 2 variable bit rate
//   GOP structures  0 I and P frames, 1 I, P and B frames
//   transmission    1 RTP over UDP, 2 RTP multicast, 3 RTP over RTSP (TCP)
//   endpoint types  0 RTSP, 1 HTTP
//   address types   4 IPv4, 6 IPv6, 0 host name
//   audio formats   1 G.711 mu-law, 2 AAC;  audio source type 1 microphone
//   alarm types     1 digital input, 2 motion, 3 sabotage
//   time zone       offsets in minutes east of UTC, DST start and end as day of the year
//   bit rates in kbit/s, frame rates in frames per second.
#pragma once

#include <cstddef>

namespace simcam {

struct StreamSpec {
    const char* token;
    const char* name;
    int encoding;
    unsigned width;
    unsigned height;
    unsigned framerate;
    unsigned bitrate;
    unsigned gop;  // 0 for an encoding without GOP (Motion JPEG)
    int profile;
};

// One thing the encoder of a source can do: an encoding at a resolution, up
// to a frame rate. The encoder options answer from these rows.
struct EncoderMode {
    int encoding;
    unsigned width;
    unsigned height;
    unsigned maxFramerate;
};

struct ProfileSpec {
    int id;
    const char* name;
    unsigned char flag;  // 1: runs on the device, 0: needs a licence
};

struct RegionSpec {
    bool enabled;
    unsigned sensitivity;
    unsigned threshold;
    unsigned x1, y1, x2, y2;  // macro blocks, inclusive
    bool masked;              // a checkerboard mask of the region's blocks
};

struct SourceSpec {
    const char* token;
    const StreamSpec* streams;
    std::size_t streamCount;
    const EncoderMode* modes;
    std::size_t modeCount;
    const ProfileSpec* profiles;
    std::size_t profileCount;
    const RegionSpec* regions;
    std::size_t regionCount;
    unsigned zoomFactor;         // first factor, hundredths: optical zoom at the lens's end
    unsigned char magnification; // start-up magnification, plug-in units (0: 1.00x)
    unsigned presetCount;        // preset numbers 0..presetCount-1
    const unsigned* presetsInUse;
    std::size_t presetsInUseCount;
    unsigned tourCount;
    const unsigned* toursInUse;
    std::size_t toursInUseCount;
};

// The frame rates an encoder offers, up to each mode's maximum.
constexpr unsigned kFramerates[] = {1, 5, 10, 15, 20, 25, 30};

constexpr StreamSpec kStreams0[] = {
    {"video0-main", "Overview, full HD", 1, 1920, 1080, 30, 4000, 60, 2},
    {"video0-sub", "Overview, low bandwidth", 1, 640, 360, 15, 512, 30, 0},
    {"video0-mjpeg", "Overview, Motion JPEG", 3, 1280, 720, 10, 6000, 0, 0},
};
constexpr StreamSpec kStreams1[] = {
    {"video1-main", "Detail, HD", 2, 1280, 720, 25, 2000, 50, 1},
    {"video1-sub", "Detail, low bandwidth", 1, 320, 240, 10, 256, 20, 0},
};

constexpr EncoderMode kModes0[] = {
    {1, 1920, 1080, 30}, {1, 1280, 720, 30}, {1, 640, 360, 30},
    {2, 1920, 1080, 30}, {2, 1280, 720, 30},
    {3, 1280, 720, 15},  {3, 640, 360, 25},
};
constexpr EncoderMode kModes1[] = {
    {1, 1280, 720, 25}, {1, 320, 240, 15},
    {2, 1280, 720, 25},
};

constexpr ProfileSpec kProfiles0[] = {{1, "Motion", 1}, {2, "Line crossing", 1}, {3, "Loitering", 0}};
constexpr ProfileSpec kProfiles1[] = {{1, "Motion", 1}};

// Grids: 120 x 68 macro blocks (1920 x 1080), 80 x 45 (1280 x 720).
constexpr RegionSpec kRegions0[] = {
    {true, 80, 20, 0, 0, 59, 33, true},
    {true, 60, 10, 60, 0, 119, 33, false},
    {false, 100, 1, 0, 34, 119, 67, false},
};
constexpr RegionSpec kRegions1[] = {{true, 70, 40, 10, 5, 69, 39, true}};

constexpr unsigned kPresetsInUse0[] = {1, 2, 3, 7};
constexpr unsigned kToursInUse0[] = {0};
constexpr unsigned kPresetsInUse1[] = {0, 1};

constexpr SourceSpec kSources[] = {
    {"video0", kStreams0, 3, kModes0, 7, kProfiles0, 3, kRegions0, 3, 3000, 5, 16, kPresetsInUse0, 4, 4,
     kToursInUse0, 1},
    {"video1", kStreams1, 2, kModes1, 3, kProfiles1, 1, kRegions1, 1, 1200, 0, 8, kPresetsInUse1, 2, 2, nullptr,
     0},
};
constexpr std::size_t kSourceCount = sizeof kSources / sizeof kSources[0];

// Stream presets: named sets of streams a source can switch to. Each preset
// holds the source's main stream at another bit rate.
struct PresetSpec {
    const char* name;
    unsigned bitrateDivisor;
};
constexpr PresetSpec kStreamPresets[] = {{"full quality", 1}, {"low bandwidth", 4}};

// Device identity.
constexpr char kManufacturer[] = "Vantrel sample devices";
constexpr char kModelDescription[] = "SimCam dual-sensor PTZ camera (simulated)";
constexpr char kModelNumber[] = "SC-200";
constexpr char kSerialNumber[] = "SC200-0001234";
constexpr char kFirmwareVersion[] = "1.0.0-sim";
constexpr char kHardwareId[] = "simcam-hw-2";
constexpr char kMacAddress[] = "02:00:5e:10:00:01";
constexpr char kDefaultDeviceName[] = "Lobby camera";
constexpr const char* kCapabilities[] = {"video", "audio", "ptz", "motion-detection", "analytics", "events"};

// Network.
constexpr char kDeviceAddress[] = "192.0.2.10";
constexpr char kDeviceAddress6[] = "2001:db8::10";
constexpr char kNtpServer[] = "192.0.2.1";
constexpr char kNtpServerName[] = "ntp.example.net";

// Audio.
constexpr char kAudioSource[] = "audio0";
constexpr char kAudioOutput[] = "speaker0";

// Alarm inputs and outputs.
constexpr const char* kAlarmInputs[] = {"input0", "input1"};
constexpr const char* kAlarmOutputs[] = {"relay0"};

// Time zone.
constexpr char kTimeZoneName[] = "CET";
constexpr char kTimeZoneDstName[] = "CEST";
constexpr int kGmtOffsetMinutes = 60;
constexpr int kDstOffsetMinutes = 60;
constexpr int kDstStartDay = 89;
constexpr int kDstEndDay = 299;

// The session running when the camera starts (a recorder pulling the main stream).
constexpr char kRecorderAddress[] = "192.0.2.50";
constexpr unsigned short kRecorderPort = 5000;

}  // namespace simcam
