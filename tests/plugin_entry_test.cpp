// The plug-in entry point: ABI version checks on both sides, one IPlugin
// part per extension, started and stopped as one object, and a real module
// loaded with dlopen.
#include <gtest/gtest.h>

#include <dlfcn.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/recording_host.h"
#include "support/stub_extensions.h"
#include "vantrel/ddk.h"

using namespace vantrel::ddk;
using testing_support::RecordingHost;

namespace {

struct ErrorDeleter {
  void operator()(DDKError* e) const { ddk_free_error(e); }
};
using ErrorPtr = std::unique_ptr<DDKError, ErrorDeleter>;

// The recording host of the alarm tests, with the alarms it receives.
struct Host : RecordingHost {
  std::vector<AlarmEvent> alarms;
  Host() {
    table.alarmContext = this;
    table.alarmCallback = [](void* context, AlarmEvent event) {
      static_cast<Host*>(context)->alarms.push_back(event);
    };
  }
};

struct Camera : testing_support::StubVideo, testing_support::StubAlarm, testing_support::StubZoom {
  int inits = 0;
  int shutdowns = 0;
  bool failInit = false;
  DDKError* doInit() override {
    ++inits;
    signalAlarm(AlarmEvent{1, 2, 3, 4});  // through the alarm part, during start
    if (failInit) {
      const int code = 12;
      return ddk_new_error("no sensor", &code);
    }
    return nullptr;
  }
  void doShutdown() override { ++shutdowns; }

