// Error records, the boolean, byte-counted strings, handle conversion and the
// plug-in life cycle.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>

#include "barrier.h"
#include "support/recording_host.h"
#include "vantrel/ddk.h"

using testing_support::RecordingHost;
using vantrel::ddk::IPlugin;

namespace {

struct ErrorDeleter {
  void operator()(DDKError* e) const { ddk_free_error(e); }
};
using ErrorPtr = std::unique_ptr<DDKError, ErrorDeleter>;

TEST(DDKErrorRecord, CopiesTextAndCode) {
  char buffer[] = "camera offline";
  const int code = -12345;
  ErrorPtr error(ddk_new_error(buffer, &code));
  ASSERT_NE(error, nullptr);
  std::strcpy(buffer, "XXXXXXXXXXXXX");
  EXPECT_STREQ(error->message, "camera offline");
  EXPECT_NE(error->message, buffer);
  EXPECT_EQ(error->code, -12345);
}

TEST(DDKErrorRecord, NullMessageGivesUnknownError) {
  const int code = 7;
  ErrorPtr error(ddk_new_error(nullptr, &code));
  ASSERT_NE(error, nullptr);
  EXPECT_STREQ(error->message, "Unknown error");
  EXPECT_EQ(error->code, 7);
}

TEST(DDKErrorRecord, NullCodeGivesZero) {
  ErrorPtr error(ddk_new_error("x", nullptr));
  ASSERT_NE(error, nullptr);
  EXPECT_EQ(error->code, 0);
}

TEST(DDKErrorRecord, FreeAcceptsNullAndNullMessage) {
  ddk_free_error(nullptr);
  auto* error = static_cast<DDKError*>(std::malloc(sizeof(DDKError)));
  error->message = nullptr;
  error->code = 0;
  ddk_free_error(error);  // a record whose text copy failed
}

TEST(DDKBool, Conversions) {
  EXPECT_EQ(vantrel::to_ddk_bool(true), 1);
  EXPECT_EQ(vantrel::to_ddk_bool(false), 0);
  EXPECT_FALSE(vantrel::from_ddk_bool(0));
  for (unsigned v : {1u, 2u, 127u, 128u, 255u}) {
    EXPECT_TRUE(vantrel::from_ddk_bool(static_cast<unsigned char>(v))) << v;
  }
}

TEST(CreateStdString, CopiesExactlyLengthBytes) {
  const char withNul[] = {'a', '\0', 'b'};
  struct Case {
    const char* text;
    unsigned length;
    std::string expected;
  } cases[] = {
      {"abc", 2, "ab"},
      {withNul, 3, std::string("a\0b", 3)},
      {nullptr, 5, ""},
      {"abc", 0, ""},
      {"abc", 3, "abc"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(vantrel::create_std_string(c.text, c.length), c.expected) << c.length;
  }
}

TEST(FromHandle, NullThrowsWithFixedText) {
  try {
    vantrel::from_handle<std::string>(static_cast<StringHandle*>(nullptr));
    FAIL() << "no exception";
  } catch (const vantrel::InvalidHandleException& e) {
    EXPECT_STREQ(e.what(), "DDK Handle is NULL, unable to cast");
    // Catchable as its base, as plug-ins may do.
    const std::runtime_error& base = e;
    EXPECT_STREQ(base.what(), "DDK Handle is NULL, unable to cast");
  }
  EXPECT_STREQ(vantrel::InvalidHandleException().what(), "DDK Handle is NULL, unable to cast");
}

TEST(FromHandle, LiteralNullptrCompilesAndThrows) {
  EXPECT_THROW(vantrel::from_handle<int>(nullptr), vantrel::InvalidHandleException);
  EXPECT_THROW(vantrel::from_handle<std::string>(nullptr), vantrel::InvalidHandleException);
}

TEST(FromHandle, NonNullReturnsTheRecordItself) {
  std::string record = "x";
  auto* handle = reinterpret_cast<StringHandle*>(&record);
  EXPECT_EQ(&vantrel::from_handle<std::string>(handle), &record);
}

TEST(Barrier, ConvertsEveryExceptionToTheFailureValue) {
  using namespace vantrel::ddk::internal;
  EXPECT_EQ(guarded(kFailed, [] { return kOk; }), kOk);
  EXPECT_EQ(guarded(kFailed, []() -> int { throw std::bad_alloc(); }), kFailed);
  EXPECT_EQ(guarded(kFailed, []() -> int { throw 5; }), kFailed);
  EXPECT_EQ(guarded(kFailed, kRejected, []() -> int { throw std::out_of_range("i"); }), kRejected);
  EXPECT_EQ(guarded(kFailed, kRejected, []() -> int { throw vantrel::InvalidHandleException(); }),
            kFailed);
  EXPECT_EQ(guarded(nullptr, []() -> const char* { throw 1; }), nullptr);
  bool ran = false;
  guarded_void([&] {
    ran = true;
    throw 1;
  });
  EXPECT_TRUE(ran);
}

// --- Plug-in life cycle ------------------------------------------------------

struct ScriptedPlugin : IPlugin {
  enum class Init { Succeed, ReturnError, ThrowStd, ThrowInt };
  enum class Shutdown { Succeed, ThrowStd, ThrowInt };
  Init initMode = Init::Succeed;
  Shutdown shutdownMode = Shutdown::Succeed;
  int doInitCalls = 0;
  int doShutdownCalls = 0;
  DDKServiceProvider* providerSeenInHook = nullptr;

  DDKError* doInit() override {
    ++doInitCalls;
    providerSeenInHook = serviceProvider;
    const int code = 99;
    switch (initMode) {
      case Init::Succeed: return nullptr;
      case Init::ReturnError: return ddk_new_error("refused", &code);
      case Init::ThrowStd: throw std::runtime_error("sensor not found");
      case Init::ThrowInt: throw 42;
    }
    return nullptr;
  }
  void doShutdown() override {
    ++doShutdownCalls;
    if (shutdownMode == Shutdown::ThrowStd) throw std::logic_error("stuck motor");
    if (shutdownMode == Shutdown::ThrowInt) throw 7;
  }
};

TEST(PluginLifeCycle, ConstructionClearsFields) {
  ScriptedPlugin plugin;
  EXPECT_EQ(plugin.serviceProvider, nullptr);
  EXPECT_FALSE(plugin.initialized);
  EXPECT_FALSE(plugin.shutDown);
}

TEST(PluginLifeCycle, SecondInitKeepsFirstTableAndSkipsHook) {
  RecordingHost first, second;
  ScriptedPlugin plugin;
  EXPECT_EQ(plugin.init(&first.table), nullptr);
  EXPECT_EQ(plugin.providerSeenInHook, &first.table);  // stored before the hook
  EXPECT_TRUE(plugin.initialized);
  EXPECT_EQ(plugin.init(&second.table), nullptr);
  EXPECT_EQ(plugin.doInitCalls, 1);
  EXPECT_EQ(plugin.serviceProvider, &first.table);
}

TEST(PluginLifeCycle, ReturnedErrorReachesHostUnchanged) {
  RecordingHost host;
  ScriptedPlugin plugin;
  plugin.initMode = ScriptedPlugin::Init::ReturnError;
  ErrorPtr error(plugin.init(&host.table));
  ASSERT_NE(error, nullptr);
  EXPECT_STREQ(error->message, "refused");
  EXPECT_EQ(error->code, 99);
  EXPECT_FALSE(plugin.initialized);
  EXPECT_EQ(plugin.serviceProvider, &host.table);
  EXPECT_TRUE(host.logs.empty());
}

TEST(PluginLifeCycle, ThrownExceptionsBecomeRecordsWithCodeZero) {
  struct Case {
    ScriptedPlugin::Init mode;
    const char* text;
  } cases[] = {
      {ScriptedPlugin::Init::ThrowStd, "sensor not found"},
      {ScriptedPlugin::Init::ThrowInt, "Unknown error occurred initializing plug-in"},
  };
  for (const auto& c : cases) {
    RecordingHost host;
    ScriptedPlugin plugin;
    plugin.initMode = c.mode;
    ErrorPtr error(plugin.init(&host.table));
    ASSERT_NE(error, nullptr);
    EXPECT_STREQ(error->message, c.text);
    EXPECT_EQ(error->code, 0);
    EXPECT_FALSE(plugin.initialized);
    EXPECT_TRUE(host.logs.empty()) << "nothing is logged on the init path";
  }
}

TEST(PluginLifeCycle, InitAfterFailureRunsHookAgainWithNewTable) {
  RecordingHost first, second;
  ScriptedPlugin plugin;
  plugin.initMode = ScriptedPlugin::Init::ThrowStd;
  ErrorPtr(plugin.init(&first.table));
  plugin.initMode = ScriptedPlugin::Init::Succeed;
  EXPECT_EQ(plugin.init(&second.table), nullptr);
  EXPECT_EQ(plugin.doInitCalls, 2);
  EXPECT_EQ(plugin.serviceProvider, &second.table);
  EXPECT_TRUE(plugin.initialized);
}

TEST(PluginLifeCycle, NullTableIsStored) {
  RecordingHost host;
  ScriptedPlugin plugin;
  plugin.serviceProvider = &host.table;
  EXPECT_EQ(plugin.init(nullptr), nullptr);
  EXPECT_EQ(plugin.serviceProvider, nullptr);
}

TEST(PluginLifeCycle, ShutdownRunsHookOnceEvenWhenItThrows) {
  struct Case {
    ScriptedPlugin::Shutdown mode;
    const char* logged;  // null: nothing logged
  } cases[] = {
      {ScriptedPlugin::Shutdown::Succeed, nullptr},
      {ScriptedPlugin::Shutdown::ThrowStd, "stuck motor"},
      {ScriptedPlugin::Shutdown::ThrowInt, "Unknown error occurred shutting down plug-in"},
  };
  for (const auto& c : cases) {
    RecordingHost host;
    ScriptedPlugin plugin;
    ASSERT_EQ(plugin.init(&host.table), nullptr);
    plugin.shutdownMode = c.mode;
    plugin.shutdown();
    plugin.shutdown();
    EXPECT_EQ(plugin.doShutdownCalls, 1);
    EXPECT_TRUE(plugin.shutDown);
    EXPECT_TRUE(plugin.initialized) << "shutdown never clears initialized";
    EXPECT_EQ(plugin.serviceProvider, &host.table);
    if (c.logged == nullptr) {
      EXPECT_TRUE(host.logs.empty());
    } else {
      ASSERT_EQ(host.logs.size(), 1u);
      EXPECT_EQ(host.logs[0].level, 2);
      EXPECT_EQ(host.logs[0].message, c.logged);
      EXPECT_EQ(host.logs[0].context, &host);
    }
  }
}

TEST(PluginLifeCycle, ShutdownWithoutInitRunsHookAndDropsFailure) {
  ScriptedPlugin plugin;
  plugin.shutdownMode = ScriptedPlugin::Shutdown::ThrowStd;
  EXPECT_NO_THROW(plugin.shutdown());
  EXPECT_EQ(plugin.doShutdownCalls, 1);
}

TEST(PluginLifeCycle, ShutdownSurvivesThrowingLogCallback) {
  DDKServiceProvider table{};
  table.logCallback = [](void*, int, const char*) { throw std::runtime_error("host"); };
  ScriptedPlugin plugin;
  ASSERT_EQ(plugin.init(&table), nullptr);
  plugin.shutdownMode = ScriptedPlugin::Shutdown::ThrowInt;
  EXPECT_NO_THROW(plugin.shutdown());
}

TEST(PluginLifeCycle, InitAfterShutdownStillStarts) {
  ScriptedPlugin plugin;
  plugin.shutdown();
  EXPECT_EQ(plugin.init(nullptr), nullptr);
  EXPECT_EQ(plugin.doInitCalls, 1);
  EXPECT_TRUE(plugin.initialized);
}

TEST(PluginLifeCycle, DestructionNeitherShutsDownNorTouchesTable) {
  RecordingHost host;
  int shutdowns = 0;
  struct Counting : IPlugin {
    int* count;
    explicit Counting(int* c) : count(c) {}
    void doShutdown() override { ++*count; }
  };
  {
    Counting plugin(&shutdowns);
    ASSERT_EQ(plugin.init(&host.table), nullptr);
  }
  EXPECT_EQ(shutdowns, 0);
  EXPECT_TRUE(host.logs.empty());
}

TEST(PluginLifeCycle, DefaultHooksSucceed) {
  struct Plain : IPlugin {};
  Plain plugin;
  EXPECT_EQ(plugin.init(nullptr), nullptr);
  plugin.shutdown();
  EXPECT_TRUE(plugin.initialized);
  EXPECT_TRUE(plugin.shutDown);
}

// --- Logging -----------------------------------------------------------------

TEST(Log, PassesLevelTextAndContextUnchanged) {
  RecordingHost host;
  int marker = 0;
  host.table.logContext = &marker;
  host.table.logCallback = [](void* context, int level, const char* message) {
    *static_cast<int*>(context) = level;
    EXPECT_STREQ(message, "hello");
  };
  ddk_log(&host.table, -17, "hello");
  EXPECT_EQ(marker, -17);
}

TEST(Log, NullTableOrCallbackDoesNothing) {
  ddk_log(nullptr, 2, "ignored");
  RecordingHost host;
  host.table.logCallback = nullptr;
  ddk_log(&host.table, 2, "ignored");
  EXPECT_TRUE(host.logs.empty());
}

TEST(Log, TextIsNotCopied) {
  static const char* seen = nullptr;
  DDKServiceProvider table{};
  table.logCallback = [](void*, int, const char* message) { seen = message; };
  const char text[] = "pointer identity";
  ddk_log(&table, 1, text);
  EXPECT_EQ(seen, text);
}

}  // namespace
