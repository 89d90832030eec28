#include "error_ledger.h"

#include <dlfcn.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>

#include <vantrel/ddk.h>

namespace {

using NewError = DDKError* (*)(const char*, const int*);
using FreeError = void (*)(DDKError*);

std::atomic<std::size_t> made{0};
std::atomic<std::size_t> released{0};

// The next definitions in lookup order: the kit library's.
NewError kitNewError() {
    static const NewError next = reinterpret_cast<NewError>(dlsym(RTLD_NEXT, "ddk_new_error"));
    return next;
}

FreeError kitFreeError() {
    static const FreeError next = reinterpret_cast<FreeError>(dlsym(RTLD_NEXT, "ddk_free_error"));
    return next;
}

}  // namespace

extern "C" {

__attribute__((visibility("default"))) DDKError* ddk_new_error(const char* message, const int* code) {
    const NewError next = kitNewError();
    if (next == nullptr) {
        std::fputs("ddk-inspect: the kit library's ddk_new_error is missing\n", stderr);
        std::abort();
    }
    DDKError* error = next(message, code);
    if (error != nullptr) {
        ++made;
    }
    return error;
}

__attribute__((visibility("default"))) void ddk_free_error(DDKError* error) {
    const FreeError next = kitFreeError();
    if (next == nullptr) {
        std::fputs("ddk-inspect: the kit library's ddk_free_error is missing\n", stderr);
        std::abort();
    }
    if (error != nullptr) {
        ++released;
    }
    next(error);
}

}  // extern "C"

namespace inspect {

ErrorLedger errorLedger() {
    return ErrorLedger{made.load(), released.load(), kitNewError() != nullptr && kitFreeError() != nullptr};
}

}  // namespace inspect
