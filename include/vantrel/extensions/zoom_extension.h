/* The zoom extension: magnification in the host's hundredths, converted to
   and from the plug-in's own one-byte magnification. */
#ifndef VANTREL_EXTENSIONS_ZOOM_EXTENSION_H
#define VANTREL_EXTENSIONS_ZOOM_EXTENSION_H

#include "vantrel/api/errors.h"
#include "vantrel/extensions/iplugin.h"

namespace vantrel {
namespace ddk {

/* Every operation takes first the token naming the lens or video source it
   concerns, and returns null for success or an error record that the host
   releases with ddk_free_error. Hundredths: 100 = 1.00x. */
class VANTREL_DDK_API IZoomExtension : public IPlugin {
public:
    IZoomExtension();
    virtual ~IZoomExtension();

    /* The two factors, in hundredths, whose product F scales the plug-in's
       magnification: a magnification m stands for m * F hundredths. */
    virtual DDKError* magnificationFactors(const char* token, unsigned int& firstHundredths,
                                           unsigned int& secondHundredths) = 0;
    /* Defaults: convert through getMagnification / setMagnification and the
       factors (F = 1.0 when the factors fail). */
    virtual DDKError* getMagHundredthsX(const char* token, unsigned int& hundredthsX);
    virtual DDKError* setMagHundredthsX(const char* token, const unsigned int& hundredthsX,
                                        const unsigned char& option);
    /* Defaults: code 7, "Operation not supported." (the getter also writes 0). */
    virtual DDKError* getMagnification(const char* token, unsigned char& magnification);
    virtual DDKError* setMagnification(const char* token, const unsigned char& magnification,
                                       const unsigned char& option);
    /* The smallest and largest magnification the lens reaches, in hundredths. */
    virtual DDKError* magnificationRange(const char* token, unsigned int& minimumHundredthsX,
                                         unsigned int& maximumHundredthsX) const = 0;
    /* Continuous zoom at `speed` (1 slowest to 100 fastest) until stopZoom. */
    virtual DDKError* zoomIn(const char* token, const unsigned char& speed) = 0;
    virtual DDKError* zoomOut(const char* token, const unsigned char& speed) = 0;
    virtual DDKError* stopZoom(const char* token) = 0;
};

} // namespace ddk
} // namespace vantrel

#endif
