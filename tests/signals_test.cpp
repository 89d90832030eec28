// Event signals: which callback, which context, which arguments; nothing at
// all without a table or a callback; host exceptions reach the signaller.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <typeinfo>
#include <vector>

#include "vantrel/ddk.h"

using vantrel::AnalyticsEvent;
using vantrel::DiagnosticsEvent;
using vantrel::MotionEvent;
using vantrel::SabotageEvent;

namespace {

// A callback table whose callbacks record what reaches them. Every callback
// has a context object of its own, so a swapped context is seen; `throwing`
// makes every callback throw after recording.
struct EventHost {
  struct Context {
    EventHost* host;
  };
  struct Call {
    std::string callback;
    void* context;
    int flag;  // -1 for callbacks without one
  };

  Context alarm{this}, audio{this}, motion{this}, analytics{this}, diagnostics{this},
      refresh{this}, log{this};
  DDKServiceProvider table{};
  bool throwing = false;
  std::vector<Call> calls;
  std::vector<AlarmEvent> alarms;
  std::vector<DiagnosticsEvent> diagnosticsEvents;
  std::vector<AnalyticsEvent> analyticsEvents;
  std::vector<MotionEvent> motions;

  EventHost() {
    table.alarmCallback = [](void* c, AlarmEvent e) { record(c, "alarm").alarms.push_back(e); };
    table.audioStateCallback = [](void* c, int flag) { record(c, "audio", flag); };
    table.motionCallback = [](void* c, MotionEvent e) { record(c, "motion").motions.push_back(e); };
    table.motionDetectionStateCallback = [](void* c, int flag) { record(c, "motionState", flag); };
    table.analyticsCallback = [](void* c, AnalyticsEvent e) {
      record(c, "analytics").analyticsEvents.push_back(e);
    };
    table.diagnosticsCallback = [](void* c, DiagnosticsEvent e) {
      record(c, "diagnostics").diagnosticsEvents.push_back(e);
    };
    table.refreshDdfCallback = [](void* c) { record(c, "refresh"); };
    table.logCallback = [](void* c, int, const char*) { record(c, "log"); };
    table.alarmContext = &alarm;
    table.audioContext = &audio;
    table.motionContext = &motion;
    table.analyticsContext = &analytics;
    table.diagnosticsContext = &diagnostics;
    table.refreshDdfContext = &refresh;
    table.logContext = &log;
  }
  EventHost(const EventHost&) = delete;
  EventHost& operator=(const EventHost&) = delete;

