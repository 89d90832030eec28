#include "vantrel/extensions/time_management_extension.h"

namespace vantrel::ddk {

ITimeManagementExtension::ITimeManagementExtension() = default;

ITimeManagementExtension::~ITimeManagementExtension() = default;

}  // namespace vantrel::ddk
