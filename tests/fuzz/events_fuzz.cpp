// Signals, logging, the plug-in life cycle, the alarm extension's guarded
// signal and the descriptor check, with tables whose callbacks come and go.
// Every delivery is checked against what was signalled: the right callback,
// the right context, the values copied unchanged, nothing for a null table or
// callback, and the fixed texts of the sabotage rule.
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>

#include "fuzz_input.h"
#include "vantrel/ddk.h"

namespace {

// What reached the host, by callback.
struct Host {
  int calls = 0;
  int which = -1;  // index of the table field called
  void* context = nullptr;
  AlarmEvent alarm{};
  int flag = -1;
  vantrel::MotionEvent motion;
  vantrel::AnalyticsEvent analytics;
  vantrel::DiagnosticsEvent diagnostics;
  int level = 0;
  std::string log;
  bool throwFromAlarm = false;
};

Host* host_of(void* context) { return *static_cast<Host**>(context); }
void seen(void* context, int which) {
  Host* h = host_of(context);
  ++h->calls;
  h->which = which;
  h->context = context;
}

// Each callback receives its own context slot, so a mixed-up context shows.
struct Contexts {
  Host* slots[7];
};

DDKServiceProvider make_table(FuzzInput& in, Contexts& c) {
  DDKServiceProvider t{};
  const unsigned present = in.byte();  // bit k: callback k is set
  if (present & 1) t.alarmCallback = [](void* x, AlarmEvent e) {
    seen(x, 0);
    host_of(x)->alarm = e;
    if (host_of(x)->throwFromAlarm) throw std::runtime_error("host refused the alarm");
  };
  if (present & 2) t.audioStateCallback = [](void* x, int f) { seen(x, 1); host_of(x)->flag = f; };
  if (present & 4) t.motionCallback = [](void* x, vantrel::MotionEvent e) { seen(x, 2); host_of(x)->motion = e; };
  if (present & 8) t.motionDetectionStateCallback = [](void* x, int f) { seen(x, 3); host_of(x)->flag = f; };
  if (present & 16) t.analyticsCallback = [](void* x, vantrel::AnalyticsEvent e) { seen(x, 4); host_of(x)->analytics = e; };
  if (present & 32) t.diagnosticsCallback = [](void* x, vantrel::DiagnosticsEvent e) { seen(x, 5); host_of(x)->diagnostics = e; };
  if (present & 64) t.refreshDdfCallback = [](void* x) { seen(x, 6); };
  if (present & 128) t.logCallback = [](void* x, int level, const char* m) {
    seen(x, 7);
    host_of(x)->level = level;
    host_of(x)->log = m != nullptr ? m : "(null)";
  };
  t.alarmContext = &c.slots[0];
  t.audioContext = &c.slots[1];
  t.motionContext = &c.slots[2];
  t.analyticsContext = &c.slots[3];
  t.diagnosticsContext = &c.slots[4];
  t.refreshDdfContext = &c.slots[5];
  t.logContext = &c.slots[6];
  return t;
}

struct Alarms : vantrel::ddk::IAlarmExtension {
  DDKError* alarmInputs(StringListHandle*) const override { return nullptr; }
  DDKError* alarmOutputs(StringListHandle*) const override { return nullptr; }
  DDKError* setAlarmOutput(const char*, ddk_bool) override { return nullptr; }
  DDKError* motionRegions(const char*, MotionDetectionRegionListHandle*) const override { return nullptr; }
  DDKError* setMotionRegions(const char*, MotionDetectionRegionListHandle*) override { return nullptr; }
  DDKError* enableMotionDetection(const char*) override { return nullptr; }
  DDKError* disableMotionDetection(const char*) override { return nullptr; }
  DDKError* doInit() override {
    if (failInit) throw std::runtime_error(initText);
    return nullptr;
  }
  void doShutdown() override {
    if (failShutdown) throw 7;
  }
  bool failInit = false, failShutdown = false;
  std::string initText;
};

// Expects exactly one call of callback `which` with its own context, or none.
void expect_call(const Host& h, bool wanted, int which, const Contexts& c) {
  FUZZ_CHECK(h.calls == (wanted ? 1 : 0));
  if (wanted) {
    FUZZ_CHECK(h.which == which);
    static const int slotOf[8] = {0, 1, 2, 2, 3, 4, 5, 6};  // motion state uses the motion context
    FUZZ_CHECK(h.context == &c.slots[slotOf[which]]);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput in(data, size);
  Host host;
  Contexts contexts{{&host, &host, &host, &host, &host, &host, &host}};
  DDKServiceProvider table = make_table(in, contexts);
  Alarms plugin;
  while (!in.empty()) {
    const bool nullTable = in.choice(8) == 0;
    DDKServiceProvider* t = nullTable ? nullptr : &table;
    const std::string a = in.bytes();
    const std::string b = in.bytes();
    host = Host();
    switch (in.choice(12)) {
      case 0: {
        AlarmEvent e{in.u32(), in.u32(), in.u32(), in.u32()};
        ddk_signal_alarm(t, e);
        expect_call(host, t && table.alarmCallback, 0, contexts);
        if (host.calls) FUZZ_CHECK(std::memcmp(&host.alarm, &e, sizeof e) == 0);
        break;
      }
      case 1: {
        const unsigned which = in.choice(4);
        switch (which) {
          case 0: ddk_signal_audio_enabled(t); break;
          case 1: ddk_signal_audio_disabled(t); break;
          case 2: ddk_signal_motion_detection_enabled(t); break;
          default: ddk_signal_motion_detection_disabled(t); break;
        }
        const bool audio = which < 2;
        expect_call(host, t && (audio ? table.audioStateCallback : table.motionDetectionStateCallback), audio ? 1 : 3,
                    contexts);
        if (host.calls) FUZZ_CHECK(host.flag == (which % 2 == 0 ? 1 : 0));
        break;
      }
      case 2: {
        const std::uint32_t value = in.u32();
        const bool null1 = in.choice(6) == 0, null2 = in.choice(6) == 0;
        const unsigned n1 = in.choice(static_cast<unsigned>(a.size()) + 1);
        const unsigned n2 = in.choice(static_cast<unsigned>(b.size()) + 1);
        ddk_signal_motion_detected(t, value, null1 ? nullptr : a.data(), n1, null2 ? nullptr : b.data(), n2);
        expect_call(host, t && table.motionCallback, 2, contexts);
        if (host.calls) {
          FUZZ_CHECK(host.motion.value == value);
          FUZZ_CHECK(host.motion.text1 == (null1 ? std::string() : std::string(a.data(), n1)));
          FUZZ_CHECK(host.motion.text2 == (null2 ? std::string() : std::string(b.data(), n2)));
        }
        break;
      }
      case 3: {
        const std::uint32_t v1 = in.u32(), v2 = in.u32();
        const bool null1 = in.choice(6) == 0, null2 = in.choice(6) == 0;
        ddk_signal_sabotage_event(t, null2 ? nullptr : b.c_str(), v1, v2, null1 ? nullptr : a.c_str());
        expect_call(host, t && table.analyticsCallback, 4, contexts);
        if (host.calls) {
          const vantrel::AnalyticsEvent& e = host.analytics;
          FUZZ_CHECK(e.value1 == v1 && e.value2 == v2 && !e.flag);
          FUZZ_CHECK(e.text1 == (null1 ? "" : a.c_str()) && e.text2 == (null2 ? "" : b.c_str()));
          FUZZ_CHECK(e.ruleName == "Camera Sabotage" && e.ruleId == "com.tolvo.rule.camerasabotage" &&
                     e.numericId == "570445347");
        }
        break;
      }
      case 4: {
        const auto b1 = static_cast<unsigned char>(in.byte()), b2 = static_cast<unsigned char>(in.byte());
        const std::uint32_t value = in.u32();
        ddk_signal_video_loss_event(t, b1, b2, value);
        expect_call(host, t && table.diagnosticsCallback, 5, contexts);
        if (host.calls) FUZZ_CHECK(host.diagnostics.byte1 == b1 && host.diagnostics.byte2 == b2 && host.diagnostics.value == value);
        break;
      }
      case 5:
        ddk_signal_refresh_ddf(t);
        expect_call(host, t && table.refreshDdfCallback, 6, contexts);
        break;
      case 6: {
        const int level = in.i32();
        const bool nullText = in.choice(6) == 0;
        ddk_log(t, level, nullText ? nullptr : a.c_str());
        expect_call(host, t && table.logCallback, 7, contexts);
        if (host.calls) FUZZ_CHECK(host.level == level && host.log == (nullText ? "(null)" : a.c_str()));
        break;
      }
      case 7: {
        // Start: a plug-in that is started once keeps its first table.
        const bool wasStarted = plugin.initialized;
        DDKServiceProvider* before = plugin.serviceProvider;
        plugin.failInit = in.flag();
        plugin.initText = a;
        DDKError* error = plugin.init(t);
        if (wasStarted) {
          FUZZ_CHECK(error == nullptr && plugin.serviceProvider == before);
        } else {
          FUZZ_CHECK(plugin.serviceProvider == t);
          FUZZ_CHECK(plugin.initialized == !plugin.failInit);
          FUZZ_CHECK((error != nullptr) == plugin.failInit);
          if (error != nullptr) FUZZ_CHECK(error->code == 0 && error->message == std::string(a.c_str()));
        }
        ddk_free_error(error);
        break;
      }
      case 8: {
        // Stop: the hook runs once; a throwing hook is logged at level 2.
        const bool wasStopped = plugin.shutDown;
        plugin.failShutdown = in.flag();
        plugin.shutdown();
        FUZZ_CHECK(plugin.shutDown);
        const bool logged = !wasStopped && plugin.failShutdown && plugin.serviceProvider == &table && table.logCallback;
        FUZZ_CHECK(host.calls == (logged ? 1 : 0));
        if (logged) FUZZ_CHECK(host.level == 2 && host.log == "Unknown error occurred shutting down plug-in");
        break;
      }
      case 9: {
        // The guarded alarm: nothing leaves it; a refused alarm is logged.
        host.throwFromAlarm = in.flag();
        AlarmEvent e{in.u32(), 0, 1, 0};
        plugin.signalAlarm(e);
        const DDKServiceProvider* s = plugin.serviceProvider;
        if (s == nullptr) {
          FUZZ_CHECK(host.calls == 0);
        } else if (s->alarmCallback == nullptr) {
          FUZZ_CHECK(host.calls == (s->logCallback ? 1 : 0));
          if (host.calls) FUZZ_CHECK(host.log == "Unable to signal alarm event, service provider not initialized for alarm eventing");
        } else {
          FUZZ_CHECK(host.alarm.source == e.source);
          if (host.throwFromAlarm && s->logCallback) {
            FUZZ_CHECK(host.calls == 2 && host.log == "Failed to generate alarm event: host refused the alarm");
          } else {
            FUZZ_CHECK(host.calls == 1);
          }
        }
        break;
      }
      case 10: {
        // The descriptor check reads the version first, then the size, then the functions.
        DDKPluginDescriptor d{};
        d.abiVersion = in.flag() ? DDK_PLUGIN_ABI_VERSION : in.u32();
        d.size = in.flag() ? static_cast<std::uint32_t>(sizeof d) : in.u32();
        const unsigned present = in.byte();
        if (present & 1) d.create = [] { return static_cast<DDKPlugin*>(nullptr); };
        if (present & 2) d.destroy = [](DDKPlugin*) {};
        if (present & 4) d.start = [](DDKPlugin*, DDKServiceProvider*) { return static_cast<DDKError*>(nullptr); };
        if (present & 8) d.stop = [](DDKPlugin*) {};
        if (present & 16) d.extension = [](DDKPlugin*, int) { return static_cast<void*>(nullptr); };
        const bool nullDescriptor = in.choice(8) == 0;
        const int r = ddk_check_plugin_descriptor(nullDescriptor ? nullptr : &d);
        const bool usable = d.abiVersion == DDK_PLUGIN_ABI_VERSION && d.size >= sizeof d && (present & 31) == 31;
        FUZZ_CHECK(r == (nullDescriptor ? -1 : usable ? 0 : -2));
        break;
      }
      default:
        // The host changes its table between calls.
        table = make_table(in, contexts);
        break;
    }
  }
  return 0;
}
