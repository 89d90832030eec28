/* The image settings extension: brightness, contrast, hue and saturation. */
#ifndef VANTREL_EXTENSIONS_IMAGE_SETTINGS_EXTENSION_H
#define VANTREL_EXTENSIONS_IMAGE_SETTINGS_EXTENSION_H

#include "vantrel/api/errors.h"
#include "vantrel/extensions/iplugin.h"

namespace vantrel {
namespace ddk {

/* Every operation takes first the token naming the video source it
   concerns, and returns null for success or an error record that the host
   releases with ddk_free_error. Levels are in the range the plug-in reports.
   Per setting: read, set, range, relative step, restore default. */
class VANTREL_DDK_API IImageSettingsExtension : public IPlugin {
public:
    IImageSettingsExtension();
    virtual ~IImageSettingsExtension();

    virtual DDKError* brightness(const char* token, int& level) const = 0;
    virtual DDKError* setBrightness(const char* token, int level) = 0;
    virtual DDKError* brightnessRange(const char* token, int& minimum, int& maximum) const = 0;
    /* Moves the level by `steps` of the device's own step size (negative: down). */
    virtual DDKError* adjustBrightness(const char* token, int steps) = 0;
    /* Default: code 7, "Operation not supported." */
    virtual DDKError* setDefaultBrightness(const char* token);

    virtual DDKError* contrast(const char* token, int& level) const = 0;
    virtual DDKError* setContrast(const char* token, int level) = 0;
    virtual DDKError* contrastRange(const char* token, int& minimum, int& maximum) const = 0;
    virtual DDKError* adjustContrast(const char* token, int steps) = 0;
    virtual DDKError* setDefaultContrast(const char* token);

    virtual DDKError* hue(const char* token, int& level) const = 0;
    virtual DDKError* setHue(const char* token, int level) = 0;
    virtual DDKError* hueRange(const char* token, int& minimum, int& maximum) const = 0;
    virtual DDKError* adjustHue(const char* token, int steps) = 0;
    virtual DDKError* setDefaultHue(const char* token);

    virtual DDKError* saturation(const char* token, int& level) const = 0;
    virtual DDKError* setSaturation(const char* token, int level) = 0;
    virtual DDKError* saturationRange(const char* token, int& minimum, int& maximum) const = 0;
    virtual DDKError* adjustSaturation(const char* token, int steps) = 0;
    virtual DDKError* setDefaultSaturation(const char* token);
};

} // namespace ddk
} // namespace vantrel

#endif
