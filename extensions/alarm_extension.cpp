#include "vantrel/extensions/alarm_extension.h"

#include <exception>
#include <string>

namespace vantrel::ddk {

IAlarmExtension::IAlarmExtension() = default;

IAlarmExtension::~IAlarmExtension() = default;

void IAlarmExtension::signalAlarm(const AlarmEvent& event) {
  DDKServiceProvider* provider = serviceProvider;
  if (provider == nullptr || provider->alarmCallback == nullptr) {
    // With no table at all ddk_log drops the line too.
    ddk_log(provider, DDK_LOG_LEVEL_ERROR,
            "Unable to signal alarm event, service provider not initialized for alarm eventing");
    return;
  }
  // Only the host's callback is guarded; a throwing log callback passes, as
  // it does from ddk_log itself.
  const char* line = "Unknown error occurred while generating alarm event";
  std::string failure;
  try {
    provider->alarmCallback(provider->alarmContext, event);
    return;
  } catch (const std::exception& e) {
    line = "Failed to generate alarm event: ";
    // Out of memory, the line goes without the host's text rather than
    // letting std::bad_alloc out of an operation nothing may leave.
    try {
      failure = std::string(line) + e.what();
      line = failure.c_str();
    } catch (...) {
    }
  } catch (...) {
  }
  ddk_log(provider, DDK_LOG_LEVEL_ERROR, line);
}

}  // namespace vantrel::ddk
