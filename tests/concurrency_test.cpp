// Independent containers and plug-ins used from several threads at once, and
// several threads logging into one host table: the library keeps no hidden
// shared state. Meaningful under the thread sanitizer preset.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "vantrel/ddk.h"

namespace {

constexpr int kThreads = 4;
constexpr int kRounds = 500;

TEST(Concurrency, IndependentContainersPerThread) {
  std::vector<std::thread> threads;
  std::atomic<int> failures{0};
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&failures, t] {
      std::string text;
      std::vector<std::string> list;
      PluginParameters params{nullptr, nullptr};
      const std::string word = "thread-" + std::to_string(t) + std::string(40, 'x');
      for (int i = 0; i < kRounds; ++i) {
        if (ddk_set_string(reinterpret_cast<StringHandle*>(&text), word.data(),
                           static_cast<unsigned>(word.size())) != 0 ||
            ddk_append_string(reinterpret_cast<StringListHandle*>(&list), word.data(),
                              static_cast<unsigned>(word.size())) != 0) {
          ++failures;
        }
        const int code = i;
        ddk_free_error(ddk_new_error(word.c_str(), &code));
        insert_plugin(&params, &text, &list, nullptr);
      }
      free_parameters(&params);
      if (list.size() != static_cast<std::size_t>(kRounds) || text != word) ++failures;
    });
  }
  for (auto& th : threads) th.join();
  EXPECT_EQ(failures.load(), 0);
}

// Every thread fills its own media collections; the shared media type check
// keeps no state between calls.
TEST(Concurrency, IndependentMediaCollectionsPerThread) {
  std::vector<std::thread> threads;
  std::atomic<int> failures{0};
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&failures, t] {
      std::vector<vantrel::MediaSession> sessions;
      std::vector<vantrel::ddk::internal::StreamConnectionInfo> infos;
      std::vector<vantrel::NetworkAddress> addresses;
      const std::string uri = "rtsp://camera/" + std::to_string(t) + std::string(40, 'u');
      const uint16_t uriLength = static_cast<uint16_t>(uri.size());
      const int32_t state = t;
      for (int i = 0; i < kRounds; ++i) {
        MediaSessionHandle* s =
            ddk_add_media_session_to_collection(reinterpret_cast<MediaSessionCollectionHandle*>(&sessions));
        StreamConnectionInfoHandle* info =
            ddk_add_stream_connection_info(reinterpret_cast<StreamConnectionInfosHandle*>(&infos));
        auto* list = reinterpret_cast<NetworkAddressCollectionHandle*>(&addresses);
        if (ddk_set_media_session_uri(s, uri.c_str(), &uriLength) != 0 ||
            ddk_set_media_session_stream_state(s, &state) != 0 ||
            ddk_set_stream_connection_info_mime_type(info, "video/H264", 10) != 0 ||
            ddk_append_network_address(list, t, uri.c_str(), uriLength) != 0 ||
            ddk_get_network_address_collection_size(list) != static_cast<unsigned>(i + 1)) {
          ++failures;
        }
      }
      for (const auto& s : sessions) {
        if (s.uri != uri || s.streamState != state) ++failures;
      }
      if (infos.size() != static_cast<std::size_t>(kRounds) || infos.back().mimeType != "video/H264") {
        ++failures;
      }
    });
  }
  for (auto& th : threads) th.join();
  EXPECT_EQ(failures.load(), 0);
}

struct CountingHost {
  std::atomic<int> lines{0};
  DDKServiceProvider table{};
  CountingHost() {
    table.logContext = this;
    table.logCallback = [](void* context, int, const char*) {
      ++static_cast<CountingHost*>(context)->lines;
    };
  }
};

struct Worker : vantrel::ddk::IPlugin {
  DDKError* doInit() override {
    ddk_log(serviceProvider, 1, "started");
    return nullptr;
  }
  void doShutdown() override { throw std::runtime_error("stop failed"); }
};

TEST(Concurrency, PluginsAndLoggingIntoOneTable) {
  CountingHost host;
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&host] {
      for (int i = 0; i < kRounds; ++i) {
        Worker plugin;  // one plug-in per thread: its flags are unlocked by design
        ddk_free_error(plugin.init(&host.table));
        plugin.shutdown();
        ddk_log(&host.table, 3, "line");
      }
    });
  }
  for (auto& th : threads) th.join();
  // init logs once, the throwing shutdown once, the loop once.
  EXPECT_EQ(host.lines.load(), kThreads * kRounds * 3);
}

}  // namespace
