// Motion detection regions: the record's arithmetic and mask ownership, and
// the C functions over a host-owned list.
#include <gtest/gtest.h>

#include <vector>

#include "vantrel/ddk.h"

using vantrel::MotionDetectionRegion;

namespace {

using Regions = std::vector<MotionDetectionRegion>;

MotionDetectionRegionListHandle* handle(Regions& list) {
  return reinterpret_cast<MotionDetectionRegionListHandle*>(&list);
}
MotionDetectionRegionHandle* handle(MotionDetectionRegion& region) {
  return reinterpret_cast<MotionDetectionRegionHandle*>(&region);
}

struct Corners {
  unsigned x1, y1, x2, y2;
  bool operator==(const Corners& o) const {
    return x1 == o.x1 && y1 == o.y1 && x2 == o.x2 && y2 == o.y2;
  }
};

Corners corners(const MotionDetectionRegion& region) {
  Corners c{};
  region.coordinates(c.x1, c.y1, c.x2, c.y2);
  return c;
}

std::vector<unsigned char> mask_bytes(const MotionDetectionRegion& region) {
  const unsigned char* data = nullptr;
  unsigned size = 0;
  region.mask(data, size);
  return data != nullptr ? std::vector<unsigned char>(data, data + size)
                         : std::vector<unsigned char>();
}

const unsigned char* mask_ptr(const MotionDetectionRegion& region) {
  const unsigned char* data = nullptr;
  unsigned size = 0;
  region.mask(data, size);
  return data;
}

// A region over (0, 0, 2, 2) (9 blocks, 2 mask bytes) holding mask {0xA5, 0x01}.
MotionDetectionRegion masked_3x3() {
  const unsigned char bits[] = {0xA5, 0x01};
  MotionDetectionRegion region;
  EXPECT_TRUE(region.setDimensions(0, 0, 2, 2, bits, 2));
  return region;
}

TEST(MotionRegion, DefaultsCoverOneBlockAtTheOrigin) {
  MotionDetectionRegion region;
  EXPECT_TRUE(region.isEnabled());
  EXPECT_EQ(region.sensitivity(), 100);
  EXPECT_EQ(region.threshold(), 1);
  EXPECT_EQ(corners(region), (Corners{0, 0, 0, 0}));
  EXPECT_EQ(region.macroBlockCount(), 1u);
  EXPECT_EQ(region.maskByteCount(), 1u);
  EXPECT_EQ(mask_ptr(region), nullptr);
}

TEST(MotionRegion, BlockAndByteCountsWrapInThirtyTwoBits) {
  const struct {
    Corners c;
    unsigned blocks, bytes;
  } cases[] = {
      {{0, 0, 7, 0}, 8, 1},
      {{0, 0, 2, 2}, 9, 2},
      {{0, 0, 15, 0}, 16, 2},
      {{0, 0, 16, 0}, 17, 3},
      {{5, 9, 5, 9}, 1, 1},
      {{10, 20, 13, 21}, 8, 1},
      {{0, 0, 0xFFFFFFFFu, 0}, 0, 0},           // width 2^32 wraps to 0
      {{0, 0, 0xFFFFu, 0xFFFFu}, 0, 0},         // 2^16 * 2^16 wraps to 0
      {{0, 0, 0xFFFFu, 0x1FFFFu}, 0, 0},        // 2^16 * 2^17 wraps to 0
      {{1, 0, 0xFFFFFFFFu, 0}, 0xFFFFFFFFu, 0x20000000u},
  };
  for (const auto& t : cases) {
    SCOPED_TRACE(testing::Message() << t.c.x1 << "," << t.c.y1 << "," << t.c.x2 << "," << t.c.y2);
    MotionDetectionRegion region;
    ASSERT_TRUE(region.setDimensions(t.c.x1, t.c.y1, t.c.x2, t.c.y2, nullptr, 0));
    EXPECT_EQ(corners(region), t.c);
    EXPECT_EQ(region.macroBlockCount(), t.blocks);
    EXPECT_EQ(region.maskByteCount(), t.bytes);
    EXPECT_EQ(MotionDetectionRegion::requiredMaskSize(t.c.x1, t.c.y1, t.c.x2, t.c.y2), t.bytes);
  }
  // No order check: x2 - x1 + 1 wraps to 2^32 - 1 blocks.
  EXPECT_EQ(MotionDetectionRegion::requiredMaskSize(2, 0, 0, 0), 0x20000000u);
}

TEST(MotionRegion, SevenArgumentConstructorStoresLowBitsUnclamped) {
  MotionDetectionRegion region(false, 150, 500, 1, 2, 3, 4);
  EXPECT_FALSE(region.isEnabled());
  EXPECT_EQ(region.sensitivity(), 150);
  EXPECT_EQ(region.threshold(), 500);  // above the 9 blocks
  EXPECT_EQ(corners(region), (Corners{1, 2, 3, 4}));
  EXPECT_EQ(mask_ptr(region), nullptr);

  MotionDetectionRegion wide(true, 0x1FF, 0x12345, 0, 0, 0, 0);
  EXPECT_EQ(wide.sensitivity(), 0xFF);
  EXPECT_EQ(wide.threshold(), 0x2345);

  EXPECT_EQ(corners(MotionDetectionRegion(true, 1, 1, 5, 0, 4, 9)), (Corners{0, 0, 0, 0}));
  EXPECT_EQ(corners(MotionDetectionRegion(true, 1, 1, 0, 5, 9, 4)), (Corners{0, 0, 0, 0}));
}

TEST(MotionRegion, SetMaskCopiesExactlyTheByteCount) {
  MotionDetectionRegion region = masked_3x3();
  const unsigned char* before = mask_ptr(region);
  const unsigned char wrong[] = {1, 2, 3};
  EXPECT_FALSE(region.setMask(wrong, 3));
  EXPECT_FALSE(region.setMask(wrong, 1));
  EXPECT_EQ(mask_ptr(region), before);
  EXPECT_EQ(mask_bytes(region), (std::vector<unsigned char>{0xA5, 0x01}));

  unsigned char source[] = {7, 8};
  EXPECT_TRUE(region.setMask(source, 2));
  source[0] = 0;
  EXPECT_EQ(mask_bytes(region), (std::vector<unsigned char>{7, 8}));
  EXPECT_NE(mask_ptr(region), source);

  EXPECT_TRUE(region.setMask(nullptr, 99));
  EXPECT_EQ(mask_ptr(region), nullptr);

  ASSERT_TRUE(region.setMask(source, 2));  // new corners without a mask drop it
  EXPECT_TRUE(region.setDimensions(1, 1, 2, 2, nullptr, 77));
  EXPECT_EQ(corners(region), (Corners{1, 1, 2, 2}));
  EXPECT_EQ(mask_ptr(region), nullptr);
}

TEST(MotionRegion, OwnBufferIsKeptAndNeverOverrun) {
  MotionDetectionRegion region = masked_3x3();
  const unsigned char* own = mask_ptr(region);
  EXPECT_TRUE(region.setMask(own, 12345));  // the very buffer: nothing to do
  EXPECT_EQ(mask_ptr(region), own);
  // Two bytes from the middle of a two-byte buffer would read past its end.
  EXPECT_FALSE(region.setMask(own + 1, 2));
  EXPECT_EQ(mask_bytes(region), (std::vector<unsigned char>{0xA5, 0x01}));

  // Same byte count under new corners: the buffer stays.
  EXPECT_TRUE(region.setDimensions(4, 4, 7, 7, own, 2));
  EXPECT_EQ(mask_ptr(region), own);
  EXPECT_EQ(corners(region), (Corners{4, 4, 7, 7}));
  // A different byte count: refused, corners and mask kept.
  EXPECT_FALSE(region.setDimensions(0, 0, 16, 0, own, 3));
  EXPECT_FALSE(region.setDimensions(0, 0, 7, 0, own, 1));
  EXPECT_EQ(corners(region), (Corners{4, 4, 7, 7}));
  EXPECT_EQ(mask_bytes(region), (std::vector<unsigned char>{0xA5, 0x01}));
}

TEST(MotionRegion, RefusedDimensionsKeepCornersAndMask) {
  const unsigned char three[] = {1, 2, 3};
  const struct {
    Corners c;
    const unsigned char* mask;
    unsigned size;
  } refused[] = {
      {{3, 0, 2, 5}, nullptr, 0},  // x1 > x2
      {{0, 3, 5, 2}, nullptr, 0},  // y1 > y2
      {{0, 0, 16, 0}, three, 2},   // 17 blocks need 3 bytes
      {{0, 0, 7, 0}, three, 3},    // 8 blocks need 1 byte
  };
  for (const auto& t : refused) {
    MotionDetectionRegion region = masked_3x3();
    const unsigned char* before = mask_ptr(region);
    EXPECT_FALSE(region.setDimensions(t.c.x1, t.c.y1, t.c.x2, t.c.y2, t.mask, t.size));
    EXPECT_EQ(corners(region), (Corners{0, 0, 2, 2}));
    EXPECT_EQ(mask_ptr(region), before);
    EXPECT_EQ(mask_bytes(region), (std::vector<unsigned char>{0xA5, 0x01}));
  }
}

TEST(MotionRegion, CopiesOwnIndependentBuffers) {
  MotionDetectionRegion original = masked_3x3();
  original.setSensitivity(33);
  MotionDetectionRegion copy(original);
  EXPECT_NE(mask_ptr(copy), mask_ptr(original));
  EXPECT_EQ(mask_bytes(copy), mask_bytes(original));
  EXPECT_EQ(corners(copy), corners(original));
  EXPECT_EQ(copy.sensitivity(), 33);
  const unsigned char other[] = {0, 0};
  ASSERT_TRUE(original.setMask(other, 2));
  EXPECT_EQ(mask_bytes(copy), (std::vector<unsigned char>{0xA5, 0x01}));

  MotionDetectionRegion assigned(false, 5, 6, 0, 0, 15, 0);
  assigned = copy;
  EXPECT_TRUE(assigned.isEnabled());
  EXPECT_EQ(assigned.threshold(), copy.threshold());
  EXPECT_EQ(corners(assigned), (Corners{0, 0, 2, 2}));
  EXPECT_NE(mask_ptr(assigned), mask_ptr(copy));
  EXPECT_EQ(mask_bytes(assigned), mask_bytes(copy));

  assigned = MotionDetectionRegion();  // maskless source releases the mask
  EXPECT_EQ(mask_ptr(assigned), nullptr);
  EXPECT_EQ(corners(assigned), (Corners{0, 0, 0, 0}));

  const unsigned char* own = mask_ptr(copy);
  MotionDetectionRegion& self = copy;
  copy = self;
  EXPECT_EQ(mask_ptr(copy), own);
}

// --- C functions ---------------------------------------------------------

TEST(MotionRegionApi, AppendGivesDefaultsAndHandlesMustBeRefetched) {
  Regions list;
  EXPECT_EQ(ddk_get_motion_region_list_size(handle(list)), 0u);
  MotionDetectionRegionHandle* first = ddk_append_motion_region(handle(list));
  ASSERT_EQ(first, handle(list[0]));
  EXPECT_EQ(ddk_set_motion_region_sensitivity(first, 42), 0);
  EXPECT_EQ(ddk_get_motion_region_enabled(first), 1);
  EXPECT_EQ(ddk_set_motion_region_disabled(first), 0);
  EXPECT_EQ(ddk_get_motion_region_enabled(first), 0);
  EXPECT_EQ(ddk_set_motion_region_enabled(first), 0);
  EXPECT_TRUE(list[0].isEnabled());
  for (int i = 0; i < 40; ++i) ASSERT_NE(ddk_append_motion_region(handle(list)), nullptr);
  EXPECT_EQ(ddk_get_motion_region_list_size(handle(list)), 41u);
  MotionDetectionRegionHandle* again = ddk_get_motion_region_at(handle(list), 0);
  EXPECT_EQ(again, handle(list[0]));
  EXPECT_EQ(ddk_get_motion_region_sensitivity(again), 42);
  EXPECT_EQ(ddk_get_motion_region_sensitivity(ddk_get_motion_region_at(handle(list), 40)), 100);
  EXPECT_EQ(ddk_get_motion_region_at(handle(list), 41), nullptr);
  EXPECT_EQ(ddk_get_motion_region_at(handle(list), 0xFFFFFFFFu), nullptr);
  EXPECT_EQ(ddk_get_motion_region_at(nullptr, 0), nullptr);
  EXPECT_EQ(ddk_append_motion_region(nullptr), nullptr);
  EXPECT_EQ(ddk_get_motion_region_list_size(nullptr), 0u);
}

TEST(MotionRegionApi, ListStopsAtTheSixteenBitBoundary) {
  Regions list(65534);
  EXPECT_NE(ddk_append_motion_region(handle(list)), nullptr);
  EXPECT_EQ(ddk_get_motion_region_list_size(handle(list)), 65535u);
  EXPECT_EQ(ddk_append_motion_region(handle(list)), nullptr);
  EXPECT_EQ(list.size(), 65535u);
  list.resize(65537);  // built by the host directly
  EXPECT_EQ(ddk_get_motion_region_list_size(handle(list)), 65535u);
  EXPECT_EQ(ddk_get_motion_region_at(handle(list), 65536), handle(list[65536]));
}

TEST(MotionRegionApi, ClampingSettersAnswerMinusTwo) {
  MotionDetectionRegion region(true, 50, 1, 0, 0, 2, 2);  // 9 blocks
  const struct {
    unsigned given;
    int thresholdResult;
    unsigned short threshold;
    int sensitivityResult;
    unsigned char sensitivity;
  } cases[] = {
      {0, 0, 0, 0, 0},       {9, 0, 9, 0, 9},        {10, -2, 9, 0, 10},
      {100, -2, 9, 0, 100},  {101, -2, 9, -2, 100},  {0xFFFFFFFFu, -2, 9, -2, 100},
  };
  for (const auto& t : cases) {
    EXPECT_EQ(ddk_set_motion_region_threshold(handle(region), t.given), t.thresholdResult) << t.given;
    EXPECT_EQ(ddk_get_motion_region_threshold(handle(region)), t.threshold) << t.given;
    EXPECT_EQ(ddk_set_motion_region_sensitivity(handle(region), t.given), t.sensitivityResult) << t.given;
    EXPECT_EQ(ddk_get_motion_region_sensitivity(handle(region)), t.sensitivity) << t.given;
  }
}

TEST(MotionRegionApi, NullRegionGivesFailureValues) {
  const unsigned char bits[] = {1};
  unsigned v = 0;
  EXPECT_EQ(ddk_set_motion_region_enabled(nullptr), -1);
  EXPECT_EQ(ddk_set_motion_region_disabled(nullptr), -1);
  EXPECT_EQ(ddk_get_motion_region_enabled(nullptr), 0);
  EXPECT_EQ(ddk_set_motion_region_threshold(nullptr, 1), -1);
  EXPECT_EQ(ddk_get_motion_region_threshold(nullptr), 0);
  EXPECT_EQ(ddk_set_motion_region_sensitivity(nullptr, 101), -1);
  EXPECT_EQ(ddk_get_motion_region_sensitivity(nullptr), 0);
  EXPECT_EQ(ddk_set_motion_region_mask(nullptr, bits, 1), -1);
  EXPECT_EQ(ddk_set_motion_region_dimensions(nullptr, 2, 0, 0, 0, bits, 1), -1);
  EXPECT_EQ(ddk_get_motion_region_coordinates(nullptr, &v, &v, &v, &v), -1);
}

TEST(MotionRegionApi, MaskRoundTripAndRelease) {
  MotionDetectionRegion region;
  const unsigned char* data = reinterpret_cast<const unsigned char*>(1);
  unsigned short size = 7;
  EXPECT_EQ(ddk_get_motion_region_mask(handle(region), &data, &size), 0);
  EXPECT_EQ(data, nullptr);
  EXPECT_EQ(size, 0);

  const unsigned char bits[] = {0x80};
  EXPECT_EQ(ddk_set_motion_region_mask(handle(region), bits, 2), -2);
  EXPECT_EQ(ddk_set_motion_region_mask(handle(region), bits, 1), 0);
  EXPECT_EQ(ddk_get_motion_region_mask(handle(region), &data, &size), 0);
  EXPECT_EQ(data, mask_ptr(region));
  EXPECT_EQ(size, 1);
  EXPECT_EQ(data[0], 0x80);
  EXPECT_EQ(ddk_set_motion_region_mask(handle(region), nullptr, 5), 0);
  EXPECT_EQ(mask_ptr(region), nullptr);
}

TEST(MotionRegionApi, GetMaskChecksOutPointersBeforeTheRegion) {
  MotionDetectionRegion region = masked_3x3();
  const unsigned char* const sentinel = reinterpret_cast<const unsigned char*>(1);
  const struct {
    bool region, maskOut, sizeOut;
    bool maskCleared, sizeCleared;
  } cases[] = {
      {true, false, true, false, true},  {true, true, false, true, false},
      {true, false, false, false, false}, {false, false, true, false, true},
      {false, true, false, true, false}, {false, true, true, true, true},
  };
  for (const auto& t : cases) {
    const unsigned char* data = sentinel;
    unsigned short size = 7;
    EXPECT_EQ(ddk_get_motion_region_mask(t.region ? handle(region) : nullptr,
                                         t.maskOut ? &data : nullptr, t.sizeOut ? &size : nullptr),
              -1);
    EXPECT_EQ(data, t.maskCleared ? nullptr : sentinel);
    EXPECT_EQ(size, t.sizeCleared ? 0 : 7);
  }
}

TEST(MotionRegionApi, MaskBeyondSixteenBitsIsNotReportedTruncated) {
  MotionDetectionRegion region;
  ASSERT_TRUE(region.setDimensions(0, 0, 8 * 65536 - 1, 0, nullptr, 0));  // 65536 bytes
  std::vector<unsigned char> big(65536, 0x5A);
  ASSERT_EQ(ddk_set_motion_region_mask(handle(region), big.data(), 65536), 0);
  const unsigned char* data = big.data();
  unsigned short size = 7;
  EXPECT_EQ(ddk_get_motion_region_mask(handle(region), &data, &size), -2);
  EXPECT_EQ(data, nullptr);
  EXPECT_EQ(size, 0);
}

TEST(MotionRegionApi, DimensionsAndCoordinates) {
  MotionDetectionRegion region = masked_3x3();
  const unsigned char* before = mask_ptr(region);
  const unsigned char three[] = {1, 2, 3};
  EXPECT_EQ(ddk_set_motion_region_dimensions(handle(region), 0, 0, 4, 4, nullptr, 4), -1);
  EXPECT_EQ(ddk_set_motion_region_dimensions(handle(region), 5, 0, 4, 0, three, 1), -2);
  EXPECT_EQ(ddk_set_motion_region_dimensions(handle(region), 0, 5, 0, 4, three, 1), -2);
  EXPECT_EQ(ddk_set_motion_region_dimensions(handle(region), 0, 0, 16, 0, three, 2), -2);
  EXPECT_EQ(corners(region), (Corners{0, 0, 2, 2}));
  EXPECT_EQ(mask_ptr(region), before);

  EXPECT_EQ(ddk_set_motion_region_dimensions(handle(region), 3, 1, 19, 1, three, 3), 0);
  unsigned x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  EXPECT_EQ(ddk_get_motion_region_coordinates(handle(region), &x1, &y1, &x2, &y2), 0);
  EXPECT_EQ((Corners{x1, y1, x2, y2}), (Corners{3, 1, 19, 1}));
  EXPECT_EQ(mask_bytes(region), (std::vector<unsigned char>{1, 2, 3}));

  unsigned outs[4] = {9, 9, 9, 9};
  for (int missing = 0; missing < 4; ++missing) {
    unsigned* p[4] = {&outs[0], &outs[1], &outs[2], &outs[3]};
    p[missing] = nullptr;
    EXPECT_EQ(ddk_get_motion_region_coordinates(handle(region), p[0], p[1], p[2], p[3]), -1);
  }
  for (unsigned v : outs) EXPECT_EQ(v, 9u);
}

}  // namespace
