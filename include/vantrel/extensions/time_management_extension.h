/* The time management extension: clock, time zone and time servers. */
#ifndef VANTREL_EXTENSIONS_TIME_MANAGEMENT_EXTENSION_H
#define VANTREL_EXTENSIONS_TIME_MANAGEMENT_EXTENSION_H

#include <stdint.h>

#include "vantrel/api/errors.h"
#include "vantrel/api/handles.h"
#include "vantrel/extensions/iplugin.h"

namespace vantrel {
namespace ddk {

/* Every operation takes first the token naming the device it concerns, and
   returns null for success or an error record that the host releases with
   ddk_free_error. */
class VANTREL_DDK_API ITimeManagementExtension : public IPlugin {
public:
    ITimeManagementExtension();
    virtual ~ITimeManagementExtension();

    /* Fills the host's time zone record. */
    virtual DDKError* timeZone(const char* token, TimeZoneHandle* zone) const = 0;
    /* Sets the device's time zone from the host's record (read it). */
    virtual DDKError* setTimeZone(const char* token, TimeZoneHandle* zone) = 0;
    /* The device clock, seconds since 1970-01-01 00:00 UTC. */
    virtual DDKError* systemTime(const char* token, int64_t& utcSeconds) const = 0;
    virtual DDKError* setSystemTime(const char* token, int64_t utcSeconds) = 0;
    /* Appends the time servers the device synchronises with. */
    virtual DDKError* ntpServers(const char* token, NetworkAddressCollectionHandle* servers) const = 0;
    /* Replaces the time servers; an empty collection means manual time. */
    virtual DDKError* setNtpServers(const char* token, NetworkAddressCollectionHandle* servers) = 0;
    /* Synchronises with the time servers now. */
    virtual DDKError* synchronizeTime(const char* token) = 0;
};

} // namespace ddk
} // namespace vantrel

#endif
