// The inspector's side of the callback table: every event and log line that
// reaches it is recorded with the time since the host started.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <mutex>
#include <vector>

#include <nlohmann/json.hpp>
#include <vantrel/ddk.h>

namespace inspect {

// One callback invocation: "t" (seconds since start), "kind" and the record's
// fields. Kinds: alarm, audioState, motion, motionDetectionState, analytics,
// diagnostics, refreshDdf, log.
using Record = nlohmann::ordered_json;

class RecordingHost {
public:
    RecordingHost();
    RecordingHost(const RecordingHost&) = delete;
    RecordingHost& operator=(const RecordingHost&) = delete;

    // The table handed to IPlugin::init; every context points at this host.
    DDKServiceProvider* table() { return &table_; }

    // Calls `listener` for every record so far, then (under the host's lock)
    // for every new one, on whatever thread the plug-in signals from. Null
    // stops following.
    void follow(std::function<void(const Record&)> listener);

    std::vector<Record> records() const;
    std::size_t size() const;
    // Records from position `from` on.
    std::vector<Record> recordsSince(std::size_t from) const;

private:
    void add(Record record);

    static void onAlarm(void* context, AlarmEvent event);
    static void onAudioState(void* context, int enabled);
    static void onMotion(void* context, vantrel::MotionEvent event);
    static void onMotionDetectionState(void* context, int enabled);
    static void onAnalytics(void* context, vantrel::AnalyticsEvent event);
    static void onDiagnostics(void* context, vantrel::DiagnosticsEvent event);
    static void onRefreshDdf(void* context);
    static void onLog(void* context, int level, const char* message);

    DDKServiceProvider table_{};
    std::chrono::steady_clock::time_point start_;
    mutable std::mutex mutex_;
    std::vector<Record> records_;
    std::function<void(const Record&)> listener_;
};

// One line for a record, as the report and the live view print it.
std::string describeRecord(const Record& record);

}  // namespace inspect
