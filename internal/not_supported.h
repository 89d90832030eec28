// The answer of an optional extension operation that the plug-in does not
// implement.
#pragma once

#include "vantrel/api/errors.h"

namespace vantrel::ddk::internal {

inline DDKError* not_supported() {
  const int code = DDK_ERROR_NOT_SUPPORTED;
  return ddk_new_error("Operation not supported.", &code);
}

}  // namespace vantrel::ddk::internal
