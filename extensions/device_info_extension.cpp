#include "vantrel/extensions/device_info_extension.h"

#include "vantrel/api/strings.h"

namespace vantrel::ddk {

IDeviceInfoExtension::IDeviceInfoExtension() = default;

IDeviceInfoExtension::~IDeviceInfoExtension() = default;

DDKError* IDeviceInfoExtension::modelDescription(StringHandle* description) {
  static constexpr char kModel[] = "Quarn Pro Camera";
  ddk_set_string(description, kModel, sizeof kModel - 1);
  return nullptr;
}

}  // namespace vantrel::ddk
