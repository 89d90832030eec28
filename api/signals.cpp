// Event signals to the host's callback table.
//
// Every signal finds its callback first and builds its record only when the
// host wants the notification. The records are moved into the callback's
// parameter, which cannot throw. Two exceptions may leave a signal, both to
// the plug-in that signalled, which is C++ like the host: the host
// callback's own, and std::bad_alloc when the sabotage record's texts cannot
// be made (then the host is not called).
#include "vantrel/api/signals.h"

#include <string>
#include <type_traits>
#include <utility>

#include "handles.h"
#include "vantrel/api/strings.h"
#include "vantrel/model/events.h"

using namespace vantrel::ddk::internal;
using vantrel::DiagnosticsEvent;
using vantrel::MotionEvent;
using vantrel::SabotageEvent;

static_assert(std::is_nothrow_move_constructible<vantrel::AnalyticsEvent>::value &&
                  std::is_nothrow_move_constructible<MotionEvent>::value &&
                  std::is_nothrow_constructible<vantrel::AnalyticsEvent, SabotageEvent&&>::value,
              "handing a record to the callback must not throw");

namespace {

// The callback of one notification; null when there is no table or the host
// does not want it.
template <class Callback>
Callback callback_of(const DDKServiceProvider* provider, Callback DDKServiceProvider::*field) {
  return provider != nullptr ? provider->*field : nullptr;
}

std::string text_or_empty(const char* text) { return text != nullptr ? std::string(text) : std::string(); }

}  // namespace

extern "C" {

void ddk_signal_alarm(DDKServiceProvider* provider, AlarmEvent event) {
  if (auto callback = callback_of(provider, &DDKServiceProvider::alarmCallback)) {
    callback(provider->alarmContext, event);
  }
}

void ddk_signal_audio_enabled(DDKServiceProvider* provider) {
  if (auto callback = callback_of(provider, &DDKServiceProvider::audioStateCallback)) {
    callback(provider->audioContext, 1);
  }
}

void ddk_signal_audio_disabled(DDKServiceProvider* provider) {
  if (auto callback = callback_of(provider, &DDKServiceProvider::audioStateCallback)) {
    callback(provider->audioContext, 0);
  }
}

void ddk_signal_motion_detection_enabled(DDKServiceProvider* provider) {
  if (auto callback = callback_of(provider, &DDKServiceProvider::motionDetectionStateCallback)) {
    callback(provider->motionContext, 1);
  }
}

void ddk_signal_motion_detection_disabled(DDKServiceProvider* provider) {
  if (auto callback = callback_of(provider, &DDKServiceProvider::motionDetectionStateCallback)) {
    callback(provider->motionContext, 0);
  }
}

void ddk_signal_refresh_ddf(DDKServiceProvider* provider) {
  if (auto callback = callback_of(provider, &DDKServiceProvider::refreshDdfCallback)) {
    callback(provider->refreshDdfContext);
  }
}

void ddk_signal_video_loss_event(DDKServiceProvider* provider, unsigned char byte1,
                                 unsigned char byte2, unsigned int value) {
  if (auto callback = callback_of(provider, &DDKServiceProvider::diagnosticsCallback)) {
    callback(provider->diagnosticsContext, DiagnosticsEvent(byte1, byte2, value));
  }
}

void ddk_signal_sabotage_event(DDKServiceProvider* provider, const char* text2,
                               unsigned int value1, unsigned int value2, const char* text1) {
  auto callback = callback_of(provider, &DDKServiceProvider::analyticsCallback);
  if (callback == nullptr) return;
  SabotageEvent event(value1, value2, text_or_empty(text1), text_or_empty(text2));
  // Moving slices: the host receives an AnalyticsEvent, not a SabotageEvent.
  callback(provider->analyticsContext, std::move(event));
}

void ddk_signal_motion_detected(DDKServiceProvider* provider, unsigned int value,
                                const char* text1, unsigned int length1, const char* text2,
                                unsigned int length2) {
  auto callback = callback_of(provider, &DDKServiceProvider::motionCallback);
  if (callback == nullptr) return;
  MotionEvent event(value);
  // Results ignored on purpose: a text that is refused, or cannot be copied,
  // leaves its field empty and the event is still sent.
  ddk_set_string(wrap(&event.text1), text1, length1);
  ddk_set_string(wrap(&event.text2), text2, length2);
  callback(provider->motionContext, std::move(event));
}

}  // extern "C"
