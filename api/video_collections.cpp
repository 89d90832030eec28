// Video stream configuration collections and presets: get-or-create by key,
// lookup, count and positional walk.
#include "vantrel/api/video_collections.h"

#include <iterator>
#include <utility>

#include "video_handles.h"

using namespace vantrel::ddk::internal;

namespace {

// The entry under `key`, made from `make()` when absent. The value is built
// before the node is linked, so a failure leaves the map as it was.
template <class Map, class Make>
typename Map::mapped_type& get_or_create(Map& map, const typename Map::key_type& key,
                                         Make&& make) {
  auto it = map.lower_bound(key);
  if (it != map.end() && !map.key_comp()(key, it->first)) return it->second;
  return map.emplace_hint(it, key, make())->second;
}

}  // namespace

extern "C" {

VideoStreamConfigurationsHandle* ddk_add_to_presets(VideoStreamPresetsHandle* presets,
                                                    const char* text, unsigned int length) {
  VideoStreamPresets* map = record_of(presets);
  if (map == nullptr || text == nullptr || length == 0) return nullptr;
  return guarded(static_cast<VideoStreamConfigurationsHandle*>(nullptr), [&] {
    const std::string name(text, length);
    return wrap(&get_or_create(*map, name, [] { return VideoStreamConfigurations(); }));
  });
}

VideoStreamConfigurationHandle* ddk_add_video_stream_to_configurations(
    VideoStreamConfigurationsHandle* configurations, const char* text, unsigned int length) {
  return guarded(static_cast<VideoStreamConfigurationHandle*>(nullptr), [&] {
    auto& map = unwrap(configurations);
    const std::string token = vantrel::create_std_string(text, length);
    return wrap(&get_or_create(map, token, [&] { return VideoStreamConfiguration(token); }));
  });
}

unsigned int ddk_get_video_stream_configurations_count(
    VideoStreamConfigurationsHandle* configurations) {
  const VideoStreamConfigurations* map = record_of(configurations);
  return map != nullptr ? static_cast<unsigned int>(map->size()) : 0U;
}

VideoStreamConfigurationHandle* ddk_get_video_stream_configuration_at(
    VideoStreamConfigurationsHandle* configurations, unsigned int index) {
  VideoStreamConfigurations* map = record_of(configurations);
  if (map == nullptr || index >= map->size()) return nullptr;
  return wrap(&std::next(map->begin(), index)->second);
}

VideoStreamConfigurationHandle* ddk_get_video_stream_configuration(
    VideoStreamConfigurationsHandle* configurations, const char* token) {
  if (token == nullptr) return nullptr;
  return guarded(static_cast<VideoStreamConfigurationHandle*>(nullptr),
                 [&]() -> VideoStreamConfigurationHandle* {
                   auto& map = unwrap(configurations);
                   const auto it = map.find(std::string(token));
                   return it != map.end() ? wrap(&it->second) : nullptr;
                 });
}

}  // extern "C"
