// Encoder options filled by a plug-in, and the filters of the host's query.
#include "vantrel/api/encoder_options.h"

#include "video_handles.h"

using namespace vantrel::ddk::internal;

namespace {

constexpr int kMaxGopStructure = 2;
constexpr int kMaxProfile = 5;
constexpr int kHasFilter = 1;
constexpr int kNoFilter = 0;

// Adds `value` to one of the record's sets; a value already there is success.
template <class Member, class Value>
int add_to(EncoderOptionsHandle* options, Member set, const Value& value) {
  return guarded(kFailed, [&] {
    (unwrap(options).*set).insert(value);
    return kOk;
  });
}

int set_range(EncoderOptionsHandle* options, EncoderRange EncoderOptions::*range,
              bool EncoderOptions::*flag, unsigned int first, unsigned int second,
              unsigned int thirdValue) {
  return guarded(kFailed, [&] {
    auto& record = unwrap(options);
    EncoderRange& r = record.*range;
    r.low = first < second ? first : second;
    r.high = first < second ? second : first;
    r.thirdValue = thirdValue;
    record.*flag = true;
    return kOk;
  });
}

template <class Read>
int read_filter(VideoOptionsQueryHandle* query, Read&& read) {
  return guarded(kFailed, [&] { return read(unwrap(query)) ? kHasFilter : kNoFilter; });
}

template <class T, class V>
void put(T* out, V value) {
  if (out != nullptr) *out = value;
}

}  // namespace

extern "C" {

int ddk_add_framerate_to_encoder_options(EncoderOptionsHandle* options, unsigned int framerate) {
  if (framerate == 0) return kRejected;
  return add_to(options, &EncoderOptions::framerates, framerate);
}

int ddk_add_gop_structure_to_encoder_options(EncoderOptionsHandle* options, int gopStructure) {
  if (gopStructure > kMaxGopStructure) return kRejected;
  return add_to(options, &EncoderOptions::gopStructures, gopStructure);
}

int ddk_add_rate_control_to_encoder_options(EncoderOptionsHandle* options, int rateControl) {
  if (rateControl == 0) return kRejected;
  return add_to(options, &EncoderOptions::rateControls, rateControl);
}

int ddk_add_video_profile_to_encoder_options(EncoderOptionsHandle* options, int profile) {
  if (profile > kMaxProfile) return kRejected;
  return add_to(options, &EncoderOptions::videoProfiles, profile);
}

int ddk_add_encoding_to_encoder_options(EncoderOptionsHandle* options, EncodingType encoding) {
  if (encoding == DDK_ENCODING_NONE) return kRejected;
  return add_to(options, &EncoderOptions::encodings, encoding);
}

int ddk_add_resolution_to_encoder_options(EncoderOptionsHandle* options, unsigned int width,
                                          unsigned int height) {
  if (width == 0 || height == 0) return kRejected;
  return add_to(options, &EncoderOptions::resolutions, Resolution(width, height));
}

int ddk_set_gop_range_on_encoder_options(EncoderOptionsHandle* options, unsigned int first,
                                         unsigned int second, unsigned int thirdValue) {
  return set_range(options, &EncoderOptions::gopRange, &EncoderOptions::hasGopRange, first, second,
                   thirdValue);
}

int ddk_set_bitrate_range_on_encoder_options(EncoderOptionsHandle* options, unsigned int first,
                                             unsigned int second, unsigned int thirdValue) {
  return set_range(options, &EncoderOptions::bitrateRange, &EncoderOptions::hasBitrateRange, first,
                   second, thirdValue);
}

int ddk_set_dscp_range_on_encoder_options(EncoderOptionsHandle* options, unsigned int first,
                                          unsigned int second, unsigned int thirdValue) {
  return set_range(options, &EncoderOptions::dscpRange, &EncoderOptions::hasDscpRange, first,
                   second, thirdValue);
}

int ddk_set_signing_on_encoder_options(EncoderOptionsHandle* options, ddk_bool signing) {
  return guarded(kFailed, [&] {
    auto& record = unwrap(options);
    record.signing = signing;
    record.hasSigning = true;
    return kOk;
  });
}

int ddk_get_encoder_query_encoding(VideoOptionsQueryHandle* query, EncodingType* encoding) {
  return read_filter(query, [&](const VideoOptionsQuery& q) {
    if (q.encodingType() == nullptr) return false;
    put(encoding, *q.encodingType());
    return true;
  });
}

int ddk_get_encoder_query_framerate(VideoOptionsQueryHandle* query, unsigned int* framerate) {
  return read_filter(query, [&](const VideoOptionsQuery& q) {
    if (q.framerate() == nullptr) return false;
    put(framerate, *q.framerate());
    return true;
  });
}

int ddk_get_encoder_query_video_resolution(VideoOptionsQueryHandle* query, unsigned int* width,
                                           unsigned int* height) {
  return read_filter(query, [&](const VideoOptionsQuery& q) {
    if (q.resolution() == nullptr) return false;
    put(width, q.resolution()->width);
    put(height, q.resolution()->height);
    return true;
  });
}

}  // extern "C"
