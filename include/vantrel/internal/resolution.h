// A picture size, ordered by pixel count.
#ifndef VANTREL_INTERNAL_RESOLUTION_H
#define VANTREL_INTERNAL_RESOLUTION_H

#include <stdint.h>

namespace vantrel {
namespace ddk {
namespace internal {

struct Resolution {
    Resolution() : width(0), height(0) {}
    Resolution(uint32_t w, uint32_t h) : width(w), height(h) {}

    // Taken in 32-bit unsigned arithmetic, so it wraps like the host's.
    uint32_t pixelCount() const { return static_cast<uint32_t>(width * height); }
    // Equal pixel counts (640x480, 480x640) are equivalent: neither is greater.
    bool operator>(const Resolution& other) const { return pixelCount() > other.pixelCount(); }

    uint32_t width;
    uint32_t height;
};

} // namespace internal
} // namespace ddk
} // namespace vantrel

#endif
