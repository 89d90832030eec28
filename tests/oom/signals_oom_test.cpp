// Signals and the allocator: nothing is built for a notification nobody
// wants, and an allocation failure while a record is built never escapes.
#include <gtest/gtest.h>

#include <cstring>
#include <new>
#include <stdexcept>
#include <string>

#include "failing_allocator.h"
#include "support/stub_extensions.h"
#include "vantrel/ddk.h"

namespace {

const oom::Mode kModes[] = {oom::Mode::Once, oom::Mode::FromThenOn};
// Longer than any short-string buffer, so copies allocate.
const std::string kLong1(80, 'm');
const std::string kLong2(90, 'n');

// What the callbacks saw, recorded without allocating.
struct Seen {
  int calls = 0;
  bool text1Complete = false, text1Empty = false;
  bool text2Complete = false, text2Empty = false;
};

void on_analytics(void* context, vantrel::AnalyticsEvent e) {
  auto& seen = *static_cast<Seen*>(context);
  ++seen.calls;
  seen.text1Complete = e.text1 == kLong1 && e.ruleId == "com.tolvo.rule.camerasabotage";
  seen.text2Complete = e.text2 == kLong2;
}

void on_motion(void* context, vantrel::MotionEvent e) {
  auto& seen = *static_cast<Seen*>(context);
  ++seen.calls;
  seen.text1Complete = e.text1 == kLong1;
  seen.text1Empty = e.text1.empty();
  seen.text2Complete = e.text2 == kLong2;
  seen.text2Empty = e.text2.empty();
}

void sabotage(DDKServiceProvider* table) {
  ddk_signal_sabotage_event(table, kLong2.c_str(), 1, 2, kLong1.c_str());
}
void motion(DDKServiceProvider* table) {
  ddk_signal_motion_detected(table, 1, kLong1.data(), static_cast<unsigned>(kLong1.size()),
                             kLong2.data(), static_cast<unsigned>(kLong2.size()));
}

// A table with every callback set to one that neither allocates nor throws.
DDKServiceProvider quiet_table(Seen* seen) {
  DDKServiceProvider table{};
  table.alarmCallback = [](void*, AlarmEvent) {};
  table.audioStateCallback = [](void*, int) {};
  table.motionCallback = &on_motion;
  table.motionDetectionStateCallback = [](void*, int) {};
  table.analyticsCallback = &on_analytics;
  table.diagnosticsCallback = [](void*, vantrel::DiagnosticsEvent) {};
  table.refreshDdfCallback = [](void*) {};
  table.logCallback = [](void*, int, const char*) {};
  table.motionContext = seen;
  table.analyticsContext = seen;
  return table;
}

std::size_t allocations_of(void (*raise)(DDKServiceProvider*), DDKServiceProvider* table) {
  oom::arm(static_cast<std::size_t>(-1), oom::Mode::Once);  // counts, never fails
  raise(table);
  return oom::disarm();
}

TEST(SignalsOutOfMemory, NothingIsBuiltWithoutTableOrCallback) {
  Seen seen;
  DDKServiceProvider noAnalytics = quiet_table(&seen);
  noAnalytics.analyticsCallback = nullptr;
  DDKServiceProvider noMotion = quiet_table(&seen);
  noMotion.motionCallback = nullptr;
  EXPECT_EQ(allocations_of(&sabotage, nullptr), 0u);
  EXPECT_EQ(allocations_of(&sabotage, &noAnalytics), 0u);
  EXPECT_EQ(allocations_of(&motion, nullptr), 0u);
  EXPECT_EQ(allocations_of(&motion, &noMotion), 0u);
  EXPECT_EQ(seen.calls, 0);

  // The same calls with the callback present do build (the probe can see it).
  DDKServiceProvider full = quiet_table(&seen);
  EXPECT_GE(allocations_of(&sabotage, &full), 2u);
  EXPECT_GE(allocations_of(&motion, &full), 2u);
  EXPECT_EQ(seen.calls, 2);
}

TEST(SignalsOutOfMemory, SabotageRecordThatCannotBeBuiltThrowsToThePlugin) {
  for (oom::Mode mode : kModes) {
    Seen seen;
    DDKServiceProvider table = quiet_table(&seen);
    bool threw = false;
    oom::for_each_failure(
        mode, [&] { seen = Seen(); threw = false; },
        [&] {
          try {
            sabotage(&table);
          } catch (const std::bad_alloc&) {
            threw = true;
          }
        },
        [&](std::size_t k) {
          EXPECT_TRUE(threw) << "k=" << k;
          EXPECT_EQ(seen.calls, 0) << "k=" << k << ": a partial record reached the host";
        });
    EXPECT_FALSE(threw);
    EXPECT_EQ(seen.calls, 1);
    EXPECT_TRUE(seen.text1Complete && seen.text2Complete);
  }
}

TEST(SignalsOutOfMemory, MotionTextThatCannotBeCopiedArrivesEmpty) {
  for (oom::Mode mode : kModes) {
    Seen seen;
    DDKServiceProvider table = quiet_table(&seen);
    bool threw = false;
    oom::for_each_failure(
        mode, [&] { seen = Seen(); threw = false; },
        [&] {
          try {
            motion(&table);
          } catch (...) {
            threw = true;
          }
        },
        [&](std::size_t k) {
          EXPECT_FALSE(threw) << "k=" << k;
          ASSERT_EQ(seen.calls, 1) << "k=" << k << ": the event is still sent";
          EXPECT_TRUE(seen.text1Complete || seen.text1Empty) << "k=" << k;
          EXPECT_TRUE(seen.text2Complete || seen.text2Empty) << "k=" << k;
          EXPECT_FALSE(seen.text1Complete && seen.text2Complete) << "k=" << k;
        });
    EXPECT_EQ(seen.calls, 1);
    EXPECT_TRUE(seen.text1Complete && seen.text2Complete);
  }
}

}  // namespace

