#include "barrier.h"

#include "vantrel/model/invalid_handle_exception.h"

namespace vantrel::ddk::internal {

void throw_invalid_handle() { throw InvalidHandleException(); }

}  // namespace vantrel::ddk::internal
