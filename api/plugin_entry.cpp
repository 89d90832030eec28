// The host's check of a plug-in's descriptor.
#include "vantrel/extensions/plugin_entry.h"

#include <cstddef>

#include "barrier.h"

using namespace vantrel::ddk::internal;

extern "C" {

int ddk_check_plugin_descriptor(const DDKPluginDescriptor* descriptor) {
  if (descriptor == nullptr) return kFailed;
  // The version decides how the rest is laid out, so it is read first.
  if (descriptor->abiVersion != DDK_PLUGIN_ABI_VERSION) return kRejected;
  if (descriptor->size < sizeof(DDKPluginDescriptor)) return kRejected;
  const bool complete = descriptor->create != nullptr && descriptor->destroy != nullptr &&
                        descriptor->start != nullptr && descriptor->stop != nullptr &&
                        descriptor->extension != nullptr;
  return complete ? kOk : kRejected;
}

}  // extern "C"
