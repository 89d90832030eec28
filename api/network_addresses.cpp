// Network addresses. Throw-and-catch: a null handle throws inside and every
// exception becomes the failure value.
#include "vantrel/api/network_addresses.h"

#include <string>
#include <utility>

#include "media_handles.h"

using namespace vantrel::ddk::internal;

extern "C" {

int ddk_append_network_address(NetworkAddressCollectionHandle* addresses, int32_t type,
                               const char* text, unsigned int length) {
  // A null collection gives -1; every other failure, growing included, -2.
  // The collection is tested before the barrier: when memory runs out, even
  // the handle exception cannot be built, and its std::bad_alloc would read
  // as a refused address.
  auto* records = record_of(addresses);
  if (records == nullptr) return kFailed;
  return guarded(kRejected, [&] {
    std::string address = vantrel::create_std_string(text, length);
    if (address.empty()) return kRejected;
    // Leaves the vector as it was when growing fails (the move cannot throw).
    records->emplace_back(type, std::move(address));
    return kOk;
  });
}

unsigned int ddk_get_network_address_collection_size(NetworkAddressCollectionHandle* addresses) {
  return guarded(0U, [&] { return static_cast<unsigned int>(unwrap(addresses).size()); });
}

NetworkAddressHandle* ddk_get_network_address_at(NetworkAddressCollectionHandle* addresses,
                                                 unsigned int index) {
  auto* records = record_of(addresses);
  if (records == nullptr) return invalid_handle_failure<NetworkAddressHandle*>(nullptr);
  return wrap(element_at(*records, index));
}

const char* ddk_get_network_address(NetworkAddressHandle* address) {
  return guarded(static_cast<const char*>(nullptr),
                 [&] { return unwrap(address).address.c_str(); });
}

int ddk_get_network_address_type(NetworkAddressHandle* address, int32_t* type) {
  return guarded(kFailed, [&] {
    const auto& record = unwrap(address);
    if (type == nullptr) return kFailed;
    *type = record.type;
    return kOk;
  });
}

}  // extern "C"
