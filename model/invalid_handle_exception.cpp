#include "vantrel/model/invalid_handle_exception.h"

namespace vantrel {

InvalidHandleException::InvalidHandleException()
    : std::runtime_error("DDK Handle is NULL, unable to cast") {}

// Out of line so the vtable and type information live in the library, and a
// plug-in catching this exception matches the one the library throws.
InvalidHandleException::~InvalidHandleException() = default;

}  // namespace vantrel
