// Video stream configurations, collections and presets, encoder options and
// queries, analytics profiles and audio under arbitrary call sequences. Each
// result is checked against the documented rule (value or handle first), a
// refused call must leave the record as it was, and stored values read back.
#include <cstdint>
#include <cstring>
#include <map>
#include <set>
#include <string>

#include "fuzz_input.h"
#include "vantrel/ddk.h"

using vantrel::AudioSource;
using vantrel::AudioStreamConfiguration;
using vantrel::AudioStreamConfigurations;
using namespace vantrel::ddk::internal;

namespace {

bool gated(EncodingType e) { return e == 1 || e == 2; }

bool same(const VideoStreamConfiguration& a, const VideoStreamConfiguration& b) {
  return a.streamToken == b.streamToken && a.bitrate == b.bitrate && a.timeout == b.timeout &&
         a.encoding == b.encoding && a.descriptiveName == b.descriptiveName &&
         a.multicastAddress == b.multicastAddress && a.multicastPort == b.multicastPort &&
         a.multicastTtl == b.multicastTtl && a.mtu == b.mtu && a.multicastFlag == b.multicastFlag &&
         a.width == b.width && a.height == b.height && a.framerate == b.framerate && a.gop == b.gop &&
         a.gopStructure == b.gopStructure && a.profile == b.profile && a.imageProcessing == b.imageProcessing &&
         a.signing == b.signing && a.dscp == b.dscp && a.rateControl == b.rateControl && a.reserved == b.reserved;
}

struct State {
  VideoStreamPresets presets;
  VideoStreamConfigurations streams;
  EncoderOptions options;
  VideoOptionsQuery query;
  VideoAnalyticsProfiles profiles;
  AudioStreamConfigurations audio;
  AudioSource source{};
};

// One configuration call on `c` (null when `null`), checked against `before`.
void configuration_call(FuzzInput& in, VideoStreamConfiguration* c, const std::string& bytes, bool nullText) {
  auto* h = reinterpret_cast<VideoStreamConfigurationHandle*>(c);
  const VideoStreamConfiguration before = c != nullptr ? *c : VideoStreamConfiguration();
  VideoStreamConfiguration after = before;
  const std::uint32_t v = in.u32();
  const std::uint32_t w = in.u32();
  const auto i = static_cast<std::int32_t>(v);
  const bool null = c == nullptr;
  int r = 0;
  int expected = null ? -1 : 0;
  const unsigned op = in.choice(16);
  switch (op) {
    case 0: {
      const unsigned char dscp = static_cast<unsigned char>(v);
      r = ddk_video_set_dscp(h, dscp);
      expected = dscp > 63 ? -2 : expected;  // value first
      if (expected == 0) after.dscp = dscp;
      unsigned char out = 0xEE;
      if (!null) FUZZ_CHECK(ddk_video_get_dscp(h, &out) == 0 && out == after.dscp);
      break;
    }
    case 1:
      r = ddk_video_set_resolution(h, v, w);
      expected = v == 0 || w == 0 ? -2 : expected;
      if (expected == 0) after.width = v, after.height = w;
      break;
    case 2:
      r = ddk_video_set_encoding(h, static_cast<EncodingType>(i));
      expected = i == 0 ? -2 : expected;
      if (expected == 0) after.encoding = static_cast<EncodingType>(i);
      break;
    case 3:
      r = ddk_video_set_gop(h, v);
      expected = null ? -1 : v == 0 ? -2 : 0;  // handle first
      if (expected == 0) after.gop = v;
      break;
    case 4:
      r = ddk_video_set_profile(h, i);
      if (!null) after.profile = gated(before.encoding) ? i : 0;
      break;
    case 5:
      // Both store whatever the encoding.
      if (in.flag()) {
        r = ddk_video_set_gop_structure(h, i);
        if (!null) after.gopStructure = i;
      } else {
        r = ddk_video_set_rate_control(h, i);
        if (!null) after.rateControl = i;
      }
      break;
    case 6:
      r = ddk_video_set_framerate(h, v);
      if (!null) after.framerate = v;
      break;
    case 7:
      r = ddk_video_set_image_processing(h, i);
      if (!null) after.imageProcessing = i;
      break;
    case 8:
      r = ddk_video_set_bitrate(h, v);
      if (!null) after.bitrate = v;
      break;
    case 9: {
      const bool on = in.flag();
      r = on ? ddk_video_set_signing_enabled(h) : ddk_video_set_signing_disabled(h);
      if (!null) after.signing = on;
      break;
    }
    case 10:
      r = expected;  // no result: a null handle shows only as nothing done
      if (in.flag()) {
        ddk_video_set_timeout(h, v);
        if (!null) after.timeout = v != 0 ? v : 900;
      } else {
        ddk_video_set_mtu(h, v);
        if (!null) after.mtu = v != 0 ? v : 1500;
      }
      break;
    case 11: {
      const unsigned length = in.choice(static_cast<unsigned>(bytes.size()) + 1);
      const char* text = nullText ? nullptr : bytes.data();
      ddk_video_set_descriptive_name(h, text, length);
      r = expected;
      if (!null) after.descriptiveName = text != nullptr ? std::string(text, length) : std::string();
      break;
    }
    case 12: {
      const unsigned length = in.choice(static_cast<unsigned>(bytes.size()) + 1);
      const char* text = nullText ? nullptr : bytes.data();
      r = ddk_video_set_stream_token(h, text, length);
      expected = text == nullptr || length == 0 ? -2 : expected;
      if (expected == 0) after.streamToken.assign(text, length);
      break;
    }
    case 13: {
      const unsigned length = in.choice(static_cast<unsigned>(bytes.size()) + 1);
      const char* text = nullText ? nullptr : bytes.data();
      const auto ttl = static_cast<unsigned char>(w);
      const auto flag = static_cast<ddk_bool>(w >> 8);
      r = ddk_video_set_multicast(h, text, length, v, ttl, flag);
      if (!null && text == nullptr) after.multicastAddress.clear();
      if (!null && text != nullptr) {
        after.multicastAddress.assign(text, length);
        after.multicastPort = v;
        after.multicastTtl = ttl;
        after.multicastFlag = flag != 0;
      }
      break;
    }
    default: {
      // Getters: results and written values follow the record.
      const VideoStreamConfiguration& s = before;
      unsigned a = 0xDEAD, b = 0xBEEF;
      const int res = ddk_video_get_resolution(h, in.flag() ? &a : nullptr, &b);
      FUZZ_CHECK(res == (null ? -1 : s.width == 0 || s.height == 0 ? -2 : 0));
      FUZZ_CHECK(b == (res == 0 ? s.height : 0xBEEFu));
      unsigned f = 0xDEAD;
      FUZZ_CHECK(ddk_video_get_framerate(h, &f) == (null ? -1 : s.framerate == 0 ? -2 : 0));
      int g = 0x55;
      FUZZ_CHECK(ddk_video_get_gop_structure(h, &g) == (null ? -1 : 0));
      if (!null) FUZZ_CHECK(g == (gated(s.encoding) ? s.gopStructure : 0));
      int p = 0x55;
      FUZZ_CHECK(ddk_video_get_profile(h, &p) == (null ? -1 : gated(s.encoding) ? 0 : -2));
      if (!null) FUZZ_CHECK(p == (gated(s.encoding) ? s.profile : 0));
      EncodingType e = DDK_ENCODING_NONE;
      FUZZ_CHECK(ddk_video_get_encoding(h, &e) == (null ? -1 : s.encoding == 0 ? -2 : 0));
      FUZZ_CHECK(ddk_video_get_timeout(h) == (null ? 900u : s.timeout));
      FUZZ_CHECK(ddk_video_get_mtu(h) == (null ? 1500u : s.mtu));
      FUZZ_CHECK(ddk_video_get_bitrate(h) == (null ? -1 : static_cast<int>(s.bitrate)));
      ddk_bool sig = 7;
      FUZZ_CHECK(ddk_video_get_signing(h, &sig) == (null ? -1 : 0));
      if (!null) FUZZ_CHECK(sig == (s.signing ? 1 : 0));
      unsigned port = 0;
      unsigned char ttl = 0;
      ddk_bool flag = 9;
      StringHandle* m = ddk_video_get_multicast(h, &port, &ttl, &flag);
      FUZZ_CHECK((m != nullptr) == (!null && !s.multicastAddress.empty()));
      if (m != nullptr) {
        FUZZ_CHECK(m == reinterpret_cast<StringHandle*>(&c->multicastAddress));
        FUZZ_CHECK(port == s.multicastPort && ttl == s.multicastTtl && flag == (s.multicastFlag ? 1 : 0));
      }
      StringHandle* name = ddk_video_get_descriptive_name(h);
      FUZZ_CHECK(name == (null ? nullptr : reinterpret_cast<StringHandle*>(&c->descriptiveName)));
      FUZZ_CHECK(ddk_video_get_stream_token(h) == (null ? nullptr : c->streamToken.c_str()));
      r = expected;  // each getter's result is checked above
      break;
    }
  }
  if (r != expected) std::fprintf(stderr, "configuration call %u: %d, expected %d (v=%u w=%u)\n", op, r, expected, v, w);
  FUZZ_CHECK(r == expected);
  if (c != nullptr) FUZZ_CHECK(same(*c, after));
}

void collection_call(FuzzInput& in, State& st, bool null, const std::string& bytes, bool nullText) {
  // Streams of the top-level collection, or of a preset's collection.
  VideoStreamConfigurations* streams = &st.streams;
  if (!st.presets.empty() && in.flag()) {
    auto it = st.presets.begin();
    std::advance(it, in.choice(static_cast<unsigned>(st.presets.size())));
    streams = &it->second;
  }
  auto* h = reinterpret_cast<VideoStreamConfigurationsHandle*>(null ? nullptr : streams);
  const char* text = nullText ? nullptr : bytes.data();
  const unsigned length = in.choice(static_cast<unsigned>(bytes.size()) + 1);
  const std::size_t size = streams->size();
  switch (in.choice(5)) {
    case 0: {
      const std::string token = text != nullptr ? std::string(text, length) : std::string();
      const bool existed = streams->count(token) != 0;
      const VideoStreamConfiguration old = existed ? streams->at(token) : VideoStreamConfiguration();
      VideoStreamConfigurationHandle* added = ddk_add_video_stream_to_configurations(h, text, length);
      FUZZ_CHECK((added == nullptr) == null);
      FUZZ_CHECK(streams->size() == size + (null || existed ? 0 : 1));
      if (added != nullptr) {
        FUZZ_CHECK(added == reinterpret_cast<VideoStreamConfigurationHandle*>(&streams->at(token)));
        FUZZ_CHECK(same(streams->at(token), existed ? old : VideoStreamConfiguration(token)));
      }
      break;
    }
    case 1: {
      auto* p = reinterpret_cast<VideoStreamPresetsHandle*>(null ? nullptr : &st.presets);
      const std::size_t presets = st.presets.size();
      VideoStreamConfigurationsHandle* preset = ddk_add_to_presets(p, text, length);
      const bool refused = null || text == nullptr || length == 0;
      FUZZ_CHECK((preset == nullptr) == refused);
      if (!refused) FUZZ_CHECK(preset == reinterpret_cast<VideoStreamConfigurationsHandle*>(&st.presets.at(std::string(text, length))));
      FUZZ_CHECK(st.presets.size() >= presets && st.presets.size() <= presets + 1);
      return;  // `streams` may belong to a preset; nothing else to check
    }
    case 2: {
      const unsigned index = in.flag() ? in.u32() : in.choice(static_cast<unsigned>(size) + 2);
      VideoStreamConfigurationHandle* at = ddk_get_video_stream_configuration_at(h, index);
      if (null || index >= size) {
        FUZZ_CHECK(at == nullptr);
      } else {
        auto it = streams->begin();
        std::advance(it, index);
        FUZZ_CHECK(at == reinterpret_cast<VideoStreamConfigurationHandle*>(&it->second));
      }
      FUZZ_CHECK(ddk_get_video_stream_configurations_count(h) == (null ? 0u : size));
      break;
    }
    case 3: {
      const char* token = nullText ? nullptr : bytes.c_str();  // stops at the first NUL
      VideoStreamConfigurationHandle* found = ddk_get_video_stream_configuration(h, token);
      const auto it = token != nullptr ? streams->find(token) : streams->end();
      FUZZ_CHECK(found == (null || it == streams->end() ? nullptr
                                                        : reinterpret_cast<VideoStreamConfigurationHandle*>(&it->second)));
      break;
    }
    default: {
      VideoStreamConfiguration* c = nullptr;
      if (!null && !streams->empty()) {
        auto it = streams->begin();
        std::advance(it, in.choice(static_cast<unsigned>(size)));
        c = &it->second;
      }
      configuration_call(in, c, bytes, nullText);
      break;
    }
  }
  FUZZ_CHECK(streams->size() >= size);
}

template <class Set>
void add_checked(int r, int expected, const Set& set, const Set& before, typename Set::key_type value) {
  FUZZ_CHECK(r == expected);
  if (r != 0) {
    FUZZ_CHECK(set == before);
  } else {
    FUZZ_CHECK(set.count(value) == 1);
    FUZZ_CHECK(set.size() == before.size() + (before.count(value) ? 0 : 1));
  }
}

void options_call(FuzzInput& in, State& st, bool null) {
  EncoderOptions& o = st.options;
  auto* h = reinterpret_cast<EncoderOptionsHandle*>(null ? nullptr : &o);
  const std::uint32_t v = in.u32();
  const std::uint32_t w = in.u32();
  const auto i = static_cast<std::int32_t>(v);
  const int nh = null ? -1 : 0;
  switch (in.choice(9)) {
    case 0: { const auto b = o.framerates; add_checked(ddk_add_framerate_to_encoder_options(h, v), v == 0 ? -2 : nh, o.framerates, b, v); break; }
    case 1: { const auto b = o.gopStructures; add_checked(ddk_add_gop_structure_to_encoder_options(h, i), i > 2 ? -2 : nh, o.gopStructures, b, i); break; }
    case 2: { const auto b = o.rateControls; add_checked(ddk_add_rate_control_to_encoder_options(h, i), i == 0 ? -2 : nh, o.rateControls, b, i); break; }
    case 3: { const auto b = o.videoProfiles; add_checked(ddk_add_video_profile_to_encoder_options(h, i), i > 5 ? -2 : nh, o.videoProfiles, b, i); break; }
    case 4: { const auto b = o.encodings; const auto e = static_cast<EncodingType>(i); add_checked(ddk_add_encoding_to_encoder_options(h, e), i == 0 ? -2 : nh, o.encodings, b, e); break; }
    case 5: {
      const auto before = o.resolutions;
      const int r = ddk_add_resolution_to_encoder_options(h, v, w);
      FUZZ_CHECK(r == (v == 0 || w == 0 ? -2 : nh));
      const Resolution res(v, w);
      bool seen = false;
      for (const Resolution& x : before) seen = seen || x.pixelCount() == res.pixelCount();
      FUZZ_CHECK(o.resolutions.size() == before.size() + (r == 0 && !seen ? 1 : 0));
      break;
    }
    case 6: {
      const unsigned which = in.choice(3);
      EncoderRange EncoderOptions::*range[] = {&EncoderOptions::gopRange, &EncoderOptions::bitrateRange, &EncoderOptions::dscpRange};
      bool EncoderOptions::*flag[] = {&EncoderOptions::hasGopRange, &EncoderOptions::hasBitrateRange, &EncoderOptions::hasDscpRange};
      using Setter = int (*)(EncoderOptionsHandle*, unsigned, unsigned, unsigned);
      const Setter set[] = {ddk_set_gop_range_on_encoder_options, ddk_set_bitrate_range_on_encoder_options, ddk_set_dscp_range_on_encoder_options};
      const std::uint32_t third = in.u32();
      FUZZ_CHECK(set[which](h, v, w, third) == nh);
      if (!null) {
        const EncoderRange& r = o.*range[which];
        FUZZ_CHECK(o.*flag[which] && r.low == (v < w ? v : w) && r.high == (v < w ? w : v) && r.thirdValue == third);
      }
      break;
    }
    case 7:
      FUZZ_CHECK(ddk_set_signing_on_encoder_options(h, static_cast<ddk_bool>(v)) == nh);
      if (!null) FUZZ_CHECK(o.hasSigning && o.signing == static_cast<std::uint8_t>(v));
      break;
    default: {
      // Query filters read back through the getters.
      VideoOptionsQuery& q = st.query;
      switch (in.choice(4)) {
        case 0: q.setResolution(v, w); break;
        case 1: q.setEncodingType(static_cast<EncodingType>(i)); break;
        case 2: q.setFramerate(v); break;
        default: q = in.flag() ? VideoOptionsQuery() : VideoOptionsQuery(q); break;
      }
      auto* qh = reinterpret_cast<VideoOptionsQueryHandle*>(null ? nullptr : &q);
      EncodingType e = DDK_ENCODING_NONE;
      unsigned f = 0, width = 0, height = 0;
      FUZZ_CHECK(ddk_get_encoder_query_encoding(qh, &e) == (null ? -1 : q.encodingType() ? 1 : 0));
      FUZZ_CHECK(ddk_get_encoder_query_framerate(qh, &f) == (null ? -1 : q.framerate() ? 1 : 0));
      FUZZ_CHECK(ddk_get_encoder_query_video_resolution(qh, &width, &height) == (null ? -1 : q.resolution() ? 1 : 0));
      if (!null && q.encodingType()) FUZZ_CHECK(e == *q.encodingType());
      if (!null && q.framerate()) FUZZ_CHECK(f == *q.framerate());
      if (!null && q.resolution()) FUZZ_CHECK(width == q.resolution()->width && height == q.resolution()->height);
      FUZZ_CHECK(q == VideoOptionsQuery(q));
      break;
    }
  }
}

void audio_call(FuzzInput& in, State& st, bool null, const std::string& bytes, bool nullText) {
  const std::uint32_t v = in.u32();
  switch (in.choice(4)) {
    case 0: {
      const char* text = nullText ? nullptr : bytes.data();
      const unsigned length = in.choice(static_cast<unsigned>(bytes.size()) + 1);
      auto* h = reinterpret_cast<AudioStreamConfigurationsHandle*>(null ? nullptr : &st.audio);
      const std::size_t size = st.audio.size();
      AudioStreamConfigurationHandle* e = ddk_add_audio_to_configurations(h, text, length);
      const bool refused = text == nullptr || length == 0 || null;
      FUZZ_CHECK((e == nullptr) == refused);
      if (!refused) {
        const std::string key(text, ::strnlen(text, length));
        FUZZ_CHECK(e == reinterpret_cast<AudioStreamConfigurationHandle*>(&st.audio.at(key)));
      }
      FUZZ_CHECK(st.audio.size() == size || (!refused && st.audio.size() == size + 1));
      break;
    }
    case 1:
    case 2: {
      AudioStreamConfiguration* c = nullptr;
      if (!null && !st.audio.empty()) {
        auto it = st.audio.begin();
        std::advance(it, in.choice(static_cast<unsigned>(st.audio.size())));
        c = &it->second;
      }
      auto* h = reinterpret_cast<AudioStreamConfigurationHandle*>(c);
      AudioStreamConfiguration after;
      if (c != nullptr) after = *c;
      const signed char nh = c == nullptr ? -1 : 0;
      signed char r = 0, expected = nh;
      switch (in.choice(6)) {
        case 0: {
          const bool nullFormat = in.choice(8) == 0;
          r = ddk_audio_set_format(h, nullFormat ? nullptr : &v);
          expected = nullFormat || v == 0 ? -2 : nh;
          if (expected == 0) after.format = v;
          break;
        }
        case 1: r = ddk_audio_set_sample_size_in_bits(h, v); expected = v == 0 ? -2 : nh; if (expected == 0) after.sampleSizeInBits = static_cast<std::uint16_t>(v); break;
        case 2: r = ddk_audio_set_samples_per_second(h, v); expected = v == 0 ? -2 : nh; if (expected == 0) after.samplesPerSecond = v; break;
        case 3: r = ddk_audio_set_frames_per_kilosecond(h, v); expected = v == 0 ? -2 : nh; if (expected == 0) after.framesPerKilosecond = static_cast<std::uint16_t>(v); break;
        case 4: r = ddk_audio_enable_little_endian(h); after.bigEndian = false; break;
        default: r = ddk_audio_enable_vbr(h); after.vbr = true; break;
      }
      FUZZ_CHECK(r == expected);
      if (c != nullptr) {
        FUZZ_CHECK(c->format == after.format && c->sampleSizeInBits == after.sampleSizeInBits &&
                   c->samplesPerSecond == after.samplesPerSecond && c->framesPerKilosecond == after.framesPerKilosecond &&
                   c->bigEndian == after.bigEndian && c->vbr == after.vbr);
      }
      break;
    }
    default: {
      auto* h = reinterpret_cast<AudioSourceHandle*>(null ? nullptr : &st.source);
      AudioSource after = st.source;
      const signed char nh = null ? -1 : 0;
      signed char r = 0, expected = nh;
      switch (in.choice(5)) {
        case 0: r = ddk_audio_set_source_type(h, v); expected = v == 0 ? -2 : nh; if (expected == 0) after.type = v; break;
        case 1: r = ddk_audio_set_source_sample_size_in_bits(h, v); expected = v == 0 ? -2 : nh; if (expected == 0) after.sampleSizeInBits = static_cast<std::uint16_t>(v); break;
        case 2: r = ddk_audio_set_source_samples_per_second(h, v); expected = v == 0 ? -2 : nh; if (expected == 0) after.samplesPerSecond = v; break;
        case 3: r = ddk_audio_set_source_channels(h, v); expected = v == 0 ? -2 : nh; if (expected == 0) after.channels = static_cast<std::uint16_t>(v); break;
        default: r = ddk_audio_set_source_level(h, v); expected = v > 100 ? -2 : nh; if (expected == 0) after.level = static_cast<std::uint16_t>(v); break;
      }
      FUZZ_CHECK(r == expected);
      FUZZ_CHECK(std::memcmp(&after, &st.source, sizeof after) == 0);
      break;
    }
  }
}

void profile_call(FuzzInput& in, State& st, bool null, const std::string& bytes, bool nullText) {
  auto* h = reinterpret_cast<VideoAnalyticsProfilesHandle*>(null ? nullptr : &st.profiles);
  const std::int32_t id = in.i32();
  const auto flag = static_cast<unsigned char>(in.byte());
  const char* name = nullText ? nullptr : bytes.c_str();
  const bool existed = st.profiles.count(id) != 0;
  const ProfileSummary old = existed ? st.profiles.at(id) : ProfileSummary();
  void* p = ddk_add_video_analytics_profile(h, name, id, flag);
  FUZZ_CHECK((p == nullptr) == (null || name == nullptr));
  if (p == nullptr) return;
  const ProfileSummary& s = st.profiles.at(id);
  FUZZ_CHECK(p == &s);
  const ProfileSummary& want = existed ? old : ProfileSummary(name, id, flag);
  FUZZ_CHECK(s.name == want.name && s.id == want.id && s.flag == want.flag);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput in(data, size);
  State st;
  while (!in.empty()) {
    const bool null = in.choice(8) == 0;
    const bool nullText = in.choice(8) == 0;
    const std::string bytes = in.bytes();
    switch (in.choice(5)) {
      case 0: collection_call(in, st, null, bytes, nullText); break;
      case 1: options_call(in, st, null); break;
      case 2: audio_call(in, st, null, bytes, nullText); break;
      case 3: profile_call(in, st, null, bytes, nullText); break;
      default: {
        VideoStreamConfiguration standalone;
        configuration_call(in, null ? nullptr : &standalone, bytes, nullText);
        break;
      }
    }
  }
  return 0;
}
