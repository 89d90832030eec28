// A host callback table that records what reaches it.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "vantrel/ddk.h"

namespace testing_support {

struct LogLine {
  void* context;
  int level;
  std::string message;
};

// Owns a DDKServiceProvider whose log callback appends to `logs`; each context
// field points at this object unless a test changes it.
struct RecordingHost {
  DDKServiceProvider table{};
  std::vector<LogLine> logs;

  RecordingHost() {
    table.logCallback = &RecordingHost::onLog;
    table.logContext = this;
  }
  RecordingHost(const RecordingHost&) = delete;
  RecordingHost& operator=(const RecordingHost&) = delete;

  static void onLog(void* context, int level, const char* message) {
    static_cast<RecordingHost*>(context)->logs.push_back(
        LogLine{context, level, message != nullptr ? message : "(null)"});
  }
};

}  // namespace testing_support
