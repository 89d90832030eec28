/* A network address with its kind, as host and plug-in exchange them. */
#ifndef VANTREL_MODEL_NETWORK_ADDRESS_H
#define VANTREL_MODEL_NETWORK_ADDRESS_H

#include <stdint.h>

#include <string>
#include <utility>

#include "vantrel/api/export.h"

namespace vantrel {

/* Part of the binary interface: host and plug-in share the field order and
   types. Always built with both fields; `type` is the host's code, stored
   and returned bit for bit. */
struct VANTREL_DDK_API NetworkAddress {
    NetworkAddress(int32_t addressType, std::string addressText)
        : type(addressType), address(std::move(addressText)) {}

    int32_t type;
    std::string address;
};

} // namespace vantrel

#endif
