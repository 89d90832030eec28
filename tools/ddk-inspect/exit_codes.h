// Exit codes of ddk-inspect, one per kind of outcome, and the exception that
// carries a fatal outcome to main() with its one-line message.
#pragma once

#include <stdexcept>
#include <string>

namespace inspect {

enum ExitCode : int {
    kExitOk = 0,
    kExitFindings = 1,          // --check found conformance problems
    kExitUsage = 2,             // bad command line
    kExitNotLoadable = 3,       // missing file, or not a loadable shared object
    kExitNoEntryPoint = 4,      // no plug-in entry point in the shared object
    kExitAbiMismatch = 5,       // built against an incompatible kit
    kExitCreateFailed = 6,      // the entry point made no plug-in object
    kExitInitFailed = 7,        // init returned an error record (or threw)
    kExitOperationThrew = 8,    // an operation let an exception out
};

// A fatal outcome: main() prints "ddk-inspect: <message>" and exits with `code`.
class Failure : public std::runtime_error {
public:
    Failure(ExitCode code, const std::string& message) : std::runtime_error(message), code_(code) {}
    ExitCode code() const { return code_; }

private:
    ExitCode code_;
};

}  // namespace inspect
