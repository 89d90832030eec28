// Binary-interface facts of the event records, on every target: field order
// and widths (offsets given for x86-64, then armhf), and virtual tables that
// hold the two destructors and nothing else.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <new>
#include <string>
#include <type_traits>

#include "support/vtable.h"
#include "vantrel/ddk.h"

using testing_support::offset_in;
using testing_support::vtable_entry;
using testing_support::vtable_index;
using vantrel::AnalyticsEvent;
using vantrel::DiagnosticsEvent;
using vantrel::MotionEvent;
using vantrel::SabotageEvent;

namespace {

constexpr bool k64 = sizeof(void*) == 8;

struct Field {
  const char* name;
  std::ptrdiff_t offset;
  std::size_t size;
  std::size_t expectedSize;
};

template <std::size_t N>
void expect_fields(const Field (&fields)[N], const std::ptrdiff_t (&x86_64)[N],
                   const std::ptrdiff_t (&armhf)[N]) {
  const std::ptrdiff_t* expected = k64 ? x86_64 : armhf;
  for (std::size_t i = 0; i < N; ++i) {
    EXPECT_EQ(fields[i].offset, expected[i]) << fields[i].name;
    EXPECT_EQ(fields[i].size, fields[i].expectedSize) << fields[i].name;
  }
}

#define FIELD(object, f, width) \
  { #f, offset_in(object, object.f), sizeof(object.f), width }

constexpr std::size_t S = sizeof(std::string);

TEST(EventLayout, StringIsFourWordsOfTheCView) {
  // data pointer, length, 16-byte local buffer (or capacity): what a C host mirrors.
  EXPECT_EQ(S, k64 ? 32u : 24u);
  EXPECT_EQ(alignof(std::string), alignof(void*));
}

TEST(DiagnosticsEventLayout, VptrThenTwoBytesThenValue) {
  const DiagnosticsEvent e;
  const Field fields[] = {FIELD(e, byte1, 1), FIELD(e, byte2, 1), FIELD(e, value, 4)};
  expect_fields(fields, {8, 9, 12}, {4, 5, 8});
  EXPECT_EQ(sizeof(DiagnosticsEvent), k64 ? 16u : 12u);
  EXPECT_TRUE((std::is_same<decltype(DiagnosticsEvent::byte1), uint8_t>::value));
  EXPECT_TRUE((std::is_same<decltype(DiagnosticsEvent::value), uint32_t>::value));
  EXPECT_TRUE(std::is_polymorphic<DiagnosticsEvent>::value);
  EXPECT_TRUE(std::has_virtual_destructor<DiagnosticsEvent>::value);
}

TEST(AnalyticsEventLayout, VptrTwoValuesFiveStringsThenFlag) {
  const AnalyticsEvent e;
  const Field fields[] = {
      FIELD(e, value1, 4),  FIELD(e, value2, 4),    FIELD(e, text1, S), FIELD(e, ruleName, S),
      FIELD(e, ruleId, S),  FIELD(e, numericId, S), FIELD(e, text2, S), FIELD(e, flag, 1),
  };
  expect_fields(fields, {8, 12, 16, 48, 80, 112, 144, 176}, {4, 8, 12, 36, 60, 84, 108, 132});
  EXPECT_EQ(sizeof(AnalyticsEvent), k64 ? 184u : 136u);
  EXPECT_TRUE((std::is_same<decltype(AnalyticsEvent::value1), uint32_t>::value));
  EXPECT_TRUE((std::is_same<decltype(AnalyticsEvent::value2), uint32_t>::value));
  EXPECT_TRUE((std::is_same<decltype(AnalyticsEvent::flag), bool>::value));
  EXPECT_TRUE(std::is_polymorphic<AnalyticsEvent>::value);
  EXPECT_TRUE(std::has_virtual_destructor<AnalyticsEvent>::value);
  EXPECT_TRUE(std::is_copy_constructible<AnalyticsEvent>::value);
}

TEST(SabotageEventLayout, AnAnalyticsEventWithItsOwnVtableAndNoFields) {
  EXPECT_TRUE((std::is_base_of<AnalyticsEvent, SabotageEvent>::value));
  EXPECT_TRUE((std::is_convertible<SabotageEvent*, AnalyticsEvent*>::value)) << "public base";
  EXPECT_EQ(sizeof(SabotageEvent), sizeof(AnalyticsEvent));
  const SabotageEvent sabotage(0, 0, "", "");
  const AnalyticsEvent plain;
  const AnalyticsEvent& base = sabotage;
  EXPECT_EQ(static_cast<const void*>(&base), static_cast<const void*>(&sabotage));
  EXPECT_NE(vtable_entry(&sabotage, 0), vtable_entry(&plain, 0)) << "destructor overridden";
}

TEST(MotionEventLayout, ValueThenTwoStringsWithoutVptr) {
  const MotionEvent e;
  const Field fields[] = {FIELD(e, value, 4), FIELD(e, text1, S), FIELD(e, text2, S)};
  expect_fields(fields, {0, 8, 40}, {0, 4, 28});
  EXPECT_EQ(sizeof(MotionEvent), k64 ? 72u : 52u);
  EXPECT_TRUE((std::is_same<decltype(MotionEvent::value), uint32_t>::value));
  EXPECT_FALSE(std::is_polymorphic<MotionEvent>::value);
  EXPECT_TRUE(std::is_copy_constructible<MotionEvent>::value);
}

// A derived record with one virtual operation of its own: it lands right
// after the base's slots, and its destructor counts the calls through them.
template <class Base>
struct Probe : Base {
  template <class... Args>
  explicit Probe(int* destroyed, Args... args) : Base(args...), count(destroyed) {}
  ~Probe() override { ++*count; }
  virtual int own() { return 1; }
  int* count;
};

template <class Record>
class EventVtable : public ::testing::Test {};
using PolymorphicRecords = ::testing::Types<DiagnosticsEvent, AnalyticsEvent>;
TYPED_TEST_SUITE(EventVtable, PolymorphicRecords);

TYPED_TEST(EventVtable, OnlyTheTwoDestructors) {
  EXPECT_EQ(vtable_index(&Probe<TypeParam>::own), 2) << "two slots before the first new one";
}

TYPED_TEST(EventVtable, SlotOneDestroysSlotTwoAlsoFrees) {
  using Dtor = void (*)(void*);
  int destroyed = 0;
  alignas(Probe<TypeParam>) unsigned char storage[sizeof(Probe<TypeParam>)];
  auto* local = new (storage) Probe<TypeParam>(&destroyed);
  reinterpret_cast<Dtor>(vtable_entry(local, 0))(local);  // complete-object destructor
  EXPECT_EQ(destroyed, 1);
  auto* heap = new Probe<TypeParam>(&destroyed);
  reinterpret_cast<Dtor>(vtable_entry(heap, 1))(heap);  // deleting: LeakSanitizer sees a miss
  EXPECT_EQ(destroyed, 2);
}

TEST(SabotageEventVtable, OnlyTheTwoDestructors) {
  struct SabotageProbe : SabotageEvent {
    SabotageProbe() : SabotageEvent(0, 0, "", "") {}
    virtual int own() { return 1; }
  };
  EXPECT_EQ(vtable_index(&SabotageProbe::own), 2);
}

TEST(EventRecordVtable, LibraryRecordsReleaseTheirStringsThroughSlotTwo) {
  using Dtor = void (*)(void*);
  const std::string longText(100, 'x');  // on the heap: a leak would show
  auto* analytics = new AnalyticsEvent(1, 2, longText, longText, longText, longText, longText, true);
  reinterpret_cast<Dtor>(vtable_entry(analytics, 1))(analytics);
  auto* sabotage = new SabotageEvent(1, 2, longText, longText);
  reinterpret_cast<Dtor>(vtable_entry(sabotage, 1))(sabotage);
  auto* diagnostics = new DiagnosticsEvent(1, 2, 3);
  reinterpret_cast<Dtor>(vtable_entry(diagnostics, 1))(diagnostics);
}

}  // namespace
