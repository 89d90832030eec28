/* Network addresses: a collection of address texts with their type codes. */
#ifndef VANTREL_API_NETWORK_ADDRESSES_H
#define VANTREL_API_NETWORK_ADDRESSES_H

#include <stdint.h>

#include "vantrel/api/export.h"
#include "vantrel/api/handles.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Appends an address of exactly `length` bytes from `text` with `type`.
   0; -1 for a null collection (tested first); -2 for an empty text (null or
   zero length) or a failed append, which leaves the collection as it was. */
VANTREL_DDK_API int ddk_append_network_address(NetworkAddressCollectionHandle* addresses, int32_t type, const char* text, unsigned int length);
/* Number of addresses; 0 for a null collection. */
VANTREL_DDK_API unsigned int ddk_get_network_address_collection_size(NetworkAddressCollectionHandle* addresses);
/* Address `index` (valid until the next append); null for a null collection
   or an index not below the size. */
VANTREL_DDK_API NetworkAddressHandle* ddk_get_network_address_at(NetworkAddressCollectionHandle* addresses, unsigned int index);
/* The address text, pointing into the record; null for a null handle. */
VANTREL_DDK_API const char* ddk_get_network_address(NetworkAddressHandle* address);
/* Writes the type code through `type`. 0; -1 for a null handle or a null
   `type` pointer, and nothing is written then. */
VANTREL_DDK_API int ddk_get_network_address_type(NetworkAddressHandle* address, int32_t* type);

#ifdef __cplusplus
}
#endif

#endif
