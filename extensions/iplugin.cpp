#include "vantrel/extensions/iplugin.h"

#include <exception>

namespace vantrel::ddk {

IPlugin::IPlugin() : serviceProvider(nullptr), initialized(false), shutDown(false) {}

IPlugin::~IPlugin() = default;

DDKError* IPlugin::doInit() { return nullptr; }

void IPlugin::doShutdown() {}

DDKError* IPlugin::init(DDKServiceProvider* provider) {
  if (initialized) return nullptr;
  // Stored before the hook runs: doInit may already signal and log.
  serviceProvider = provider;
  const int code = DDK_ERROR_PLUGIN_INIT_FAILED;
  try {
    DDKError* error = doInit();
    if (error == nullptr) initialized = true;
    return error;
  } catch (const std::exception& e) {
    return ddk_new_error(e.what(), &code);
  } catch (...) {
    return ddk_new_error("Unknown error occurred initializing plug-in", &code);
  }
}

void IPlugin::shutdown() {
  if (shutDown) return;
  shutDown = true;  // before the hook: it runs at most once, even if it throws
  try {
    try {
      doShutdown();
    } catch (const std::exception& e) {
      ddk_log(serviceProvider, DDK_LOG_LEVEL_ERROR, e.what());
    } catch (...) {
      ddk_log(serviceProvider, DDK_LOG_LEVEL_ERROR, "Unknown error occurred shutting down plug-in");
    }
  } catch (...) {
    // A log callback that throws while reporting the failure: nothing leaves shutdown.
  }
}

}  // namespace vantrel::ddk
