// Audio stream configurations and the audio source.
#include "vantrel/api/audio.h"

#include <cstring>

#include "audio_handles.h"

using vantrel::AudioSource;
using vantrel::AudioStreamConfiguration;
using namespace vantrel::ddk::internal;

namespace {

using Status = signed char;
constexpr unsigned int kMaxLevel = 100;

// Value already checked: store it through `store` on the record behind `handle`.
template <class Handle, class Store>
Status store_in(Handle* handle, Store&& store) {
  return static_cast<Status>(guarded(kFailed, [&] {
    store(unwrap(handle));
    return kOk;
  }));
}

// A 16-bit field keeps the low 16 bits.
uint16_t low16(unsigned int value) { return static_cast<uint16_t>(value & 0xFFFFu); }

}  // namespace

extern "C" {

AudioStreamConfigurationHandle* ddk_add_audio_to_configurations(
    AudioStreamConfigurationsHandle* configurations, const char* name, unsigned int length) {
  if (name == nullptr || length == 0) return nullptr;
  return guarded(static_cast<AudioStreamConfigurationHandle*>(nullptr), [&] {
    auto& map = unwrap(configurations);
    const std::string key(name, ::strnlen(name, length));
    auto it = map.lower_bound(key);
    if (it == map.end() || it->first != key) {
      it = map.emplace_hint(it, key, AudioStreamConfiguration());
    }
    return wrap(&it->second);
  });
}

Status ddk_audio_set_format(AudioStreamConfigurationHandle* config, const unsigned int* format) {
  if (format == nullptr || *format == 0) return kRejected;
  const unsigned int code = *format;
  return store_in(config, [&](AudioStreamConfiguration& c) { c.format = code; });
}

Status ddk_audio_set_sample_size_in_bits(AudioStreamConfigurationHandle* config, unsigned int bits) {
  if (bits == 0) return kRejected;
  return store_in(config, [&](AudioStreamConfiguration& c) { c.sampleSizeInBits = low16(bits); });
}

Status ddk_audio_set_samples_per_second(AudioStreamConfigurationHandle* config,
                                        unsigned int samples) {
  if (samples == 0) return kRejected;
  return store_in(config, [&](AudioStreamConfiguration& c) { c.samplesPerSecond = samples; });
}

Status ddk_audio_set_frames_per_kilosecond(AudioStreamConfigurationHandle* config,
                                           unsigned int frames) {
  if (frames == 0) return kRejected;
  return store_in(config,
                  [&](AudioStreamConfiguration& c) { c.framesPerKilosecond = low16(frames); });
}

Status ddk_audio_enable_little_endian(AudioStreamConfigurationHandle* config) {
  return store_in(config, [](AudioStreamConfiguration& c) { c.bigEndian = false; });
}

Status ddk_audio_enable_vbr(AudioStreamConfigurationHandle* config) {
  return store_in(config, [](AudioStreamConfiguration& c) { c.vbr = true; });
}

Status ddk_audio_set_source_type(AudioSourceHandle* source, unsigned int type) {
  if (type == 0) return kRejected;
  return store_in(source, [&](AudioSource& s) { s.type = type; });
}

Status ddk_audio_set_source_sample_size_in_bits(AudioSourceHandle* source, unsigned int bits) {
  if (bits == 0) return kRejected;
  return store_in(source, [&](AudioSource& s) { s.sampleSizeInBits = low16(bits); });
}

Status ddk_audio_set_source_samples_per_second(AudioSourceHandle* source, unsigned int samples) {
  if (samples == 0) return kRejected;
  return store_in(source, [&](AudioSource& s) { s.samplesPerSecond = samples; });
}

Status ddk_audio_set_source_channels(AudioSourceHandle* source, unsigned int channels) {
  if (channels == 0) return kRejected;
  return store_in(source, [&](AudioSource& s) { s.channels = low16(channels); });
}

Status ddk_audio_set_source_level(AudioSourceHandle* source, unsigned int level) {
  if (level > kMaxLevel) return kRejected;
  return store_in(source, [&](AudioSource& s) { s.level = low16(level); });
}

}  // extern "C"