  static EventHost& record(void* context, const char* callback, int flag = -1) {
    EventHost& host = *static_cast<Context*>(context)->host;
    host.calls.push_back(Call{callback, context, flag});
    if (host.throwing) throw std::runtime_error(std::string(callback) + " refused");
    return host;
  }
};

// Long enough that building a string of it allocates.
const char kLongText[] = "a text longer than any short-string buffer";

struct Signal {
  const char* name;
  void (*raise)(DDKServiceProvider*);
  void (*unset)(DDKServiceProvider&);  // clears the callback this signal uses
  const char* callback;
  EventHost::Context EventHost::*context;
  int flag;
};

const Signal kSignals[] = {
    {"alarm", [](DDKServiceProvider* p) { ddk_signal_alarm(p, AlarmEvent{1, 2, 1, 3}); },
     [](DDKServiceProvider& t) { t.alarmCallback = nullptr; }, "alarm", &EventHost::alarm, -1},
    {"audio enabled", &ddk_signal_audio_enabled,
     [](DDKServiceProvider& t) { t.audioStateCallback = nullptr; }, "audio", &EventHost::audio, 1},
    {"audio disabled", &ddk_signal_audio_disabled,
     [](DDKServiceProvider& t) { t.audioStateCallback = nullptr; }, "audio", &EventHost::audio, 0},
    {"motion detection enabled", &ddk_signal_motion_detection_enabled,
     [](DDKServiceProvider& t) { t.motionDetectionStateCallback = nullptr; }, "motionState",
     &EventHost::motion, 1},
    {"motion detection disabled", &ddk_signal_motion_detection_disabled,
     [](DDKServiceProvider& t) { t.motionDetectionStateCallback = nullptr; }, "motionState",
     &EventHost::motion, 0},
    {"refresh DDF", &ddk_signal_refresh_ddf,
     [](DDKServiceProvider& t) { t.refreshDdfCallback = nullptr; }, "refresh", &EventHost::refresh,
     -1},
    {"video loss", [](DDKServiceProvider* p) { ddk_signal_video_loss_event(p, 1, 2, 3); },
     [](DDKServiceProvider& t) { t.diagnosticsCallback = nullptr; }, "diagnostics",
     &EventHost::diagnostics, -1},
    {"sabotage",
     [](DDKServiceProvider* p) { ddk_signal_sabotage_event(p, kLongText, 1, 2, kLongText); },
     [](DDKServiceProvider& t) { t.analyticsCallback = nullptr; }, "analytics",
     &EventHost::analytics, -1},
    {"motion detected",
     [](DDKServiceProvider* p) {
       ddk_signal_motion_detected(p, 1, kLongText, sizeof kLongText - 1, kLongText, 4);
     },
     [](DDKServiceProvider& t) { t.motionCallback = nullptr; }, "motion", &EventHost::motion, -1},
};

TEST(Signals, EachCallsItsOwnCallbackOnceWithItsOwnContext) {
  for (const Signal& s : kSignals) {
    EventHost host;
    s.raise(&host.table);
    ASSERT_EQ(host.calls.size(), 1u) << s.name << ": one callback, and nothing logged";
    EXPECT_EQ(host.calls[0].callback, s.callback) << s.name;
    EXPECT_EQ(host.calls[0].context, &(host.*s.context)) << s.name;
    EXPECT_EQ(host.calls[0].flag, s.flag) << s.name;
  }
}

TEST(Signals, NullTableDoesNothing) {
  for (const Signal& s : kSignals) {
    EXPECT_NO_THROW(s.raise(nullptr)) << s.name;
  }
}

TEST(Signals, NullCallbackDoesNothingWhileTheOthersAreSet) {
  for (const Signal& s : kSignals) {
    EventHost host;
    s.unset(host.table);
    s.raise(&host.table);
    EXPECT_TRUE(host.calls.empty()) << s.name << " reached " << host.calls[0].callback;
  }
}

TEST(Signals, HostCallbackExceptionReachesTheSignaller) {
  for (const Signal& s : kSignals) {
    EventHost host;
    host.throwing = true;
    try {
      s.raise(&host.table);
      ADD_FAILURE() << s.name << ": the host's exception was swallowed";
    } catch (const std::runtime_error& e) {
      EXPECT_EQ(std::string(e.what()), std::string(s.callback) + " refused") << s.name;
    }
    EXPECT_EQ(host.calls.size(), 1u) << s.name;
  }
}

TEST(Signals, NonStandardHostExceptionPassesToo) {
  DDKServiceProvider table{};
  table.refreshDdfCallback = [](void*) { throw 42; };
  table.diagnosticsCallback = [](void*, DiagnosticsEvent) { throw 43; };
  EXPECT_THROW(ddk_signal_refresh_ddf(&table), int);
  EXPECT_THROW(ddk_signal_video_loss_event(&table, 0, 0, 0), int);
}

TEST(AlarmSignal, SixteenBytesArriveUnchanged) {
  unsigned char bytes[sizeof(AlarmEvent)];
  for (unsigned i = 0; i < sizeof bytes; ++i) bytes[i] = static_cast<unsigned char>(0xA0 + 7 * i);
  AlarmEvent event;
  std::memcpy(&event, bytes, sizeof event);
  EventHost host;
  ddk_signal_alarm(&host.table, event);
  ASSERT_EQ(host.alarms.size(), 1u);
  EXPECT_EQ(std::memcmp(&host.alarms[0], bytes, sizeof bytes), 0);
}

TEST(VideoLossSignal, DeliversItsThreeArgumentsUnchanged) {
  struct Case {
    unsigned char byte1, byte2;
    unsigned value;
  } cases[] = {{1, 7, 123456}, {255, 0, 0xFFFFFFFFu}, {0, 255, 0x80000000u}};
  for (const auto& c : cases) {
    EventHost host;
    ddk_signal_video_loss_event(&host.table, c.byte1, c.byte2, c.value);
    ASSERT_EQ(host.diagnosticsEvents.size(), 1u);
    const DiagnosticsEvent& e = host.diagnosticsEvents[0];
    EXPECT_EQ(e.byte1, c.byte1);
    EXPECT_EQ(e.byte2, c.byte2);
    EXPECT_EQ(e.value, c.value);
  }
}

const void* vptr_of(const void* object) {
  const void* vptr;
  std::memcpy(&vptr, object, sizeof vptr);
  return vptr;
}

// The record as a C host receives it: the address of the library's temporary.
struct SeenByPointer {
  const std::type_info* type = nullptr;
  const void* vptr = nullptr;
  AnalyticsEvent copy;
};

void on_analytics_pointer(void* context, const AnalyticsEvent* event) {
  auto& seen = *static_cast<SeenByPointer*>(context);
  seen.type = &typeid(*event);
  seen.vptr = vptr_of(event);
  seen.copy = *event;
}

TEST(SabotageSignal, HostReceivesAnAnalyticsEventWithTheFixedRule) {
  SeenByPointer seen;
  DDKServiceProvider table{};
  // The C view of the callback: same call, the record's address instead of the record.
  table.analyticsCallback =
      reinterpret_cast<DDKAnalyticsCallback>(reinterpret_cast<void (*)()>(&on_analytics_pointer));
  table.analyticsContext = &seen;
  ddk_signal_sabotage_event(&table, "second argument", 0xFFFFFFFFu, 0x80000001u, "last argument");

  ASSERT_NE(seen.type, nullptr);
  EXPECT_EQ(*seen.type, typeid(AnalyticsEvent)) << seen.type->name();
  EXPECT_NE(*seen.type, typeid(SabotageEvent));
  const AnalyticsEvent plain;
  EXPECT_EQ(seen.vptr, vptr_of(&plain)) << "the AnalyticsEvent virtual table";

  const AnalyticsEvent& e = seen.copy;
  EXPECT_EQ(e.value1, 0xFFFFFFFFu);
  EXPECT_EQ(e.value2, 0x80000001u);
  EXPECT_EQ(e.text1, "last argument");
  EXPECT_EQ(e.ruleName, "Camera Sabotage");
  EXPECT_EQ(e.ruleId, "com.tolvo.rule.camerasabotage");
  EXPECT_EQ(e.numericId, "570445347");
  EXPECT_EQ(e.text2, "second argument");
  EXPECT_FALSE(e.flag);
}

TEST(SabotageSignal, NullTextsGiveEmptyFields) {
  struct Case {
    const char* text2;
    const char* text1;
  } cases[] = {{nullptr, "one"}, {"two", nullptr}, {nullptr, nullptr}};
  for (const auto& c : cases) {
    EventHost host;
    ddk_signal_sabotage_event(&host.table, c.text2, 5, 6, c.text1);
    ASSERT_EQ(host.analyticsEvents.size(), 1u);
    const AnalyticsEvent& e = host.analyticsEvents[0];
    EXPECT_EQ(e.text1, c.text1 != nullptr ? c.text1 : "");
    EXPECT_EQ(e.text2, c.text2 != nullptr ? c.text2 : "");
    EXPECT_EQ(e.ruleId, "com.tolvo.rule.camerasabotage");
    EXPECT_EQ(e.value1, 5u);
    EXPECT_EQ(e.value2, 6u);
  }
}

TEST(MotionSignal, TextsAreCutToTheirByteCounts) {
  const char withNul[] = {'a', '\0', 'b'};
  struct Case {
    const char* text1;
    unsigned length1;
    const char* text2;
    unsigned length2;
    std::string expected1, expected2;
  } cases[] = {
      {"xyz", 3, "abcdef", 2, "xyz", "ab"},
      {nullptr, 3, "abc", 3, "", "abc"},
      {"xyz", 0, "abc", 1, "", "a"},
      {"xyz", 3, nullptr, 9, "xyz", ""},
      {withNul, 3, kLongText, sizeof kLongText - 1, std::string(withNul, 3), kLongText},
      {nullptr, 0, nullptr, 0, "", ""},
  };
  for (const auto& c : cases) {
    EventHost host;
    ddk_signal_motion_detected(&host.table, 0xDEADBEEFu, c.text1, c.length1, c.text2, c.length2);
    ASSERT_EQ(host.motions.size(), 1u) << "the event is sent whatever its texts";
    const MotionEvent& e = host.motions[0];
    EXPECT_EQ(e.value, 0xDEADBEEFu);
    EXPECT_EQ(e.text1, c.expected1) << c.length1;
    EXPECT_EQ(e.text2, c.expected2) << c.length2;
  }
}

}  // namespace
