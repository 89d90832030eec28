// The time zone record filled and read through its handle.
#include <gtest/gtest.h>

#include <climits>
#include <ostream>
#include <string>

#include "vantrel/ddk.h"

using vantrel::TimeZone;

namespace {

TimeZoneHandle* handle(TimeZone& zone) { return reinterpret_cast<TimeZoneHandle*>(&zone); }

struct NameField {
  const char* label;
  std::string TimeZone::*field;
  int (*set)(TimeZoneHandle*, const char*, unsigned);
  const char* (*get)(TimeZoneHandle*);
};

void PrintTo(const NameField& field, std::ostream* os) { *os << field.label; }

class TimeZoneName : public testing::TestWithParam<NameField> {};

TEST_P(TimeZoneName, CopiesExactlyLengthBytes) {
  const NameField& n = GetParam();
  TimeZone zone;
  EXPECT_EQ(n.set(handle(zone), "CETxx", 3), 0);
  EXPECT_EQ(zone.*n.field, "CET");
  EXPECT_EQ(n.get(handle(zone)), (zone.*n.field).c_str());

  EXPECT_EQ(n.set(handle(zone), "a\0b", 3), 0);
  EXPECT_EQ(zone.*n.field, std::string("a\0b", 3));
  EXPECT_STREQ(n.get(handle(zone)), "a");
  EXPECT_TRUE(zone.name.empty() || zone.dstName.empty());  // the other field untouched
}

TEST_P(TimeZoneName, NullTexts) {
  const NameField& n = GetParam();
  TimeZone zone;
  zone.*n.field = "old";
  EXPECT_EQ(n.set(handle(zone), nullptr, 4), -2);
  EXPECT_EQ(zone.*n.field, "old");
  EXPECT_EQ(n.set(nullptr, nullptr, 4), -1);  // the zone is tested first
  EXPECT_EQ(n.set(nullptr, "x", 1), -1);
  EXPECT_EQ(n.set(handle(zone), nullptr, 0), 0);
  EXPECT_EQ(zone.*n.field, "");
  EXPECT_STREQ(n.get(handle(zone)), "");
  EXPECT_EQ(n.get(nullptr), nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    Fields, TimeZoneName,
    testing::Values(NameField{"name", &TimeZone::name, ddk_set_timezone_name, ddk_get_timezone_name},
                    NameField{"dstName", &TimeZone::dstName, ddk_set_timezone_dstname,
                              ddk_get_timezone_dstname}),
    [](const testing::TestParamInfo<NameField>& param) { return std::string(param.param.label); });

TEST(TimeZoneNumbers, EachPairReachesItsOwnFieldUnchanged) {
  const struct {
    int TimeZone::*field;
    void (*set)(TimeZoneHandle*, int);
    int (*get)(TimeZoneHandle*);
  } pairs[] = {
      {&TimeZone::gmtOffset, ddk_set_timezone_gmtoffset, ddk_get_timezone_gmtoffset},
      {&TimeZone::dstOffset, ddk_set_timezone_dstoffset, ddk_get_timezone_dstoffset},
      {&TimeZone::dstStart, ddk_set_timezone_dststart, ddk_get_timezone_dststart},
      {&TimeZone::dstEnd, ddk_set_timezone_dstend, ddk_get_timezone_dstend},
  };
  for (const auto& p : pairs) {
    for (int value : {-3600, INT_MIN, INT_MAX, 0, 7200}) {
      TimeZone zone;
      p.set(handle(zone), value);
      EXPECT_EQ(zone.*p.field, value);
      EXPECT_EQ(p.get(handle(zone)), value);
      int others = 0;
      for (const auto& q : pairs) others += q.field == p.field ? 0 : (zone.*q.field != 0);
      EXPECT_EQ(others, 0);
    }
    p.set(nullptr, 5);
    EXPECT_EQ(p.get(nullptr), 0);
  }
}

}  // namespace
