// The log line path to the host.
#include "vantrel/api/service_provider.h"

extern "C" {

// A host callback's own exception is not caught here: it travels back to the
// plug-in that logged, as it does for the signals.
void ddk_log(DDKServiceProvider* provider, int level, const char* message) {
  if (provider == nullptr || provider->logCallback == nullptr) return;
  provider->logCallback(provider->logContext, level, message);
}

}  // extern "C"
