/* The device information extension: the device's identity. */
#ifndef VANTREL_EXTENSIONS_DEVICE_INFO_EXTENSION_H
#define VANTREL_EXTENSIONS_DEVICE_INFO_EXTENSION_H

#include "vantrel/api/errors.h"
#include "vantrel/api/handles.h"
#include "vantrel/extensions/iplugin.h"

namespace vantrel {
namespace ddk {

/* Every operation but modelDescription takes first the token naming the
   device (or the unit of a multi-unit device) it concerns. Each returns null
   for success or an error record that the host releases with ddk_free_error. */
class VANTREL_DDK_API IDeviceInfoExtension : public IPlugin {
public:
    IDeviceInfoExtension();
    virtual ~IDeviceInfoExtension();

    /* Sets the model text. The default sets "Quarn Pro Camera". */
    virtual DDKError* modelDescription(StringHandle* description);
    virtual DDKError* manufacturer(const char* token, StringHandle* name) const = 0;
    virtual DDKError* modelNumber(const char* token, StringHandle* number) const = 0;
    virtual DDKError* serialNumber(const char* token, StringHandle* number) const = 0;
    virtual DDKError* firmwareVersion(const char* token, StringHandle* version) const = 0;
    virtual DDKError* hardwareId(const char* token, StringHandle* id) const = 0;
    /* The primary network interface's hardware address, as text. */
    virtual DDKError* macAddress(const char* token, StringHandle* address) const = 0;
    /* The name the user gave the device. */
    virtual DDKError* deviceName(const char* token, StringHandle* name) const = 0;
    virtual DDKError* setDeviceName(const char* token, const char* name) = 0;
    /* Appends one name per feature the device offers. */
    virtual DDKError* capabilities(const char* token, StringListHandle* features) const = 0;
};

} // namespace ddk
} // namespace vantrel

#endif
