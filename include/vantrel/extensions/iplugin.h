#ifndef VANTREL_EXTENSIONS_IPLUGIN_H
#define VANTREL_EXTENSIONS_IPLUGIN_H

#include "vantrel/api/errors.h"
#include "vantrel/api/service_provider.h"

namespace vantrel {
namespace ddk {

/* Base of every device plug-in. The host starts the plug-in with init() and
   stops it with shutdown(); each takes effect once. Derived classes put
   their start and stop work in doInit() and doShutdown(). */
class VANTREL_DDK_API IPlugin {
public:
    IPlugin();
    virtual ~IPlugin() = 0;

    /* Stores the table, then runs doInit(). Null on success (or when already
       started); otherwise an error record the caller frees with ddk_free_error. */
    DDKError* init(DDKServiceProvider* provider);
    /* Runs doShutdown() once; its failures are logged at level 2, never thrown. */
    void shutdown();

    virtual DDKError* doInit();
    virtual void doShutdown();

    /* Part of the binary interface: the host may read these by layout. */
    DDKServiceProvider* serviceProvider;
    bool initialized;
    bool shutDown;
};

} // namespace ddk
} // namespace vantrel

#endif