  IPlugin* videoPart() { return static_cast<IVideoExtension*>(this); }
  IPlugin* alarmPart() { return static_cast<IAlarmExtension*>(this); }
  IPlugin* zoomPart() { return static_cast<IZoomExtension*>(this); }
  std::vector<IPlugin*> allParts() { return {alarmPart(), videoPart(), zoomPart()}; }
};

const DDKPluginDescriptor& cameraDescriptor() {
  static const DDKPluginDescriptor descriptor = describe_plugin<Camera>("camera");
  return descriptor;
}

Camera* as_camera(DDKPlugin* plugin) { return reinterpret_cast<Camera*>(plugin); }

TEST(PluginParts, OnePartPerExtensionEachWithItsOwnState) {
  Host host;
  Camera camera;
  const auto parts = camera.allParts();
  EXPECT_NE(parts[0], parts[1]);
  EXPECT_NE(parts[1], parts[2]);
  EXPECT_NE(parts[0], parts[2]);
  EXPECT_GE(sizeof(Camera), 3 * sizeof(IPlugin));

  // init acts on the part it is called through only.
  ASSERT_EQ(camera.videoPart()->init(&host.table), nullptr);
  EXPECT_EQ(camera.videoPart()->serviceProvider, &host.table);
  EXPECT_TRUE(camera.videoPart()->initialized);
  EXPECT_EQ(camera.alarmPart()->serviceProvider, nullptr);
  EXPECT_FALSE(camera.zoomPart()->initialized);
  EXPECT_TRUE(host.alarms.empty()) << "the alarm part had no table while doInit ran";
  camera.zoomPart()->shutdown();
  EXPECT_TRUE(camera.zoomPart()->shutDown);
  EXPECT_FALSE(camera.videoPart()->shutDown);
}

TEST(PluginDescriptor, DescribesThePluginClass) {
  const DDKPluginDescriptor& d = cameraDescriptor();
  EXPECT_EQ(d.abiVersion, static_cast<uint32_t>(VANTREL_DDK_VERSION_MAJOR));
  EXPECT_EQ(d.size, sizeof(DDKPluginDescriptor));
  EXPECT_STREQ(d.name, "camera");
  EXPECT_EQ(d.extensionMask,
            (1u << DDK_EXTENSION_VIDEO) | (1u << DDK_EXTENSION_ALARM) | (1u << DDK_EXTENSION_ZOOM));
  EXPECT_EQ(ddk_check_plugin_descriptor(&d), 0);
}

TEST(PluginDescriptor, EntryRefusesAnotherAbiVersion) {
  const DDKPluginDescriptor* d = &cameraDescriptor();
  EXPECT_EQ(offer_plugin(d, DDK_PLUGIN_ABI_VERSION), d);
  EXPECT_EQ(offer_plugin(d, DDK_PLUGIN_ABI_VERSION + 1), nullptr);
  EXPECT_EQ(offer_plugin(d, DDK_PLUGIN_ABI_VERSION - 1), nullptr);
  EXPECT_EQ(offer_plugin(d, 0xFFFFFFFFu), nullptr);
}

TEST(PluginDescriptor, HostCheckRefusesWhatItCannotUse) {
  EXPECT_EQ(ddk_check_plugin_descriptor(nullptr), -1);
  struct Case {
    const char* what;
    void (*spoil)(DDKPluginDescriptor&);
  } cases[] = {
      {"newer kit", [](DDKPluginDescriptor& d) { d.abiVersion += 1; }},
      {"older kit", [](DDKPluginDescriptor& d) { d.abiVersion -= 1; }},
      {"short descriptor", [](DDKPluginDescriptor& d) { d.size -= 1; }},
      {"no create", [](DDKPluginDescriptor& d) { d.create = nullptr; }},
      {"no destroy", [](DDKPluginDescriptor& d) { d.destroy = nullptr; }},
      {"no start", [](DDKPluginDescriptor& d) { d.start = nullptr; }},
      {"no stop", [](DDKPluginDescriptor& d) { d.stop = nullptr; }},
      {"no extension", [](DDKPluginDescriptor& d) { d.extension = nullptr; }},
  };
  for (const auto& c : cases) {
    DDKPluginDescriptor d = cameraDescriptor();
    c.spoil(d);
    EXPECT_EQ(ddk_check_plugin_descriptor(&d), -2) << c.what;
  }
  DDKPluginDescriptor longer = cameraDescriptor();
  longer.size += 16;  // a later minor version with fields appended
  EXPECT_EQ(ddk_check_plugin_descriptor(&longer), 0);
}

TEST(PluginDescriptor, ExtensionGivesEachSubObjectOrNull) {
  const DDKPluginDescriptor& d = cameraDescriptor();
  DDKPlugin* plugin = d.create();
  ASSERT_NE(plugin, nullptr);
  Camera* camera = as_camera(plugin);
  EXPECT_EQ(find_extension<IVideoExtension>(d, plugin), static_cast<IVideoExtension*>(camera));
  EXPECT_EQ(find_extension<IAlarmExtension>(d, plugin), static_cast<IAlarmExtension*>(camera));
  EXPECT_EQ(find_extension<IZoomExtension>(d, plugin), static_cast<IZoomExtension*>(camera));
  EXPECT_EQ(find_extension<IMediaSessionExtension>(d, plugin), nullptr);
  EXPECT_EQ(find_extension<ITimeManagementExtension>(d, plugin), nullptr);
  for (int kind = 0; kind < DDK_EXTENSION_COUNT; ++kind) {
    const bool implemented = (d.extensionMask >> kind) & 1u;
    EXPECT_EQ(d.extension(plugin, kind) != nullptr, implemented) << kind;
  }
  EXPECT_EQ(d.extension(plugin, -1), nullptr);
  EXPECT_EQ(d.extension(plugin, DDK_EXTENSION_COUNT), nullptr);
  EXPECT_EQ(d.extension(nullptr, DDK_EXTENSION_VIDEO), nullptr);
  // The sub-object answers through its own virtual table.
  unsigned char magnification = 1;
  ErrorPtr unsupported(find_extension<IZoomExtension>(d, plugin)->getMagnification("lens", magnification));
  ASSERT_NE(unsupported, nullptr);
  EXPECT_EQ(unsupported->code, 7);
  d.destroy(plugin);
  d.destroy(nullptr);
}

TEST(PluginDescriptor, StartAndStopActOnEveryPartOnce) {
  Host host, other;
  const DDKPluginDescriptor& d = cameraDescriptor();
  DDKPlugin* plugin = d.create();
  Camera* camera = as_camera(plugin);

  EXPECT_EQ(d.start(plugin, &host.table), nullptr);
  EXPECT_EQ(camera->inits, 1);
  for (IPlugin* part : camera->allParts()) {
    EXPECT_EQ(part->serviceProvider, &host.table);
    EXPECT_TRUE(part->initialized);
  }
  ASSERT_EQ(host.alarms.size(), 1u) << "the alarm part held the table before doInit ran";
  EXPECT_EQ(host.alarms[0].state, 3u);

  EXPECT_EQ(d.start(plugin, &other.table), nullptr);
  EXPECT_EQ(camera->inits, 1);
  EXPECT_EQ(camera->alarmPart()->serviceProvider, &host.table) << "a started plug-in keeps its table";

  d.stop(plugin);
  d.stop(plugin);
  EXPECT_EQ(camera->shutdowns, 1);
  for (IPlugin* part : camera->allParts()) EXPECT_TRUE(part->shutDown);
  d.destroy(plugin);
}

TEST(PluginDescriptor, FailedStartLeavesEveryPartUnstarted) {
  Host host;
  const DDKPluginDescriptor& d = cameraDescriptor();
  DDKPlugin* plugin = d.create();
  Camera* camera = as_camera(plugin);
  camera->failInit = true;
  ErrorPtr error(d.start(plugin, &host.table));
  ASSERT_NE(error, nullptr);
  EXPECT_STREQ(error->message, "no sensor");
  EXPECT_EQ(error->code, 12);
  for (IPlugin* part : camera->allParts()) {
    EXPECT_FALSE(part->initialized);
    EXPECT_EQ(part->serviceProvider, &host.table) << "stored whatever the hook's outcome";
  }
  camera->failInit = false;
  EXPECT_EQ(d.start(plugin, &host.table), nullptr) << "a failed start may be retried";
  EXPECT_EQ(camera->inits, 2);
  EXPECT_TRUE(camera->zoomPart()->initialized);
  d.destroy(plugin);
}

TEST(PluginDescriptor, PluginWithoutExtensionsHasOnePart) {
  struct Bare : IPlugin {
    int inits = 0;
    DDKError* doInit() override {
      ++inits;
      return nullptr;
    }
  };
  const DDKPluginDescriptor d = describe_plugin<Bare>("bare");
  EXPECT_EQ(d.extensionMask, 0u);
  DDKPlugin* plugin = d.create();
  EXPECT_EQ(d.start(plugin, nullptr), nullptr);
  auto* bare = reinterpret_cast<Bare*>(plugin);
  EXPECT_EQ(bare->inits, 1);
  EXPECT_TRUE(bare->initialized);
  for (int kind = 0; kind < DDK_EXTENSION_COUNT; ++kind) EXPECT_EQ(d.extension(plugin, kind), nullptr);
  d.stop(plugin);
  EXPECT_TRUE(bare->shutDown);
  d.destroy(plugin);
}

TEST(PluginDescriptor, CreateReportsAFailingConstructorAsNull) {
  struct Broken : testing_support::StubVideo {
    Broken() { throw std::runtime_error("no memory for frames"); }
  };
  EXPECT_EQ(describe_plugin<Broken>("broken").create(), nullptr);
}

TEST(PluginParts, NullOrEmptyPartListsAreIgnored) {
  EXPECT_EQ(start_plugin_parts(nullptr, 3, nullptr), nullptr);
  IPlugin* none[1] = {nullptr};
  EXPECT_EQ(start_plugin_parts(none, 0, nullptr), nullptr);
  EXPECT_EQ(start_plugin_parts(none, 1, nullptr), nullptr);
  stop_plugin_parts(nullptr, 2);
  stop_plugin_parts(none, 1);
}

// --- A real module -----------------------------------------------------------

struct Module {
  void* handle = dlopen(VANTREL_DDK_TEST_PLUGIN, RTLD_NOW | RTLD_LOCAL);
  ~Module() {
    if (handle != nullptr) dlclose(handle);
  }
};

TEST(PluginModule, LoadsChecksStartsAndAnswers) {
  Module module;
  ASSERT_NE(module.handle, nullptr) << dlerror();
  auto entry = reinterpret_cast<DDKPluginEntry>(dlsym(module.handle, DDK_PLUGIN_ENTRY_SYMBOL));
  ASSERT_NE(entry, nullptr);
  EXPECT_EQ(entry(DDK_PLUGIN_ABI_VERSION + 1), nullptr) << "the plug-in refuses another kit";
  const DDKPluginDescriptor* d = entry(DDK_PLUGIN_ABI_VERSION);
  ASSERT_NE(d, nullptr);
  ASSERT_EQ(ddk_check_plugin_descriptor(d), 0);
  EXPECT_STREQ(d->name, "test camera");
  EXPECT_EQ(d->extensionMask, (1u << DDK_EXTENSION_VIDEO) | (1u << DDK_EXTENSION_ALARM) |
                                  (1u << DDK_EXTENSION_DEVICE_INFO));

  Host host;
  DDKPlugin* plugin = d->create();
  ASSERT_NE(plugin, nullptr);
  ASSERT_EQ(d->start(plugin, &host.table), nullptr);
  ASSERT_EQ(host.alarms.size(), 1u);
  EXPECT_EQ(host.alarms[0].source, 7u);

  IVideoExtension* video = find_extension<IVideoExtension>(*d, plugin);
  ASSERT_NE(video, nullptr);
  std::vector<std::string> sources;
  EXPECT_EQ(video->sourceTokens(reinterpret_cast<StringListHandle*>(&sources)), nullptr);
  EXPECT_EQ(sources, (std::vector<std::string>{"front", "rear"}));

  IDeviceInfoExtension* info = find_extension<IDeviceInfoExtension>(*d, plugin);
  ASSERT_NE(info, nullptr);
  std::string model, maker;
  EXPECT_EQ(info->modelDescription(reinterpret_cast<StringHandle*>(&model)), nullptr);
  EXPECT_EQ(model, "Quarn Pro Camera") << "the library's default body";
  EXPECT_EQ(info->manufacturer("device", reinterpret_cast<StringHandle*>(&maker)), nullptr);
  EXPECT_EQ(maker, "Test Optics");
  EXPECT_EQ(find_extension<IZoomExtension>(*d, plugin), nullptr);

  d->stop(plugin);
  d->destroy(plugin);
  ASSERT_EQ(host.logs.size(), 2u);
  EXPECT_EQ(host.logs[0].message, "test camera started");
  EXPECT_EQ(host.logs[1].message, "test camera stopped");
}

}  // namespace