// signalAlarm: nothing but the log callback's own exception leaves it, even
// when the failure line cannot be composed.
namespace alarm_cases {

const std::string kWhat(100, 'w');
struct LogSeen {
  int lines = 0;
  int level = 0;
  bool full = false, prefixOnly = false, unknown = false, badAlloc = false;
};

void on_log(void* context, int level, const char* message) {
  auto& seen = *static_cast<LogSeen*>(context);
  const char* prefix = "Failed to generate alarm event: ";
  const std::size_t n = std::strlen(prefix);
  ++seen.lines;
  seen.level = level;
  seen.prefixOnly = std::strcmp(message, prefix) == 0;
  seen.full = std::strncmp(message, prefix, n) == 0 && message + n == kWhat;
  seen.badAlloc = std::strncmp(message, prefix, n) == 0 && std::strcmp(message + n, std::bad_alloc().what()) == 0;
  seen.unknown = std::strcmp(message, "Unknown error occurred while generating alarm event") == 0;
}

using Alarms = testing_support::StubAlarm;

TEST(SignalAllocationFailure, SignalAlarmNeverLetsAllocationFailuresOut) {
  LogSeen seen;
  DDKServiceProvider table{};
  table.alarmCallback = [](void*, AlarmEvent) { throw std::runtime_error(kWhat); };
  table.logCallback = &on_log;
  table.logContext = &seen;
  Alarms plugin;
  ddk_free_error(plugin.init(&table));
  for (oom::Mode mode : kModes) {
    bool escaped = false;
    oom::for_each_failure(
        mode, [&] { seen = LogSeen(); escaped = false; },
        [&] {
          try {
            plugin.signalAlarm(AlarmEvent{1, 2, 1, 0});
          } catch (...) {
            escaped = true;
          }
        },
        [&](std::size_t k) {
          EXPECT_FALSE(escaped) << "k=" << k;
          EXPECT_EQ(seen.lines, 1) << "k=" << k;
          EXPECT_EQ(seen.level, DDK_LOG_LEVEL_ERROR);
          EXPECT_TRUE(seen.full || seen.prefixOnly || seen.badAlloc || seen.unknown) << "k=" << k;
        });
    EXPECT_TRUE(seen.full);
  }
}

}  // namespace alarm_cases
