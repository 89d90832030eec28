// Allocation failures in the camera control families: region appends and
// masks, flag vectors and time zone names complete or give their failure
// value with the list, region, vector or record exactly as before.
#include <gtest/gtest.h>

#include <new>
#include <string>
#include <vector>

#include "oom_cases.h"
#include "vantrel/ddk.h"

using vantrel::MotionDetectionRegion;
using vantrel::TimeZone;

namespace {

const unsigned char kMask[2] = {0xA5, 0x01};   // 3 x 3 blocks
const unsigned char kWide[3] = {0x11, 0x22, 0x33};  // 17 x 1 blocks

void expect_masked(const MotionDetectionRegion& r, unsigned x2, unsigned y2, const unsigned char* bytes,
                   unsigned size) {
  unsigned a = 9, b = 9, c = 0, d = 0;
  r.coordinates(a, b, c, d);
  EXPECT_EQ(a, 0u);
  EXPECT_EQ(b, 0u);
  EXPECT_EQ(c, x2);
  EXPECT_EQ(d, y2);
  const unsigned char* data = nullptr;
  unsigned n = 0;
  r.mask(data, n);
  ASSERT_EQ(n, size);
  ASSERT_NE(data, nullptr);
  EXPECT_EQ(std::vector<unsigned char>(data, data + n), std::vector<unsigned char>(bytes, bytes + size));
}

MotionDetectionRegion masked_region() {
  MotionDetectionRegion r;
  EXPECT_TRUE(r.setDimensions(0, 0, 2, 2, kMask, 2));
  return r;
}

TEST(CameraAllocationFailure, RegionAppendCopiesEveryMaskOrNothing) {
  std::vector<MotionDetectionRegion> list;
  MotionDetectionRegionHandle* added = nullptr;
  oom_cases::expect_all_or_nothing(
      "append", [&] { list = oom_cases::full_vector(std::vector<MotionDetectionRegion>(2, masked_region())); },
      [&] { return (added = ddk_append_motion_region(reinterpret_cast<MotionDetectionRegionListHandle*>(&list))) != nullptr; },
      [&] {
        ASSERT_EQ(list.size(), 2u);
        for (const auto& r : list) expect_masked(r, 2, 2, kMask, 2);
      });
  ASSERT_EQ(list.size(), 3u);
  EXPECT_EQ(added, reinterpret_cast<MotionDetectionRegionHandle*>(&list[2]));
  expect_masked(list[0], 2, 2, kMask, 2);
}

TEST(CameraAllocationFailure, MaskAndDimensionsKeepTheRegion) {
  MotionDetectionRegion region;
  auto* h = reinterpret_cast<MotionDetectionRegionHandle*>(&region);
  const unsigned char other[2] = {0x5A, 0x00};
  int result = 0;
  oom_cases::expect_all_or_nothing(
      "mask", [&] { region = masked_region(); }, [&] { return (result = ddk_set_motion_region_mask(h, other, 2)) == 0; },
      [&] {
        EXPECT_EQ(result, -1);
        expect_masked(region, 2, 2, kMask, 2);
      });
  expect_masked(region, 2, 2, other, 2);
  oom_cases::expect_all_or_nothing(
      "dimensions", [&] { region = masked_region(); },
      [&] { return (result = ddk_set_motion_region_dimensions(h, 0, 0, 16, 0, kWide, 3)) == 0; },
      [&] {
        EXPECT_EQ(result, -1);
        expect_masked(region, 2, 2, kMask, 2);  // old corners and old mask
      });
  expect_masked(region, 16, 0, kWide, 3);
  // The class's own assignment: std::bad_alloc passes, the target stays.
  MotionDetectionRegion target;
  const MotionDetectionRegion source = masked_region();
  oom_cases::expect_all_or_nothing(
      "assignment", [&] { target = MotionDetectionRegion(); target.setDimensions(0, 0, 16, 0, kWide, 3); },
      [&] {
        try {
          target = source;
          return true;
        } catch (const std::bad_alloc&) {
          return false;
        }
      },
      [&] { expect_masked(target, 16, 0, kWide, 3); });
  expect_masked(target, 2, 2, kMask, 2);
}

// Sizing answers only the null handle; a failure to grow reaches the caller
// with the vector unchanged.
TEST(CameraAllocationFailure, FlagVectorGrowsOrThrowsUnchanged) {
  using Size = int (*)(std::vector<bool>&, unsigned);
  const Size sizes[] = {
      [](std::vector<bool>& v, unsigned n) { return ddk_set_preset_vector_size(reinterpret_cast<PresetVectorHandle*>(&v), n); },
      [](std::vector<bool>& v, unsigned n) { return ddk_set_tour_vector_size(reinterpret_cast<TourVectorHandle*>(&v), n); }};
  for (Size size : sizes) {
    std::vector<bool> flags;
    const std::vector<bool> before{false, true, true};
    int result = 0;
    bool threw = false;
    oom_cases::expect_all_or_nothing(
        "resize", [&] { flags = before; flags.shrink_to_fit(); threw = false; },
        [&] {
          try {
            return (result = size(flags, 200)) == 0;
          } catch (const std::bad_alloc&) {
            threw = true;
            return false;
          }
        },
        [&] {
          EXPECT_TRUE(threw);
          EXPECT_EQ(flags, before);
        });
    EXPECT_EQ(result, 0);
    EXPECT_EQ(flags.size(), 201u);
    EXPECT_TRUE(flags[2]);
  }
}

TEST(CameraAllocationFailure, TimeZoneNamesKeepTheOldText) {
  const std::string kOld(50, 'o');
  const std::string kNew = "Europe/" + std::string(50, 'n');
  using Set = int (*)(TimeZoneHandle*, const char*, unsigned);
  const std::pair<Set, std::string TimeZone::*> setters[] = {{ddk_set_timezone_name, &TimeZone::name},
                                                             {ddk_set_timezone_dstname, &TimeZone::dstName}};
  for (const auto& s : setters) {
    TimeZone zone;
    int result = 0;
    oom_cases::expect_all_or_nothing(
        "time zone name", [&] { std::string(kOld).swap(zone.*s.second); },
        [&] {
          return (result = s.first(reinterpret_cast<TimeZoneHandle*>(&zone), kNew.data(),
                                   static_cast<unsigned>(kNew.size()))) == 0;
        },
        [&] {
          EXPECT_EQ(result, -2);
          EXPECT_EQ(zone.*s.second, kOld);
        });
    EXPECT_EQ(zone.*s.second, kNew);
  }
}

// Index failures are told from handle failures even when memory is short.
TEST(CameraAllocationFailure, FailureValuesDoNotDependOnMemory) {
  static std::vector<bool> flags(3);
  auto* presets = reinterpret_cast<PresetVectorHandle*>(&flags);
  auto* tours = reinterpret_cast<TourVectorHandle*>(&flags);
  const oom_cases::NullCase cases[] = {
      {"preset index", -2, [=] { return ddk_set_preset_enabled(presets, 3); }},
      {"preset index disabled", -2, [=] { return ddk_set_preset_disabled(presets, 0xFFFFFFFFu); }},
      {"tour index", -2, [=] { return ddk_set_tour_enabled(tours, 7); }},
      {"tour index disabled", -2, [=] { return ddk_set_tour_disabled(tours, 3); }},
      {"null presets", -1, [] { return ddk_set_preset_enabled(nullptr, 0); }},
      {"null tour size", -1, [] { return ddk_set_tour_vector_size(nullptr, 4); }},
      {"null time zone", -1, [] { return ddk_set_timezone_name(nullptr, "UTC", 3); }},
      {"null region list", 0, [] { return ddk_append_motion_region(nullptr) == nullptr ? 0 : 1; }},
  };
  oom_cases::expect_null_cases(cases);
}

}  // namespace
