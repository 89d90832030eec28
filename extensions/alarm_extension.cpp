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
  std::string failure;
  try {
    provider->alarmCallback(provider->alarmContext, event);
    return;
  } catch (const std::exception& e) {
    failure = std::string("Failed to generate alarm event: ") + e.what();
  } catch (...) {
    failure = "Unknown error occurred while generating alarm event";
  }
  ddk_log(provider, DDK_LOG_LEVEL_ERROR, failure.c_str());
}

}  // namespace vantrel::ddk
