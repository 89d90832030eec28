// Handle conversions of the camera-control records.
#pragma once

#include <vector>

#include "barrier.h"
#include "vantrel/api/handles.h"
#include "vantrel/model/motion_detection_region.h"
#include "vantrel/model/time_zone.h"

namespace vantrel::ddk::internal {

VANTREL_DDK_HANDLE(std::vector<vantrel::MotionDetectionRegion>, MotionDetectionRegionListHandle)
VANTREL_DDK_HANDLE(vantrel::MotionDetectionRegion, MotionDetectionRegionHandle)
VANTREL_DDK_HANDLE(vantrel::TimeZone, TimeZoneHandle)
VANTREL_DDK_HANDLE(std::vector<bool>, PresetVectorHandle)

// Tours share the presets' record type; a namespace of their own keeps the
// two wrap(std::vector<bool>*) overloads apart.
namespace tours {
VANTREL_DDK_HANDLE(std::vector<bool>, TourVectorHandle)
}  // namespace tours
using tours::record_of;
using tours::unwrap;

}  // namespace vantrel::ddk::internal
