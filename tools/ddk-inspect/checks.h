// The conformance checks, run as GoogleTest cases so that they can be
// listed and filtered by name.
#pragma once

#include "options.h"
#include "plugin_module.h"

namespace inspect {

// Prints every check's name and what it verifies.
void listChecks(const Options& options);

// Runs the checks that match options.filter; kExitOk when all pass (or are
// skipped), kExitFindings otherwise.
int runChecks(const PluginModule& module, const Options& options);

}  // namespace inspect
