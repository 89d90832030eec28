#ifndef VANTREL_MODEL_INVALID_HANDLE_EXCEPTION_H
#define VANTREL_MODEL_INVALID_HANDLE_EXCEPTION_H

#include <stdexcept>

#include "vantrel/api/export.h"

namespace vantrel {

/* Thrown when a null handle is converted; what() is always
   "DDK Handle is NULL, unable to cast". */
class VANTREL_DDK_API InvalidHandleException : public std::runtime_error {
public:
    InvalidHandleException();
    ~InvalidHandleException() override;
};

} // namespace vantrel

#endif
