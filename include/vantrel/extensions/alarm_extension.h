/* The alarm extension: alarm inputs and outputs and motion detection, and the
   guarded path through which a plug-in signals its alarms. */
#ifndef VANTREL_EXTENSIONS_ALARM_EXTENSION_H
#define VANTREL_EXTENSIONS_ALARM_EXTENSION_H

#include "vantrel/api/errors.h"
#include "vantrel/api/handles.h"
#include "vantrel/api/service_provider.h"
#include "vantrel/extensions/iplugin.h"

namespace vantrel {
namespace ddk {

/* Every operation returns null for success or an error record that the host
   releases with ddk_free_error. Containers belong to the host; the plug-in
   fills (or reads) them during the call only. */
class VANTREL_DDK_API IAlarmExtension : public IPlugin {
public:
    IAlarmExtension();
    virtual ~IAlarmExtension();

    /* Appends the token of every alarm input (digital input, detector). */
    virtual DDKError* alarmInputs(StringListHandle* inputs) const = 0;
    /* Appends the token of every alarm output (relay). */
    virtual DDKError* alarmOutputs(StringListHandle* outputs) const = 0;
    /* Drives an output: active non-zero closes the relay, 0 opens it. */
    virtual DDKError* setAlarmOutput(const char* output, ddk_bool active) = 0;
    /* Appends the motion detection regions of a video source. */
    virtual DDKError* motionRegions(const char* sourceToken, MotionDetectionRegionListHandle* regions) const = 0;
    /* Replaces the regions of a video source with the host's list (read it). */
    virtual DDKError* setMotionRegions(const char* sourceToken, MotionDetectionRegionListHandle* regions) = 0;
    /* Switch motion detection of a video source on or off. */
    virtual DDKError* enableMotionDetection(const char* sourceToken) = 0;
    virtual DDKError* disableMotionDetection(const char* sourceToken) = 0;

    /* Delivers `event` to the host's alarm callback through the table stored
       in this part. A failing callback is logged at level 2, never thrown;
       without a callback the failure is logged (and dropped without a table). */
    void signalAlarm(const AlarmEvent& event);
};

} // namespace ddk
} // namespace vantrel

#endif
