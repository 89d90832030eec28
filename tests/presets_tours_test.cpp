// Enabled flags of presets and tours: both families behave alike, so every
// case runs over both.
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "vantrel/ddk.h"

namespace {

using Flags = std::vector<bool>;

struct Family {
  const char* name;
  int (*size)(Flags*, unsigned);
  int (*enable)(Flags*, unsigned);
  int (*disable)(Flags*, unsigned);
};

template <class Handle, int (*Fn)(Handle*, unsigned)>
int call(Flags* flags, unsigned value) {
  return Fn(reinterpret_cast<Handle*>(flags), value);
}

void PrintTo(const Family& family, std::ostream* os) { *os << family.name; }

const Family kFamilies[] = {
    {"presets", &call<PresetVectorHandle, ddk_set_preset_vector_size>,
     &call<PresetVectorHandle, ddk_set_preset_enabled>,
     &call<PresetVectorHandle, ddk_set_preset_disabled>},
    {"tours", &call<TourVectorHandle, ddk_set_tour_vector_size>,
     &call<TourVectorHandle, ddk_set_tour_enabled>, &call<TourVectorHandle, ddk_set_tour_disabled>},
};

class FlagVector : public testing::TestWithParam<Family> {};

TEST_P(FlagVector, SizeNGivesNPlusOneFalseFlags) {
  const Family& f = GetParam();
  Flags flags;
  EXPECT_EQ(f.size(&flags, 0), 0);
  EXPECT_EQ(flags, Flags{false});
  EXPECT_EQ(f.enable(&flags, 0), 0);
  EXPECT_EQ(f.enable(&flags, 1), -2);

  EXPECT_EQ(f.size(&flags, 5), 0);
  ASSERT_EQ(flags.size(), 6u);
  for (unsigned i = 0; i <= 5; ++i) EXPECT_EQ(f.disable(&flags, i), 0) << i;
  for (unsigned i : {6u, 7u, 0xFFFFFFFFu}) {
    EXPECT_EQ(f.enable(&flags, i), -2) << i;
    EXPECT_EQ(f.disable(&flags, i), -2) << i;
  }
  EXPECT_EQ(flags, Flags(6, false));
}

TEST_P(FlagVector, GrowingAndShrinkingKeepFlags) {
  const Family& f = GetParam();
  Flags flags(3, false);
  EXPECT_EQ(f.enable(&flags, 0), 0);
  EXPECT_EQ(f.enable(&flags, 2), 0);
  EXPECT_EQ(f.size(&flags, 9), 0);
  EXPECT_EQ(flags, (Flags{true, false, true, false, false, false, false, false, false, false}));

  EXPECT_EQ(f.disable(&flags, 0), 0);
  EXPECT_EQ(f.enable(&flags, 1), 0);
  EXPECT_EQ(f.enable(&flags, 9), 0);
  EXPECT_EQ(f.size(&flags, 1), 0);
  EXPECT_EQ(flags, (Flags{false, true}));
  EXPECT_EQ(f.size(&flags, 1), 0);  // same size: unchanged
  EXPECT_EQ(flags, (Flags{false, true}));

  EXPECT_EQ(f.size(&flags, 0xFFFFFFFFu), 0);  // n + 1 wraps to 0
  EXPECT_TRUE(flags.empty());
  EXPECT_EQ(f.enable(&flags, 0), -2);
}

TEST_P(FlagVector, SettingIsIdempotentAndTouchesOneFlag) {
  const Family& f = GetParam();
  Flags flags(4, false);
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(f.enable(&flags, 2), 0);
    EXPECT_EQ(flags, (Flags{false, false, true, false}));
  }
  flags.flip();
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(f.disable(&flags, 1), 0);
    EXPECT_EQ(flags, (Flags{true, false, false, true}));
  }
}

TEST_P(FlagVector, NullHandleIsMinusOne) {
  const Family& f = GetParam();
  EXPECT_EQ(f.size(nullptr, 3), -1);
  EXPECT_EQ(f.enable(nullptr, 0), -1);
  EXPECT_EQ(f.disable(nullptr, 0xFFFFFFFFu), -1);
}

INSTANTIATE_TEST_SUITE_P(Families, FlagVector, testing::ValuesIn(kFamilies),
                         [](const testing::TestParamInfo<Family>& param) {
                           return std::string(param.param.name);
                         });

}  // namespace
