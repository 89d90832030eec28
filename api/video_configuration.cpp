// Fields of one video stream configuration.
#include "vantrel/api/video_configuration.h"

#include "video_handles.h"

using namespace vantrel::ddk::internal;

// The exported copy that plug-ins use instead of instantiating their own.
template VANTREL_DDK_API VideoStreamConfiguration&
vantrel::from_handle<VideoStreamConfiguration, VideoStreamConfigurationHandle*>(
    VideoStreamConfigurationHandle*);

namespace {

constexpr unsigned int kDefaultTimeout = 900;
constexpr unsigned int kDefaultMtu = 1500;
constexpr unsigned char kMaxDscp = 63;

// GOP length and structure, profile and rate control apply to these only.
bool has_gop_settings(const VideoStreamConfiguration& config) {
  return config.encoding == DDK_ENCODING_H264 || config.encoding == DDK_ENCODING_H265;
}

// Null out-parameters are skipped rather than written through.
template <class T, class V>
void put(T* out, V value) {
  if (out != nullptr) *out = static_cast<T>(value);
}

// Runs `use` on the record behind `config`: 0, or -1 for a null handle.
template <class Use>
int with_record(VideoStreamConfigurationHandle* config, Use&& use) {
  return guarded(kFailed, [&] {
    use(unwrap(config));
    return kOk;
  });
}

// Reads a field that only the encodings with GOP settings carry: 0 otherwise.
template <class T, class Field>
int read_gop_setting(VideoStreamConfigurationHandle* config, T* out, Field field,
                     int resultWhenAbsent) {
  return guarded(kFailed, [&] {
    const auto& record = unwrap(config);
    if (!has_gop_settings(record)) {
      put(out, 0);
      return resultWhenAbsent;
    }
    put(out, record.*field);
    return kOk;
  });
}

}  // namespace

