// Motion detection regions behind handles. Direct checks: every function
// tests its own pointers; allocating work runs through guarded() so that a
// failed allocation gives the usual failure value.
#include "vantrel/api/motion_regions.h"

#include <limits>
#include <vector>

#include "camera_handles.h"

using namespace vantrel::ddk::internal;
using vantrel::MotionDetectionRegion;

namespace {

// The widest count the 16-bit results can report.
constexpr unsigned kMax16 = std::numeric_limits<unsigned short>::max();

// -2 tells the caller that the stored value is not the one given.
int clamped(bool wasClamped) { return wasClamped ? kRejected : kOk; }

}  // namespace

extern "C" {

unsigned short ddk_get_motion_region_list_size(MotionDetectionRegionListHandle* list) {
  const auto* regions = record_of(list);
  if (regions == nullptr) return 0;
  // Saturated rather than wrapped: a host walking the list by index still
  // sees a prefix instead of a small wrong count.
  return static_cast<unsigned short>(regions->size() < kMax16 ? regions->size() : kMax16);
}

MotionDetectionRegionHandle* ddk_get_motion_region_at(MotionDetectionRegionListHandle* list,
                                                      unsigned int index) {
  auto* regions = record_of(list);
  if (regions == nullptr || index >= regions->size()) return nullptr;
  return wrap(&(*regions)[index]);
}

MotionDetectionRegionHandle* ddk_append_motion_region(MotionDetectionRegionListHandle* list) {
  auto* regions = record_of(list);
  // Beyond 65535 regions the list could no longer be reported in full.
  if (regions == nullptr || regions->size() >= kMax16) return nullptr;
  return guarded(static_cast<MotionDetectionRegionHandle*>(nullptr), [&] {
    regions->push_back(MotionDetectionRegion());
    return wrap(&regions->back());
  });
}

int ddk_set_motion_region_enabled(MotionDetectionRegionHandle* region) {
  MotionDetectionRegion* record = record_of(region);
  if (record == nullptr) return kFailed;
  record->setEnable(true);
  return kOk;
}

int ddk_set_motion_region_disabled(MotionDetectionRegionHandle* region) {
  MotionDetectionRegion* record = record_of(region);
  if (record == nullptr) return kFailed;
  record->setEnable(false);
  return kOk;
}

ddk_bool ddk_get_motion_region_enabled(MotionDetectionRegionHandle* region) {
  const MotionDetectionRegion* record = record_of(region);
  return record != nullptr ? vantrel::to_ddk_bool(record->isEnabled()) : 0;
}

int ddk_set_motion_region_threshold(MotionDetectionRegionHandle* region, unsigned int threshold) {
  MotionDetectionRegion* record = record_of(region);
  if (record == nullptr) return kFailed;
  record->setThreshold(threshold);
  return clamped(threshold > record->macroBlockCount());
}

unsigned short ddk_get_motion_region_threshold(MotionDetectionRegionHandle* region) {
  const MotionDetectionRegion* record = record_of(region);
  return record != nullptr ? record->threshold() : 0;
}

int ddk_set_motion_region_sensitivity(MotionDetectionRegionHandle* region,
                                      unsigned int sensitivity) {
  MotionDetectionRegion* record = record_of(region);
  if (record == nullptr) return kFailed;
  record->setSensitivity(sensitivity);
  return clamped(sensitivity > 100);
}

unsigned char ddk_get_motion_region_sensitivity(MotionDetectionRegionHandle* region) {
  const MotionDetectionRegion* record = record_of(region);
  return record != nullptr ? record->sensitivity() : 0;
}

int ddk_set_motion_region_mask(MotionDetectionRegionHandle* region, const unsigned char* mask,
                               unsigned int size) {
  MotionDetectionRegion* record = record_of(region);
  if (record == nullptr) return kFailed;
  return guarded(kFailed, [&] { return record->setMask(mask, size) ? kOk : kRejected; });
}

int ddk_get_motion_region_mask(MotionDetectionRegionHandle* region, const unsigned char** mask,
                               unsigned short* size) {
  if (mask == nullptr || size == nullptr || region == nullptr) {
    if (mask != nullptr) *mask = nullptr;
    if (size != nullptr) *size = 0;
    return kFailed;
  }
  const unsigned char* data = nullptr;
  unsigned bytes = 0;
  record_of(region)->mask(data, bytes);
  if (bytes > kMax16) {
    // A truncated size would make the host read a wrong mask.
    *mask = nullptr;
    *size = 0;
    return kRejected;
  }
  *mask = data;
  *size = static_cast<unsigned short>(bytes);
  return kOk;
}

int ddk_set_motion_region_dimensions(MotionDetectionRegionHandle* region, unsigned int x1,
                                     unsigned int y1, unsigned int x2, unsigned int y2,
                                     const unsigned char* mask, unsigned short size) {
  MotionDetectionRegion* record = record_of(region);
  if (record == nullptr || mask == nullptr) return kFailed;
  if (y1 > y2 || x1 > x2) return kRejected;
  return guarded(kFailed, [&] {
    return record->setDimensions(x1, y1, x2, y2, mask, size) ? kOk : kRejected;
  });
}

int ddk_get_motion_region_coordinates(MotionDetectionRegionHandle* region, unsigned int* x1,
                                      unsigned int* y1, unsigned int* x2, unsigned int* y2) {
  const MotionDetectionRegion* record = record_of(region);
  if (record == nullptr || x1 == nullptr || y1 == nullptr || x2 == nullptr || y2 == nullptr) {
    return kFailed;
  }
  record->coordinates(*x1, *y1, *x2, *y2);
  return kOk;
}

}  // extern "C"
