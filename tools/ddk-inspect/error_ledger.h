// Counts the error records made and released in this process.
//
// The inspector defines ddk_new_error and ddk_free_error itself and exports
// them from its executable (see exported.list), so the plug-in and the kit
// library reach these definitions first; they count and forward to the kit's
// own functions. A record that is made and never released is a leak the
// checks report.
#pragma once

#include <cstddef>

namespace inspect {

struct ErrorLedger {
    std::size_t made;
    std::size_t released;
    std::size_t outstanding() const { return made - released; }
    // False when the kit's own functions could not be found: nothing counted.
    bool active;
};

ErrorLedger errorLedger();

}  // namespace inspect
