// One plug-in object, several IPlugin parts: started and stopped as one.
#include "vantrel/extensions/plugin_entry.h"

namespace vantrel::ddk {

DDKError* start_plugin_parts(IPlugin* const* parts, unsigned int count, DDKServiceProvider* provider) {
  if (parts == nullptr || count == 0 || parts[0] == nullptr) return nullptr;
  IPlugin& first = *parts[0];
  if (first.initialized) return nullptr;  // as init: a started plug-in keeps its table
  // Before the hook, as init does for its own part: doInit may signal
  // through any extension (signalAlarm reads the alarm part).
  for (unsigned int i = 1; i < count; ++i) parts[i]->serviceProvider = provider;
  DDKError* error = first.init(provider);
  for (unsigned int i = 1; i < count; ++i) parts[i]->initialized = first.initialized;
  return error;
}

void stop_plugin_parts(IPlugin* const* parts, unsigned int count) {
  if (parts == nullptr || count == 0 || parts[0] == nullptr) return;
  IPlugin& first = *parts[0];
  if (first.shutDown) return;
  for (unsigned int i = 1; i < count; ++i) parts[i]->shutDown = true;
  first.shutdown();
}

}  // namespace vantrel::ddk
