/* Error records, the kit's boolean, and (in C++) the handle conversion. */
#ifndef VANTREL_API_ERRORS_H
#define VANTREL_API_ERRORS_H

#include "vantrel/api/export.h"
#include "vantrel/api/handles.h"

#ifdef __cplusplus
#include <cstddef>
#include <string>
#include "vantrel/model/invalid_handle_exception.h"
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* The kit's one-byte boolean: 0 is false, every other value true. */
typedef unsigned char ddk_bool;

/* Error record returned by plug-in operations (null means success).
   Allocated on the C heap; release it with ddk_free_error. */
typedef struct DDKError {
    char* message; /* strdup'ed copy of the text; null only if that copy failed */
    int code;      /* 32-bit error code */
} DDKError;

/* Codes the library itself puts into records. */
#define DDK_ERROR_PLUGIN_INIT_FAILED 0
#define DDK_ERROR_NOT_SUPPORTED 7

/* A new record with a copy of message ("Unknown error" for null) and *code
   (0 for a null code). Null when the record cannot be allocated. */
VANTREL_DDK_API DDKError* ddk_new_error(const char* message, const int* code);
/* Releases a record made by ddk_new_error; null is ignored. */
VANTREL_DDK_API void ddk_free_error(DDKError* error);

#ifdef __cplusplus
}

namespace vantrel {

VANTREL_DDK_API unsigned char to_ddk_bool(bool value);
VANTREL_DDK_API bool from_ddk_bool(unsigned char value);

/* Exactly `length` bytes from `text` (NUL bytes included); empty for a null
   text or a zero length. */
VANTREL_DDK_API std::string create_std_string(const char* text, unsigned int length);

namespace detail {
template <class T, class P>
T* handle_target(P* handle) { return reinterpret_cast<T*>(handle); }
/* A literal nullptr as the handle: never reached (it throws first), but it
   must compile, and no cast turns std::nullptr_t into a pointer by reinterpret. */
template <class T>
T* handle_target(std::nullptr_t) { return nullptr; }
} // namespace detail

/* The record behind a handle. Throws InvalidHandleException for null. */
template <class T, class H>
T& from_handle(H handle) {
    if (handle == nullptr) {
        throw InvalidHandleException();
    }
    return *detail::handle_target<T>(handle);
}

} // namespace vantrel
#endif

#endif
