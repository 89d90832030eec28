/* The script control extension: pan and tilt, presets and tours, and the
   device's fixed motion scripts. */
#ifndef VANTREL_EXTENSIONS_SCRIPT_CONTROL_EXTENSION_H
#define VANTREL_EXTENSIONS_SCRIPT_CONTROL_EXTENSION_H

#include "vantrel/api/errors.h"
#include "vantrel/api/handles.h"
#include "vantrel/extensions/iplugin.h"

namespace vantrel {
namespace ddk {

/* Every operation takes first the token naming the positioner or video
   source it concerns, and returns null for success or an error record that
   the host releases with ddk_free_error. */
class VANTREL_DDK_API IScriptControlExtension : public IPlugin {
public:
    /* The codes runScript receives from the eight script operations. */
    enum Script {
        ScriptRotate180Degrees = 33,
        ScriptPanToZero = 34,
        ScriptDeactivateAuxiliary = 84,
        ScriptActivateAuxiliary = 86,
        ScriptStopScan = 96,
        ScriptRandomScan = 97,
        ScriptFrameScan = 98,
        ScriptAutoScan = 99
    };

    IScriptControlExtension();
    virtual ~IScriptControlExtension();

    /* Sizes the host's flag vector and marks each preset number in use. */
    virtual DDKError* presets(const char* token, PresetVectorHandle* presetFlags) const = 0;
    /* The same for tour numbers. */
    virtual DDKError* tours(const char* token, TourVectorHandle* tourFlags) const = 0;
    /* Runs one of the device's motion scripts (codes in Script). */
    virtual DDKError* runScript(const char* token, int script) = 0;
    virtual DDKError* gotoPreset(const char* token, unsigned int preset) = 0;
    /* Stores the current position under a preset number. */
    virtual DDKError* savePreset(const char* token, unsigned int preset) = 0;
    virtual DDKError* removePreset(const char* token, unsigned int preset) = 0;
    virtual DDKError* startTour(const char* token, unsigned int tour) = 0;
    virtual DDKError* stopTour(const char* token) = 0;
    /* Continuous pan and tilt, each speed -100 to 100 (0 holds that axis),
       until stopMove. */
    virtual DDKError* move(const char* token, int panSpeed, int tiltSpeed) = 0;
    virtual DDKError* stopMove(const char* token) = 0;

    /* Defaults: runScript(token, code) through the virtual table; the result
       is released and null returned, so these always report success. */
    virtual DDKError* activateAuxiliary(const char* token);
    virtual DDKError* deactivateAuxiliary(const char* token);
    virtual DDKError* rotate180Degrees(const char* token);
    virtual DDKError* panToZero(const char* token);
    virtual DDKError* runAutoScan(const char* token);
    virtual DDKError* runRandomScan(const char* token);
    virtual DDKError* runFrameScan(const char* token);
    virtual DDKError* stopScan(const char* token);
};

} // namespace ddk
} // namespace vantrel

#endif
