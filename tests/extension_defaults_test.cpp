// The default bodies of the extension interfaces.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/recording_host.h"
#include "support/stub_extensions.h"
#include "vantrel/ddk.h"

using namespace vantrel::ddk;
using testing_support::RecordingHost;

namespace {

struct ErrorDeleter {
  void operator()(DDKError* e) const { ddk_free_error(e); }
};
using ErrorPtr = std::unique_ptr<DDKError, ErrorDeleter>;

StringHandle* handle(std::string& s) { return reinterpret_cast<StringHandle*>(&s); }
StringListHandle* handle(std::vector<std::string>& v) { return reinterpret_cast<StringListHandle*>(&v); }

void expect_not_supported(const DDKError* error) {
  ASSERT_NE(error, nullptr);
  EXPECT_STREQ(error->message, "Operation not supported.");
  EXPECT_EQ(error->code, 7);
}

// --- Alarm -------------------------------------------------------------------

struct AlarmHost : RecordingHost {
  std::vector<AlarmEvent> alarms;
  AlarmHost() {
    table.alarmContext = this;
    table.alarmCallback = [](void* context, AlarmEvent event) {
      static_cast<AlarmHost*>(context)->alarms.push_back(event);
    };
  }
};

const AlarmEvent kAlarm = {0x01020304u, 0x05060708u, 0x090A0B0Cu, 0x0D0E0F10u};

TEST(SignalAlarm, DeliversTheSameBytesWithTheAlarmContext) {
  AlarmHost host;
  testing_support::StubAlarm plugin;
  ASSERT_EQ(plugin.init(&host.table), nullptr);
  plugin.signalAlarm(kAlarm);
  ASSERT_EQ(host.alarms.size(), 1u);
  EXPECT_EQ(std::memcmp(&host.alarms[0], &kAlarm, sizeof kAlarm), 0);
  EXPECT_TRUE(host.logs.empty());
}

TEST(SignalAlarm, BeforeInitDoesNothing) {
  AlarmHost host;
  testing_support::StubAlarm plugin;
  plugin.signalAlarm(kAlarm);
  EXPECT_TRUE(host.alarms.empty());
  EXPECT_TRUE(host.logs.empty());
}

TEST(SignalAlarm, MissingCallbackIsLoggedAtLevelTwo) {
  RecordingHost host;  // log callback only
  testing_support::StubAlarm plugin;
  ASSERT_EQ(plugin.init(&host.table), nullptr);
  plugin.signalAlarm(kAlarm);
  ASSERT_EQ(host.logs.size(), 1u);
  EXPECT_EQ(host.logs[0].level, 2);
  EXPECT_EQ(host.logs[0].message,
            "Unable to signal alarm event, service provider not initialized for alarm eventing");
  EXPECT_EQ(host.logs[0].message.size(), 81u);
}

TEST(SignalAlarm, ThrowingCallbackIsLoggedNotThrown) {
  struct Case {
    DDKAlarmCallback callback;
    const char* logged;
  } cases[] = {
      {[](void*, AlarmEvent) { throw std::runtime_error("disk full"); }, "Failed to generate alarm event: disk full"},
      {[](void*, AlarmEvent) { throw std::logic_error(""); }, "Failed to generate alarm event: "},
      {[](void*, AlarmEvent) { throw 42; }, "Unknown error occurred while generating alarm event"},
  };
  for (const auto& c : cases) {
    RecordingHost host;
    host.table.alarmCallback = c.callback;
    testing_support::StubAlarm plugin;
    ASSERT_EQ(plugin.init(&host.table), nullptr);
    EXPECT_NO_THROW(plugin.signalAlarm(kAlarm));
    ASSERT_EQ(host.logs.size(), 1u) << c.logged;
    EXPECT_EQ(host.logs[0].level, 2);
    EXPECT_EQ(host.logs[0].message, c.logged);
  }
}

// --- Media session: the public key ------------------------------------------

std::vector<unsigned char> base64_decode(const std::string& text) {
  static const std::string alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::vector<unsigned char> bytes;
  unsigned int bits = 0;
  int count = 0;
  for (char c : text) {
    if (c == '=') break;
    const auto value = alphabet.find(c);
    if (value == std::string::npos) return {};
    bits = (bits << 6) | static_cast<unsigned int>(value);
    count += 6;
    if (count >= 8) {
      count -= 8;
      bytes.push_back(static_cast<unsigned char>(bits >> count));
    }
  }
  return bytes;
}

TEST(PublicRSA, IsA137CharacterPemBlockOfAnRsaKey) {
  testing_support::StubMediaSession plugin;
  std::string key = "previous content";
  EXPECT_EQ(plugin.publicRSA(handle(key)), nullptr);
  ASSERT_EQ(key.size(), 137u);
  EXPECT_NE(key.back(), '\n');

  std::vector<std::string> lines;
  for (std::size_t start = 0;;) {
    const auto end = key.find('\n', start);
    lines.push_back(key.substr(start, end - start));
    if (end == std::string::npos) break;
    start = end + 1;
  }
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_EQ(lines[0], "-----BEGIN PUBLIC KEY-----");
  EXPECT_EQ(lines[1].size(), 64u);
  EXPECT_EQ(lines[2].size(), 20u);
  EXPECT_EQ(lines[3], "-----END PUBLIC KEY-----");

  // The body is a SubjectPublicKeyInfo: a DER sequence naming rsaEncryption
  // (1.2.840.113549.1.1.1) and ending with the exponent 65537.
  const auto der = base64_decode(lines[1] + lines[2]);
  ASSERT_GT(der.size(), 24u);
  EXPECT_EQ(der[0], 0x30);
  EXPECT_EQ(static_cast<std::size_t>(der[1]) + 2, der.size());
  const unsigned char rsaEncryption[] = {0x06, 0x09, 0x2a, 0x86, 0x48, 0x86, 0xf7, 0x0d, 0x01, 0x01, 0x01};
  EXPECT_EQ(std::memcmp(&der[4], rsaEncryption, sizeof rsaEncryption), 0);
  const unsigned char exponent[] = {0x02, 0x03, 0x01, 0x00, 0x01};
  EXPECT_EQ(std::memcmp(&der[der.size() - 5], exponent, sizeof exponent), 0);
}

TEST(PublicRSA, NullHandleStillSucceeds) {
  testing_support::StubMediaSession plugin;
  EXPECT_EQ(plugin.publicRSA(nullptr), nullptr);
}

// --- Video ------------------------------------------------------------------

TEST(VideoDefaults, SourceTokensAppendsOneSourceZero) {
  testing_support::StubVideo plugin;
  std::vector<std::string> empty;
  EXPECT_EQ(plugin.sourceTokens(handle(empty)), nullptr);
  EXPECT_EQ(empty, (std::vector<std::string>{"0"}));
  std::vector<std::string> filled{"a"};
  EXPECT_EQ(plugin.sourceTokens(handle(filled)), nullptr);
  EXPECT_EQ(plugin.sourceTokens(handle(filled)), nullptr);
  EXPECT_EQ(filled, (std::vector<std::string>{"a", "0", "0"}));
  EXPECT_EQ(plugin.sourceTokens(nullptr), nullptr);
}

TEST(VideoDefaults, MulticastDefaultsTouchesNothing) {
  testing_support::StubVideo plugin;
  unsigned char record[64];
  std::memset(record, 0xA5, sizeof record);
  auto* configuration = reinterpret_cast<VideoStreamConfigurationHandle*>(record);
  EXPECT_EQ(plugin.multicastDefaults("main", configuration), nullptr);
  EXPECT_EQ(plugin.multicastDefaults(nullptr, nullptr), nullptr);
  for (unsigned char byte : record) ASSERT_EQ(byte, 0xA5);
}

// --- Device information -------------------------------------------------------

TEST(DeviceInfoDefaults, ModelDescription) {
  testing_support::StubDeviceInfo plugin;
  std::string model = "x";
  EXPECT_EQ(plugin.modelDescription(handle(model)), nullptr);
  EXPECT_EQ(model, "Quarn Pro Camera");
  EXPECT_EQ(model.size(), 16u);
  EXPECT_EQ(plugin.modelDescription(nullptr), nullptr);
}

// --- Image settings -----------------------------------------------------------

TEST(ImageSettingsDefaults, RestoringADefaultIsNotSupported) {
  using Operation = DDKError* (IImageSettingsExtension::*)(const char*);
  const Operation operations[] = {&IImageSettingsExtension::setDefaultBrightness,
                                  &IImageSettingsExtension::setDefaultContrast,
                                  &IImageSettingsExtension::setDefaultHue,
                                  &IImageSettingsExtension::setDefaultSaturation};
  testing_support::StubImageSettings plugin;
  IImageSettingsExtension& settings = plugin;
  for (Operation operation : operations) {
    ErrorPtr first((settings.*operation)("source"));
    ErrorPtr second((settings.*operation)(nullptr));
    expect_not_supported(first.get());
    expect_not_supported(second.get());
    EXPECT_NE(first.get(), second.get()) << "each call makes its own record";
    EXPECT_NE(first->message, second->message);
  }
}

// --- Script control -----------------------------------------------------------

struct ScriptRecorder : testing_support::StubScriptControl {
  std::vector<std::pair<const char*, int>> scripts;
  DDKError* runScript(const char* token, int script) override {
    scripts.emplace_back(token, script);
    const int code = 5;
    return ddk_new_error("motor busy", &code);  // never reaches the host
  }
};

TEST(ScriptControlDefaults, EachOperationRunsItsScript) {
  using Operation = DDKError* (IScriptControlExtension::*)(const char*);
  const struct {
    Operation operation;
    int code;
  } cases[] = {
      {&IScriptControlExtension::runAutoScan, 99},         {&IScriptControlExtension::runRandomScan, 97},
      {&IScriptControlExtension::runFrameScan, 98},        {&IScriptControlExtension::stopScan, 96},
      {&IScriptControlExtension::activateAuxiliary, 86},   {&IScriptControlExtension::deactivateAuxiliary, 84},
      {&IScriptControlExtension::rotate180Degrees, 33},    {&IScriptControlExtension::panToZero, 34},
  };
  for (const auto& c : cases) {
    ScriptRecorder plugin;
    IScriptControlExtension& control = plugin;
    const char token[] = "ptz-1";
    EXPECT_EQ((control.*c.operation)(token), nullptr) << c.code;
    ASSERT_EQ(plugin.scripts.size(), 1u) << c.code;
    EXPECT_EQ(plugin.scripts[0].first, token) << "the token passes through unchanged";
    EXPECT_EQ(plugin.scripts[0].second, c.code);
  }
}

TEST(ScriptControlDefaults, AnOverriddenOperationIsNotRouted) {
  struct OwnScan : ScriptRecorder {
    int scans = 0;
    DDKError* runAutoScan(const char*) override {
      ++scans;
      return nullptr;
    }
  } plugin;
  IScriptControlExtension& control = plugin;
  EXPECT_EQ(control.runAutoScan("ptz"), nullptr);
  EXPECT_EQ(plugin.scans, 1);
  EXPECT_TRUE(plugin.scripts.empty());
  EXPECT_EQ(control.stopScan("ptz"), nullptr);
  ASSERT_EQ(plugin.scripts.size(), 1u);
  EXPECT_EQ(plugin.scripts[0].second, IScriptControlExtension::ScriptStopScan);
}

}  // namespace
