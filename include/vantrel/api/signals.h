/* Event signals: a plug-in reports what happens on the device to the host's
   callback table. Each call looks up its callback and calls it synchronously
   on the caller's thread. A null table or a null callback drops the
   notification silently; nothing is returned or logged. An exception thrown
   by the host's callback passes back to the caller. */
#ifndef VANTREL_API_SIGNALS_H
#define VANTREL_API_SIGNALS_H

#include "vantrel/api/export.h"
#include "vantrel/api/service_provider.h"

#ifdef __cplusplus
extern "C" {
#endif

/* alarmCallback(alarmContext, bit-for-bit copy of event). */
VANTREL_DDK_API void ddk_signal_alarm(DDKServiceProvider* provider, AlarmEvent event);

/* audioStateCallback(audioContext, 1 / 0). */
VANTREL_DDK_API void ddk_signal_audio_enabled(DDKServiceProvider* provider);
VANTREL_DDK_API void ddk_signal_audio_disabled(DDKServiceProvider* provider);

/* motionDetectionStateCallback(motionContext, 1 / 0). */
VANTREL_DDK_API void ddk_signal_motion_detection_enabled(DDKServiceProvider* provider);
VANTREL_DDK_API void ddk_signal_motion_detection_disabled(DDKServiceProvider* provider);

/* refreshDdfCallback(refreshDdfContext): the host should read the DDF again. */
VANTREL_DDK_API void ddk_signal_refresh_ddf(DDKServiceProvider* provider);

/* diagnosticsCallback(diagnosticsContext, DiagnosticsEvent{byte1, byte2, value}). */
VANTREL_DDK_API void ddk_signal_video_loss_event(DDKServiceProvider* provider, unsigned char byte1,
                                                 unsigned char byte2, unsigned int value);

/* analyticsCallback(analyticsContext, AnalyticsEvent) carrying the camera
   sabotage rule. Note the order: text2 comes first, text1 last. The texts are
   NUL-terminated; a null text gives an empty field. */
VANTREL_DDK_API void ddk_signal_sabotage_event(DDKServiceProvider* provider, const char* text2,
                                               unsigned int value1, unsigned int value2,
                                               const char* text1);

/* motionCallback(motionContext, MotionEvent). Each text is exactly `length`
   bytes; a null text or a zero length gives an empty field and the event is
   still sent. */
VANTREL_DDK_API void ddk_signal_motion_detected(DDKServiceProvider* provider, unsigned int value,
                                                const char* text1, unsigned int length1,
                                                const char* text2, unsigned int length2);

#ifdef __cplusplus
}
#endif

#endif
