/* The device management extension: restart, reset and network set-up. */
#ifndef VANTREL_EXTENSIONS_DEVICE_MANAGEMENT_EXTENSION_H
#define VANTREL_EXTENSIONS_DEVICE_MANAGEMENT_EXTENSION_H

#include "vantrel/api/errors.h"
#include "vantrel/api/handles.h"
#include "vantrel/extensions/iplugin.h"

namespace vantrel {
namespace ddk {

/* Every operation takes first the token naming the device it concerns, and
   returns null for success or an error record that the host releases with
   ddk_free_error. */
class VANTREL_DDK_API IDeviceManagementExtension : public IPlugin {
public:
    IDeviceManagementExtension();
    virtual ~IDeviceManagementExtension();

    virtual DDKError* reboot(const char* token) = 0;
    /* Restores the factory settings, keeping the network set-up when asked. */
    virtual DDKError* factoryReset(const char* token, ddk_bool keepNetworkSettings) = 0;
    /* Appends the device's network addresses with their types. */
    virtual DDKError* networkAddresses(const char* token, NetworkAddressCollectionHandle* addresses) const = 0;
    /* Replaces the device's addresses with the host's collection (read it). */
    virtual DDKError* setNetworkAddresses(const char* token, NetworkAddressCollectionHandle* addresses) = 0;
};

} // namespace ddk
} // namespace vantrel

#endif
