#include "vantrel/extensions/video_extension.h"

#include "vantrel/api/strings.h"

namespace vantrel::ddk {

IVideoExtension::IVideoExtension() = default;

IVideoExtension::~IVideoExtension() = default;

DDKError* IVideoExtension::sourceTokens(StringListHandle* tokens) const {
  ddk_append_string(tokens, "0", 1);
  return nullptr;
}

DDKError* IVideoExtension::multicastDefaults(const char*, VideoStreamConfigurationHandle*) const {
  return nullptr;
}

}  // namespace vantrel::ddk
