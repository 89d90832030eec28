/* The host's callback table and the log function. */
#ifndef VANTREL_API_SERVICE_PROVIDER_H
#define VANTREL_API_SERVICE_PROVIDER_H

#include <stdint.h>

#include "vantrel/api/export.h"

#ifdef __cplusplus
namespace vantrel {
class DiagnosticsEvent;
class AnalyticsEvent;
struct MotionEvent;
} // namespace vantrel
extern "C" {
#endif

/* An alarm as a plug-in reports it. The library copies it bit for bit and
   never reads a field; the field meanings are agreed between plug-in and host. */
typedef struct AlarmEvent {
    uint32_t source;    /* alarm input, detector or rule number on the device */
    uint32_t type;      /* kind of alarm, plug-in defined (input, tamper, analytics, ...) */
    uint32_t state;     /* 1 raised, 0 cleared */
    uint32_t timestamp; /* device time of the transition, seconds since 1970 (UTC) */
} AlarmEvent;

#ifdef __cplusplus
typedef vantrel::MotionEvent DDKMotionEventArg;
typedef vantrel::AnalyticsEvent DDKAnalyticsEventArg;
typedef vantrel::DiagnosticsEvent DDKDiagnosticsEventArg;
#define VANTREL_DDK_BY_VALUE(T) T
#else
/* C view of the records that C++ passes by value. Under the Itanium C++ ABI
   (x86-64 and ARM EABI alike) a record with a non-trivial destructor is
   passed by invisible reference: the callee receives the address of a
   temporary that lives until the callback returns. A C host therefore
   declares those parameters as pointers to the opaque record. */
typedef struct DDKMotionEventArg DDKMotionEventArg;
typedef struct DDKAnalyticsEventArg DDKAnalyticsEventArg;
typedef struct DDKDiagnosticsEventArg DDKDiagnosticsEventArg;
#define VANTREL_DDK_BY_VALUE(T) const T*
#endif

typedef void (*DDKAlarmCallback)(void* context, AlarmEvent event);
typedef void (*DDKStateCallback)(void* context, int enabled);
typedef void (*DDKMotionCallback)(void* context, VANTREL_DDK_BY_VALUE(DDKMotionEventArg) event);
typedef void (*DDKAnalyticsCallback)(void* context, VANTREL_DDK_BY_VALUE(DDKAnalyticsEventArg) event);
typedef void (*DDKDiagnosticsCallback)(void* context, VANTREL_DDK_BY_VALUE(DDKDiagnosticsEventArg) event);
typedef void (*DDKRefreshDdfCallback)(void* context);
typedef void (*DDKLogCallback)(void* context, int level, const char* message);

/* Built and owned by the host; the library only reads it. Any field may be
   null: a null callback means the host does not want that notification. */
typedef struct DDKServiceProvider {
    DDKAlarmCallback alarmCallback;
    DDKStateCallback audioStateCallback;
    DDKMotionCallback motionCallback;
    DDKStateCallback motionDetectionStateCallback;
    DDKAnalyticsCallback analyticsCallback;
    DDKDiagnosticsCallback diagnosticsCallback;
    DDKRefreshDdfCallback refreshDdfCallback;
    DDKLogCallback logCallback;
    void* alarmContext;
    void* audioContext;
    void* motionContext; /* given to motionCallback and motionDetectionStateCallback */
    void* analyticsContext;
    void* diagnosticsContext;
    void* refreshDdfContext;
    void* logContext;
} DDKServiceProvider;

/* Level the library uses for every error it logs. */
#define DDK_LOG_LEVEL_ERROR 2

/* Hands one log line to the host; nothing happens for a null table or a
   null logCallback. The text is neither copied nor formatted. */
VANTREL_DDK_API void ddk_log(DDKServiceProvider* provider, int level, const char* message);

#ifdef __cplusplus
}
#endif

#endif
