// Binary-interface facts of the camera-control records, as the host reads
// them: field order and widths, record sizes, vtable slots. On every target.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <type_traits>

#include "support/vtable.h"
#include "vantrel/ddk.h"

using testing_support::offset_in;
using testing_support::vtable_index;
using vantrel::MotionDetectionRegion;
using vantrel::TimeZone;

namespace {

constexpr std::size_t P = sizeof(void*);

template <class T>
T read_at(const void* object, std::size_t offset) {
  T value;
  std::memcpy(&value, static_cast<const char*>(object) + offset, sizeof value);
  return value;
}

// After the vtable pointer: bool, 8-bit, 16-bit, then y1, x1, y2, x2 as
// 32-bit values, then the mask pointer on its natural alignment.
constexpr std::size_t kMaskOffset = (P + 20 + P - 1) / P * P;

TEST(MotionRegionLayout, FieldsInStorageOrder) {
  EXPECT_EQ(sizeof(MotionDetectionRegion), kMaskOffset + P);  // 28 on armhf, 40 on x86-64
  EXPECT_EQ(alignof(MotionDetectionRegion), P);

  MotionDetectionRegion region(false, 42, 0x1234, 3, 5, 4, 12);  // 16 blocks
  const unsigned char bits[] = {0xC3, 0x3C};
  ASSERT_TRUE(region.setMask(bits, 2));
  const unsigned char* mask = nullptr;
  unsigned size = 0;
  region.mask(mask, size);

  EXPECT_EQ(read_at<unsigned char>(&region, P), 0);  // enabled
  EXPECT_EQ(read_at<unsigned char>(&region, P + 1), 42);
  EXPECT_EQ(read_at<unsigned short>(&region, P + 2), 0x1234);
  EXPECT_EQ(read_at<unsigned>(&region, P + 4), 5u);    // y1
  EXPECT_EQ(read_at<unsigned>(&region, P + 8), 3u);    // x1
  EXPECT_EQ(read_at<unsigned>(&region, P + 12), 12u);  // y2
  EXPECT_EQ(read_at<unsigned>(&region, P + 16), 4u);   // x2
  EXPECT_EQ(read_at<const unsigned char*>(&region, kMaskOffset), mask);
  region.setEnable(true);
  EXPECT_EQ(read_at<unsigned char>(&region, P), 1);
  EXPECT_TRUE(region.setMask(nullptr, 0));
  EXPECT_EQ(read_at<const unsigned char*>(&region, kMaskOffset), nullptr);
}

struct RegionWithExtraSlot : MotionDetectionRegion {
  virtual int extra() { return 1; }
};

TEST(MotionRegionVtable, OnlyTheTwoDestructors) {
  EXPECT_TRUE(std::is_polymorphic<MotionDetectionRegion>::value);
  EXPECT_TRUE(std::has_virtual_destructor<MotionDetectionRegion>::value);
  // A derived class's first own virtual lands right after the two destructors.
  EXPECT_EQ(vtable_index(&RegionWithExtraSlot::extra), 2);
  EXPECT_EQ(sizeof(RegionWithExtraSlot), sizeof(MotionDetectionRegion));
}

TEST(TimeZoneLayout, TwoStringsThenFourThirtyTwoBitNumbers) {
  EXPECT_FALSE(std::is_polymorphic<TimeZone>::value);
  const std::size_t S = sizeof(std::string);
  EXPECT_EQ(sizeof(TimeZone), 2 * S + 16);
  TimeZone zone;
  const std::ptrdiff_t offsets[] = {
      offset_in(zone, zone.name),      offset_in(zone, zone.dstName),
      offset_in(zone, zone.gmtOffset), offset_in(zone, zone.dstOffset),
      offset_in(zone, zone.dstStart),  offset_in(zone, zone.dstEnd),
  };
  const std::size_t expected[] = {0, S, 2 * S, 2 * S + 4, 2 * S + 8, 2 * S + 12};
  for (std::size_t i = 0; i < 6; ++i) {
    EXPECT_EQ(offsets[i], static_cast<std::ptrdiff_t>(expected[i])) << "field " << i + 1;
  }
  EXPECT_EQ(sizeof(zone.gmtOffset), 4u);
  EXPECT_TRUE(std::is_signed<decltype(zone.gmtOffset)>::value);
  EXPECT_EQ(zone.gmtOffset | zone.dstOffset | zone.dstStart | zone.dstEnd, 0);
}

TEST(CameraApiWidths, SixteenAndEightBitResults) {
  EXPECT_EQ(sizeof(ddk_get_motion_region_list_size(nullptr)), 2u);
  EXPECT_EQ(sizeof(ddk_get_motion_region_threshold(nullptr)), 2u);
  EXPECT_EQ(sizeof(ddk_get_motion_region_sensitivity(nullptr)), 1u);
  EXPECT_EQ(sizeof(ddk_get_motion_region_enabled(nullptr)), 1u);
  EXPECT_EQ(sizeof(ddk_get_timezone_gmtoffset(nullptr)), 4u);
}

}  // namespace
