// Enabled flags of presets and tours.
#include "vantrel/api/presets_tours.h"

#include <cstdint>

#include "camera_handles.h"

using namespace vantrel::ddk::internal;

namespace {

// n + 1 flags in 32-bit arithmetic; resize() keeps the head and adds false.
// Only the null handle is answered (-1): a failure to grow (allocation, or
// the length error beyond max_size()) reaches the caller, vector unchanged.
template <class Handle>
int resize_flags(Handle* handle, unsigned int n) {
  auto* flags = record_of(handle);
  if (flags == nullptr) return kFailed;
  flags->resize(static_cast<std::uint32_t>(n + 1U));
  return kOk;
}

// A null handle gives -1, an index not below the size -2. The index is
// tested here rather than by at(): when memory runs out, the out-of-range
// exception cannot be built, and the std::bad_alloc in its place would read
// as -1.
template <class Handle>
int set_flag(Handle* handle, unsigned int index, bool enabled) {
  return guarded(kFailed, [&] {
    auto& flags = unwrap(handle);
    if (index >= flags.size()) return kRejected;
    flags[index] = enabled;
    return kOk;
  });
}

}  // namespace

extern "C" {

int ddk_set_preset_vector_size(PresetVectorHandle* presets, unsigned int n) {
  return resize_flags(presets, n);
}

int ddk_set_preset_enabled(PresetVectorHandle* presets, unsigned int index) {
  return set_flag(presets, index, true);
}

int ddk_set_preset_disabled(PresetVectorHandle* presets, unsigned int index) {
  return set_flag(presets, index, false);
}

int ddk_set_tour_vector_size(TourVectorHandle* tours, unsigned int n) {
  return resize_flags(tours, n);
}

int ddk_set_tour_enabled(TourVectorHandle* tours, unsigned int index) {
  return set_flag(tours, index, true);
}

int ddk_set_tour_disabled(TourVectorHandle* tours, unsigned int index) {
  return set_flag(tours, index, false);
}

}  // extern "C"
