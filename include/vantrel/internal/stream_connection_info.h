/* Where and how one stream can be reached, as the host reads it out of its
   collection. */
#ifndef VANTREL_INTERNAL_STREAM_CONNECTION_INFO_H
#define VANTREL_INTERNAL_STREAM_CONNECTION_INFO_H

#include <stdint.h>

#include <string>

#include "vantrel/api/export.h"

namespace vantrel {
namespace ddk {
namespace internal {

/* Part of the binary interface: host and plug-in share the field order and
   types. The codes are the host's; the library stores them unchanged.
   Strings written by the setters are never empty, and `mimeType` is then a
   valid media type. */
struct VANTREL_DDK_API StreamConnectionInfo {
    std::string url;
    std::string mimeType;
    std::string token;
    int32_t transmissionMode = 3;
    int32_t type = 0;
};

} // namespace internal
} // namespace ddk
} // namespace vantrel

#endif
