// Stream connection information. Throw-and-catch: a null handle throws
// inside and every exception becomes the failure value; the value of a text
// setter is judged before its handle. The transmission-mode setter is a
// direct check.
#include "vantrel/api/stream_connections.h"

#include <string>
#include <utility>

#include "media_handles.h"

using namespace vantrel::ddk::internal;

namespace {

enum class TextRule {
  kUrl,        // empty: -1
  kToken,      // empty: -2
  kMediaType,  // empty or not a media type: -2
};

int set_text(StreamConnectionInfoHandle* info, const char* text, unsigned int length,
             std::string StreamConnectionInfo::*field, TextRule rule) {
  if (rule != TextRule::kMediaType) {
    // Nothing is refused after the copy, and an empty text never allocates,
    // so assigning in place (no temporary) gives the same result in every
    // case: assign() builds the new content before releasing the old.
    if (text == nullptr || length == 0) return rule == TextRule::kUrl ? kFailed : kRejected;
    return guarded(kFailed, [&] {
      (unwrap(info).*field).assign(text, length);
      return kOk;
    });
  }
  // The media type is built first and judged after, so a failed copy gives
  // -1 before a refusal.
  return guarded(kFailed, [&] {
    std::string value = vantrel::create_std_string(text, length);
    if (value.empty()) return rule == TextRule::kUrl ? kFailed : kRejected;
    if (rule == TextRule::kMediaType && !vantrel::is_valid_mime_type(value)) return kRejected;
    // Moving in cannot throw: a refused or failed call leaves the field.
    unwrap(info).*field = std::move(value);
    return kOk;
  });
}

}  // namespace

extern "C" {

StreamConnectionInfoHandle* ddk_add_stream_connection_info(StreamConnectionInfosHandle* infos) {
  return guarded(static_cast<StreamConnectionInfoHandle*>(nullptr), [&] {
    auto& records = unwrap(infos);
    records.emplace_back();
    return wrap(&records.back());
  });
}

unsigned int ddk_get_stream_connection_infos_size(StreamConnectionInfosHandle* infos) {
  return guarded(0U, [&] { return static_cast<unsigned int>(unwrap(infos).size()); });
}

StreamConnectionInfoHandle* ddk_get_stream_connection_info_at(StreamConnectionInfosHandle* infos,
                                                              unsigned int index) {
  auto* records = record_of(infos);
  if (records == nullptr) return invalid_handle_failure<StreamConnectionInfoHandle*>(nullptr);
  return wrap(element_at(*records, index));
}

int ddk_set_stream_connection_info_transmission_mode(StreamConnectionInfoHandle* info, int32_t mode) {
  StreamConnectionInfo* record = record_of(info);
  if (record == nullptr) return kFailed;
  record->transmissionMode = mode;
  return kOk;
}

int ddk_set_stream_connection_info_type(StreamConnectionInfoHandle* info, int32_t type) {
  return guarded(kFailed, [&] {
    unwrap(info).type = type;
    return kOk;
  });
}

int ddk_set_stream_connection_info_url(StreamConnectionInfoHandle* info, const char* text,
                                       unsigned int length) {
  return set_text(info, text, length, &StreamConnectionInfo::url, TextRule::kUrl);
}

int ddk_set_stream_connection_info_token(StreamConnectionInfoHandle* info, const char* text,
                                         unsigned int length) {
  return set_text(info, text, length, &StreamConnectionInfo::token, TextRule::kToken);
}

int ddk_set_stream_connection_info_mime_type(StreamConnectionInfoHandle* info, const char* text,
                                             unsigned int length) {
  return set_text(info, text, length, &StreamConnectionInfo::mimeType, TextRule::kMediaType);
}

}  // extern "C"
