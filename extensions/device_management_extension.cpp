#include "vantrel/extensions/device_management_extension.h"

namespace vantrel::ddk {

IDeviceManagementExtension::IDeviceManagementExtension() = default;

IDeviceManagementExtension::~IDeviceManagementExtension() = default;

}  // namespace vantrel::ddk
