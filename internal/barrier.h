// The exception barrier of the C boundary, written once.
//
// Every exported function is either a direct check (tests its pointers and
// returns) or a body run through guarded(), which turns whatever the body
// throws into the function's failure value. Handles become records through
// unwrap() (throws InvalidHandleException on null) or record_of() (null in,
// null out) declared per handle type by VANTREL_DDK_HANDLE.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <type_traits>
#include <utility>

#include "vantrel/api/errors.h"

namespace vantrel::ddk::internal {

// Throws InvalidHandleException. Out of line and cold: the common path of
// every converting function keeps only the null test, and the throw sequence
// exists once in the library instead of once per caller.
[[noreturn]] __attribute__((cold, noinline)) void throw_invalid_handle();

// The element at `index`, or null past the end: what at() gives inside a
// barrier whose range failure is a null result, without raising and catching
// std::out_of_range.
template <class Container>
auto element_at(Container& container, std::size_t index) noexcept -> decltype(&container[0]) {
  return index < container.size() ? &container[index] : nullptr;
}

// The answer of a throw-and-catch call to a null handle: raises
// InvalidHandleException and catches it, as guarded() would around unwrap().
// Out of line and reached by a tail call, so a call whose own work cannot
// throw keeps no stack frame on its common path.
template <class Result>
[[gnu::cold, gnu::noinline]] Result invalid_handle_failure(Result failure) noexcept {
  try {
    throw_invalid_handle();
  } catch (...) {
  }
  return failure;
}

// Status vocabulary of the C boundary.
inline constexpr int kOk = 0;
inline constexpr int kFailed = -1;    // null handle, or anything caught inside
inline constexpr int kRejected = -2;  // argument refused

template <class Body>
using BodyResult = std::invoke_result_t<Body&>;

// Runs `body`; any exception gives `failure`.
template <class Body>
BodyResult<Body> guarded(BodyResult<Body> failure, Body&& body) noexcept {
  try {
    return body();
  } catch (...) {
    return failure;
  }
}

// As guarded(), but a failed range check gives `outOfRange`.
template <class Body>
BodyResult<Body> guarded(BodyResult<Body> failure, BodyResult<Body> outOfRange,
                         Body&& body) noexcept {
  try {
    return body();
  } catch (const std::out_of_range&) {
    return outOfRange;
  } catch (...) {
    return failure;
  }
}

// As guarded(), but an exception of type Special gives `special`.
template <class Special, class Body>
BodyResult<Body> guarded_except(BodyResult<Body> failure, BodyResult<Body> special,
                                Body&& body) noexcept {
  try {
    return body();
  } catch (const Special&) {
    return special;
  } catch (...) {
    return failure;
  }
}

// For functions without a result: any failure means nothing is done.
template <class Body>
void guarded_void(Body&& body) noexcept {
  try {
    body();
  } catch (...) {
  }
}

}  // namespace vantrel::ddk::internal

// One line per handle type: the conversions between a handle and its record.
// unwrap() behaves as from_handle<Record>(handle).
#define VANTREL_DDK_HANDLE(Record, Handle)                                  \
  [[maybe_unused]] inline Record& unwrap(Handle* handle) {                  \
    if (handle == nullptr) ::vantrel::ddk::internal::throw_invalid_handle(); \
    return *reinterpret_cast<Record*>(handle);                              \
  }                                                                         \
  [[maybe_unused]] inline Record* record_of(Handle* handle) noexcept {      \
    return reinterpret_cast<Record*>(handle);                               \
  }                                                                         \
  [[maybe_unused]] inline Handle* wrap(Record* record) noexcept {           \
    return reinterpret_cast<Handle*>(record);                               \
  }
