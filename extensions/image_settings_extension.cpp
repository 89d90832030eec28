#include "vantrel/extensions/image_settings_extension.h"

#include "not_supported.h"

namespace vantrel::ddk {

using internal::not_supported;

IImageSettingsExtension::IImageSettingsExtension() = default;

IImageSettingsExtension::~IImageSettingsExtension() = default;

DDKError* IImageSettingsExtension::setDefaultBrightness(const char*) { return not_supported(); }

DDKError* IImageSettingsExtension::setDefaultContrast(const char*) { return not_supported(); }

DDKError* IImageSettingsExtension::setDefaultHue(const char*) { return not_supported(); }

DDKError* IImageSettingsExtension::setDefaultSaturation(const char*) { return not_supported(); }

}  // namespace vantrel::ddk
