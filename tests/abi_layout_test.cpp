// Binary-interface facts of the frame: record layouts and vtable slots.
// These run on every target; pointer-sized means 4 bytes on armhf, 8 on x86-64.
#include <gtest/gtest.h>

#include <cstddef>
#include <type_traits>

#include "support/vtable.h"
#include "vantrel/ddk.h"

using testing_support::vtable_entry;
using testing_support::offset_in;
using testing_support::vtable_index;
using vantrel::ddk::IPlugin;

namespace {

constexpr std::size_t P = sizeof(void*);

TEST(ServiceProviderLayout, FifteenPointerFieldsInOrder) {
  EXPECT_EQ(sizeof(DDKServiceProvider), 15 * P);
  const std::size_t offsets[] = {
      offsetof(DDKServiceProvider, alarmCallback),
      offsetof(DDKServiceProvider, audioStateCallback),
      offsetof(DDKServiceProvider, motionCallback),
      offsetof(DDKServiceProvider, motionDetectionStateCallback),
      offsetof(DDKServiceProvider, analyticsCallback),
      offsetof(DDKServiceProvider, diagnosticsCallback),
      offsetof(DDKServiceProvider, refreshDdfCallback),
      offsetof(DDKServiceProvider, logCallback),
      offsetof(DDKServiceProvider, alarmContext),
      offsetof(DDKServiceProvider, audioContext),
      offsetof(DDKServiceProvider, motionContext),
      offsetof(DDKServiceProvider, analyticsContext),
      offsetof(DDKServiceProvider, diagnosticsContext),
      offsetof(DDKServiceProvider, refreshDdfContext),
      offsetof(DDKServiceProvider, logContext),
  };
  for (std::size_t i = 0; i < 15; ++i) EXPECT_EQ(offsets[i], i * P) << "field " << i + 1;
  EXPECT_TRUE(std::is_standard_layout<DDKServiceProvider>::value);
  EXPECT_TRUE(std::is_trivial<DDKServiceProvider>::value);
}

TEST(ErrorLayout, MessageThenThirtyTwoBitCode) {
  EXPECT_EQ(offsetof(DDKError, message), 0u);
  EXPECT_EQ(offsetof(DDKError, code), P);
  EXPECT_EQ(sizeof(DDKError::code), 4u);
  EXPECT_EQ(sizeof(DDKError), 2 * P);
  EXPECT_TRUE(std::is_trivial<DDKError>::value);
}

TEST(BoolLayout, OneUnsignedByte) {
  EXPECT_EQ(sizeof(ddk_bool), 1u);
  EXPECT_TRUE(std::is_unsigned<ddk_bool>::value);
}

TEST(AlarmEventLayout, SixteenPlainBytesFourAligned) {
  EXPECT_EQ(sizeof(AlarmEvent), 16u);
  EXPECT_EQ(alignof(AlarmEvent), 4u);
  EXPECT_TRUE(std::is_trivially_copyable<AlarmEvent>::value);
  EXPECT_TRUE(std::is_standard_layout<AlarmEvent>::value);
}

TEST(ParameterListLayout, EntryIsFourWordsHeaderTwo) {
  EXPECT_EQ(offsetof(PluginEntry, param1), 0u);
  EXPECT_EQ(offsetof(PluginEntry, param2), P);
  EXPECT_EQ(offsetof(PluginEntry, param3), 2 * P);
  EXPECT_EQ(offsetof(PluginEntry, next), 3 * P);
  EXPECT_EQ(sizeof(PluginEntry), 4 * P);
  EXPECT_EQ(offsetof(PluginParameters, head), P);
  EXPECT_EQ(sizeof(PluginParameters), 2 * P);
}

struct Probe : IPlugin {
  int initCalls = 0;
  int shutdownCalls = 0;
  DDKError* doInit() override {
    ++initCalls;
    return nullptr;
  }
  void doShutdown() override { ++shutdownCalls; }
};

TEST(PluginLayout, VptrThenTableThenTwoFlags) {
  EXPECT_TRUE(std::is_polymorphic<IPlugin>::value);
  EXPECT_TRUE(std::is_abstract<IPlugin>::value);
  Probe probe;
  const IPlugin& base = probe;
  EXPECT_EQ(offset_in(base, base.serviceProvider), static_cast<std::ptrdiff_t>(P));
  EXPECT_EQ(offset_in(base, base.initialized), static_cast<std::ptrdiff_t>(2 * P));
  EXPECT_EQ(offset_in(base, base.shutDown), static_cast<std::ptrdiff_t>(2 * P + 1));
  EXPECT_EQ(sizeof(base.initialized), 1u);
  EXPECT_EQ(sizeof(IPlugin), 3 * P);
}

TEST(PluginVtable, HooksAreSlotsThreeAndFour) {
  // Slots counted from 1 with the two destructors first; indexes from 0.
  EXPECT_EQ(vtable_index(&IPlugin::doInit), 2);
  EXPECT_EQ(vtable_index(&IPlugin::doShutdown), 3);
}

TEST(PluginVtable, CallingThroughTheSlotsReachesTheOverrides) {
  Probe probe;
  IPlugin& base = probe;
  using InitFn = DDKError* (*)(IPlugin*);
  using ShutdownFn = void (*)(IPlugin*);
  auto init = reinterpret_cast<InitFn>(vtable_entry(&base, 2));
  auto shut = reinterpret_cast<ShutdownFn>(vtable_entry(&base, 3));
  EXPECT_EQ(init(&base), nullptr);
  shut(&base);
  EXPECT_EQ(probe.initCalls, 1);
  EXPECT_EQ(probe.shutdownCalls, 1);
}

TEST(InvalidHandleExceptionLayout, AddsNoFields) {
  EXPECT_EQ(sizeof(vantrel::InvalidHandleException), sizeof(std::runtime_error));
  EXPECT_TRUE((std::is_base_of<std::runtime_error, vantrel::InvalidHandleException>::value));
}

}  // namespace
