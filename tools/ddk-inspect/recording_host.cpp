#include "recording_host.h"

#include <cstdio>
#include <string>
#include <utility>

namespace inspect {

namespace {

RecordingHost& hostOf(void* context) { return *static_cast<RecordingHost*>(context); }

// Texts from a plug-in may hold any bytes; the JSON writer needs valid UTF-8.
std::string printable(const std::string& text) {
    std::string out;
    for (unsigned char c : text) {
        if (c >= 0x20 && c < 0x7F) {
            out += static_cast<char>(c);
        } else {
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "\\x%02X", c);
            out += escaped;
        }
    }
    return out;
}

}  // namespace

RecordingHost::RecordingHost() : start_(std::chrono::steady_clock::now()) {
    table_.alarmCallback = &RecordingHost::onAlarm;
    table_.audioStateCallback = &RecordingHost::onAudioState;
    table_.motionCallback = &RecordingHost::onMotion;
    table_.motionDetectionStateCallback = &RecordingHost::onMotionDetectionState;
    table_.analyticsCallback = &RecordingHost::onAnalytics;
    table_.diagnosticsCallback = &RecordingHost::onDiagnostics;
    table_.refreshDdfCallback = &RecordingHost::onRefreshDdf;
    table_.logCallback = &RecordingHost::onLog;
    table_.alarmContext = this;
    table_.audioContext = this;
    table_.motionContext = this;
    table_.analyticsContext = this;
    table_.diagnosticsContext = this;
    table_.refreshDdfContext = this;
    table_.logContext = this;
}

void RecordingHost::follow(std::function<void(const Record&)> listener) {
    std::lock_guard<std::mutex> lock(mutex_);
    listener_ = std::move(listener);
    if (listener_) {
        for (const Record& r : records_) {
            listener_(r);
        }
    }
}

std::vector<Record> RecordingHost::records() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return records_;
}

std::size_t RecordingHost::size() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return records_.size();
}

std::vector<Record> RecordingHost::recordsSince(std::size_t from) const {
    std::lock_guard<std::mutex> lock(mutex_);
    if (from >= records_.size()) {
        return {};
    }
    return std::vector<Record>(records_.begin() + static_cast<std::ptrdiff_t>(from), records_.end());
}

// Callbacks must not throw back into the plug-in: a failure to record is lost.
void RecordingHost::add(Record record) {
    try {
        const auto elapsed = std::chrono::steady_clock::now() - start_;
        const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(elapsed).count();
        Record stamped;
        stamped["t"] = static_cast<double>(ms) / 1000.0;
        stamped.update(record);
        std::lock_guard<std::mutex> lock(mutex_);
        records_.push_back(stamped);
        if (listener_) {
            listener_(records_.back());
        }
    } catch (...) {
    }
}

void RecordingHost::onAlarm(void* context, AlarmEvent event) {
    hostOf(context).add({{"kind", "alarm"},
                         {"source", event.source},
                         {"type", event.type},
                         {"state", event.state},
                         {"timestamp", event.timestamp}});
}

void RecordingHost::onAudioState(void* context, int enabled) {
    hostOf(context).add({{"kind", "audioState"}, {"enabled", enabled != 0}});
}

void RecordingHost::onMotion(void* context, vantrel::MotionEvent event) {
    hostOf(context).add({{"kind", "motion"},
                         {"value", event.value},
                         {"text1", printable(event.text1)},
                         {"text2", printable(event.text2)}});
}

void RecordingHost::onMotionDetectionState(void* context, int enabled) {
    hostOf(context).add({{"kind", "motionDetectionState"}, {"enabled", enabled != 0}});
}

void RecordingHost::onAnalytics(void* context, vantrel::AnalyticsEvent event) {
    hostOf(context).add({{"kind", "analytics"},
                         {"ruleName", printable(event.ruleName)},
                         {"ruleId", printable(event.ruleId)},
                         {"numericId", printable(event.numericId)},
                         {"value1", event.value1},
                         {"value2", event.value2},
                         {"text1", printable(event.text1)},
                         {"text2", printable(event.text2)},
                         {"flag", event.flag}});
}

void RecordingHost::onDiagnostics(void* context, vantrel::DiagnosticsEvent event) {
    hostOf(context).add({{"kind", "diagnostics"},
                         {"byte1", event.byte1},
                         {"byte2", event.byte2},
                         {"value", event.value}});
}

void RecordingHost::onRefreshDdf(void* context) { hostOf(context).add({{"kind", "refreshDdf"}}); }

void RecordingHost::onLog(void* context, int level, const char* message) {
    hostOf(context).add(
        {{"kind", "log"}, {"level", level}, {"message", message != nullptr ? printable(message) : "(null)"}});
}

std::string describeRecord(const Record& record) {
    char time[32];
    std::snprintf(time, sizeof time, "%8.3f s  ", record.value("t", 0.0));
    std::string line = time;
    const std::string kind = record.value("kind", "");
    line += kind;
    for (auto it = record.begin(); it != record.end(); ++it) {
        if (it.key() == "t" || it.key() == "kind") {
            continue;
        }
        line += "  " + it.key() + "=" + (it->is_string() ? it->get<std::string>() : it->dump());
    }
    return line;
}

}  // namespace inspect
