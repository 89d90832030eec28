// Handle conversions of the frame's own containers.
#pragma once

#include <string>
#include <vector>

#include "barrier.h"
#include "vantrel/api/handles.h"

namespace vantrel::ddk::internal {

VANTREL_DDK_HANDLE(std::string, StringHandle)
VANTREL_DDK_HANDLE(std::vector<std::string>, StringListHandle)

}  // namespace vantrel::ddk::internal