extern "C" {

int ddk_video_get_rate_control(VideoStreamConfigurationHandle* config, int* rateControl) {
  return read_gop_setting(config, rateControl, &VideoStreamConfiguration::rateControl, kOk);
}

int ddk_video_set_rate_control(VideoStreamConfigurationHandle* config, int rateControl) {
  return with_record(config, [&](auto& c) { c.rateControl = rateControl; });
}

int ddk_video_get_dscp(VideoStreamConfigurationHandle* config, unsigned char* dscp) {
  return with_record(config, [&](const auto& c) { put(dscp, c.dscp); });
}

int ddk_video_set_dscp(VideoStreamConfigurationHandle* config, unsigned char dscp) {
  if (dscp > kMaxDscp) return kRejected;
  return with_record(config, [&](auto& c) { c.dscp = dscp; });
}

int ddk_video_set_signing_disabled(VideoStreamConfigurationHandle* config) {
  return with_record(config, [](auto& c) { c.signing = false; });
}

int ddk_video_set_signing_enabled(VideoStreamConfigurationHandle* config) {
  return with_record(config, [](auto& c) { c.signing = true; });
}

int ddk_video_get_image_processing(VideoStreamConfigurationHandle* config, int* imageProcessing) {
  return with_record(config, [&](const auto& c) { put(imageProcessing, c.imageProcessing); });
}

int ddk_video_set_image_processing(VideoStreamConfigurationHandle* config, int imageProcessing) {
  return with_record(config, [&](auto& c) { c.imageProcessing = imageProcessing; });
}

int ddk_video_get_profile(VideoStreamConfigurationHandle* config, int* profile) {
  return read_gop_setting(config, profile, &VideoStreamConfiguration::profile, kRejected);
}

int ddk_video_set_profile(VideoStreamConfigurationHandle* config, int profile) {
  // Not a refusal: outside the two encodings the profile is reset to 0.
  return with_record(config,
                     [&](auto& c) { c.profile = has_gop_settings(c) ? profile : 0; });
}

int ddk_video_get_gop_structure(VideoStreamConfigurationHandle* config, int* gopStructure) {
  return read_gop_setting(config, gopStructure, &VideoStreamConfiguration::gopStructure, kOk);
}

int ddk_video_set_gop_structure(VideoStreamConfigurationHandle* config, int gopStructure) {
  return with_record(config, [&](auto& c) { c.gopStructure = gopStructure; });
}

int ddk_video_get_gop(VideoStreamConfigurationHandle* config, unsigned int* gop) {
  return read_gop_setting(config, gop, &VideoStreamConfiguration::gop, kOk);
}

int ddk_video_set_gop(VideoStreamConfigurationHandle* config, unsigned int gop) {
  return guarded(kFailed, [&] {
    auto& c = unwrap(config);
    if (gop == 0) return kRejected;
    c.gop = gop;
    return kOk;
  });
}

int ddk_video_get_framerate(VideoStreamConfigurationHandle* config, unsigned int* framerate) {
  return guarded(kFailed, [&] {
    const auto& c = unwrap(config);
    if (c.framerate == 0) return kRejected;
    put(framerate, c.framerate);
    return kOk;
  });
}

int ddk_video_set_framerate(VideoStreamConfigurationHandle* config, unsigned int framerate) {
  return with_record(config, [&](auto& c) { c.framerate = framerate; });
}

int ddk_video_get_resolution(VideoStreamConfigurationHandle* config, unsigned int* width,
                             unsigned int* height) {
  return guarded(kFailed, [&] {
    const auto& c = unwrap(config);
    if (c.width == 0 || c.height == 0) return kRejected;
    put(width, c.width);
    put(height, c.height);
    return kOk;
  });
}

int ddk_video_set_resolution(VideoStreamConfigurationHandle* config, unsigned int width,
                             unsigned int height) {
  if (width == 0 || height == 0) return kRejected;
  return with_record(config, [&](auto& c) {
    c.width = width;
    c.height = height;
  });
}

int ddk_video_get_encoding(VideoStreamConfigurationHandle* config, EncodingType* encoding) {
  return guarded(kFailed, [&] {
    const auto& c = unwrap(config);
    put(encoding, c.encoding);
    return c.encoding == DDK_ENCODING_NONE ? kRejected : kOk;
  });
}

int ddk_video_set_encoding(VideoStreamConfigurationHandle* config, EncodingType encoding) {
  if (encoding == DDK_ENCODING_NONE) return kRejected;
  return with_record(config, [&](auto& c) { c.encoding = encoding; });
}

StringHandle* ddk_video_get_descriptive_name(VideoStreamConfigurationHandle* config) {
  return guarded(static_cast<StringHandle*>(nullptr),
                 [&] { return wrap(&unwrap(config).descriptiveName); });
}

unsigned int ddk_video_get_timeout(VideoStreamConfigurationHandle* config) {
  return guarded(kDefaultTimeout, [&] { return unwrap(config).timeout; });
}

void ddk_video_set_timeout(VideoStreamConfigurationHandle* config, unsigned int timeout) {
  guarded_void([&] { unwrap(config).timeout = timeout != 0 ? timeout : kDefaultTimeout; });
}

unsigned int ddk_video_get_mtu(VideoStreamConfigurationHandle* config) {
  return guarded(kDefaultMtu, [&] { return unwrap(config).mtu; });
}

void ddk_video_set_mtu(VideoStreamConfigurationHandle* config, unsigned int mtu) {
  guarded_void([&] { unwrap(config).mtu = mtu != 0 ? mtu : kDefaultMtu; });
}

StringHandle* ddk_video_get_multicast(VideoStreamConfigurationHandle* config, unsigned int* port,
                                      unsigned char* ttl, ddk_bool* flag) {
  return guarded(static_cast<StringHandle*>(nullptr), [&]() -> StringHandle* {
    auto& c = unwrap(config);
    if (c.multicastAddress.empty()) return nullptr;
    put(port, c.multicastPort);
    put(ttl, c.multicastTtl);
    put(flag, vantrel::to_ddk_bool(c.multicastFlag));
    return wrap(&c.multicastAddress);
  });
}

int ddk_video_get_bitrate(VideoStreamConfigurationHandle* config) {
  return guarded(kFailed, [&] { return static_cast<int>(unwrap(config).bitrate); });
}

int ddk_video_set_bitrate(VideoStreamConfigurationHandle* config, unsigned int bitrate) {
  return with_record(config, [&](auto& c) { c.bitrate = bitrate; });
}

const char* ddk_video_get_stream_token(VideoStreamConfigurationHandle* config) {
  return guarded(static_cast<const char*>(nullptr),
                 [&] { return unwrap(config).streamToken.c_str(); });
}

void ddk_video_set_descriptive_name(VideoStreamConfigurationHandle* config, const char* text,
                                    unsigned int length) {
  // The copy is made before the move, so a failed copy leaves the old name.
  guarded_void([&] {
    auto& c = unwrap(config);
    c.descriptiveName = vantrel::create_std_string(text, length);
  });
}

int ddk_video_set_stream_token(VideoStreamConfigurationHandle* config, const char* text,
                               unsigned int length) {
  if (text == nullptr || length == 0) return kRejected;
  return with_record(config, [&](auto& c) { c.streamToken = std::string(text, length); });
}

int ddk_video_get_signing(VideoStreamConfigurationHandle* config, ddk_bool* signing) {
  return with_record(config, [&](const auto& c) { put(signing, vantrel::to_ddk_bool(c.signing)); });
}

int ddk_video_set_multicast(VideoStreamConfigurationHandle* config, const char* address,
                            unsigned int length, unsigned int port, unsigned char ttl,
                            ddk_bool flag) {
  return with_record(config, [&](auto& c) {
    if (address == nullptr) {
      c.multicastAddress.clear();
      return;
    }
    std::string text(address, length);  // may throw: nothing is changed yet
    c.multicastAddress = std::move(text);
    c.multicastPort = port;
    c.multicastTtl = ttl;
    c.multicastFlag = vantrel::from_ddk_bool(flag);
  });
}

}  // extern "C"
