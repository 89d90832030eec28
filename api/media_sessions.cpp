// Media sessions: appended to the host's collection and filled field by
// field. Direct checks: a null pointer gives -1 (or null) at once.
#include "vantrel/api/media_sessions.h"

#include <cstring>
#include <string>
#include <utility>

#include "media_handles.h"

using namespace vantrel::ddk::internal;
using vantrel::MediaSession;

namespace {

enum class TextRule {
  kAnyCount,     // a count of 0 stores an empty string
  kNonEmpty,     // a count of 0 is refused
  kMediaType,    // empty, or a valid media type (else -2)
};

int set_text(MediaSessionHandle* session, const char* text, const uint16_t* length,
             std::string MediaSession::*field, TextRule rule) {
  MediaSession* record = record_of(session);
  if (record == nullptr || text == nullptr || length == nullptr) return kFailed;
  const std::size_t count = *length;
  if (rule == TextRule::kNonEmpty && count == 0) return kFailed;
  if (::strnlen(text, count) < count) return kFailed;
  if (rule != TextRule::kMediaType) {
    // assign() builds the new content before releasing the old, so a failed
    // allocation leaves the field as it was; it reuses the field's storage
    // when that is large enough.
    return guarded(kFailed, [&] {
      (record->*field).assign(text, count);
      return kOk;
    });
  }
  // The media type is built first and judged after, so a failed copy gives
  // -1 before a refusal; moving it in cannot throw.
  return guarded(kFailed, [&] {
    std::string value(text, count);
    if (!value.empty() && !vantrel::is_valid_mime_type(value)) return kRejected;
    record->*field = std::move(value);
    return kOk;
  });
}

template <class Field>
int set_number(MediaSessionHandle* session, const Field* value, Field MediaSession::*field) {
  MediaSession* record = record_of(session);
  if (record == nullptr || value == nullptr) return kFailed;
  record->*field = *value;
  return kOk;
}

}  // namespace

extern "C" {

MediaSessionHandle* ddk_add_media_session_to_collection(MediaSessionCollectionHandle* collection) {
  auto* sessions = record_of(collection);
  if (sessions == nullptr) return nullptr;
  // emplace_back either appends or, when growing fails, leaves the vector
  // as it was (the element's move cannot throw).
  return guarded(static_cast<MediaSessionHandle*>(nullptr), [&] {
    sessions->emplace_back();
    return wrap(&sessions->back());
  });
}

int ddk_set_media_session_transmission_mode(MediaSessionHandle* session, int32_t mode) {
  return set_number(session, &mode, &MediaSession::transmissionMode);
}

int ddk_set_media_session_stream_type(MediaSessionHandle* session, const int32_t* type) {
  return set_number(session, type, &MediaSession::streamType);
}

int ddk_set_media_session_stream_state(MediaSessionHandle* session, const int32_t* state) {
  return set_number(session, state, &MediaSession::streamState);
}

int ddk_set_media_session_timeout(MediaSessionHandle* session, const uint16_t* timeout) {
  return set_number(session, timeout, &MediaSession::timeout);
}

int ddk_set_media_session_destination_port(MediaSessionHandle* session, const uint16_t* port) {
  return set_number(session, port, &MediaSession::destinationPort);
}

int ddk_set_media_session_uri(MediaSessionHandle* session, const char* text, const uint16_t* length) {
  return set_text(session, text, length, &MediaSession::uri, TextRule::kAnyCount);
}

int ddk_set_media_session_mime(MediaSessionHandle* session, const char* text, const uint16_t* length) {
  return set_text(session, text, length, &MediaSession::mime, TextRule::kMediaType);
}

int ddk_set_media_session_stream_token(MediaSessionHandle* session, const char* text,
                                       const uint16_t* length) {
  return set_text(session, text, length, &MediaSession::streamToken, TextRule::kAnyCount);
}

int ddk_set_media_session_destination_ip(MediaSessionHandle* session, const char* text,
                                         const uint16_t* length) {
  return set_text(session, text, length, &MediaSession::destinationIp, TextRule::kAnyCount);
}

int ddk_set_media_session_id(MediaSessionHandle* session, const char* text, const uint16_t* length) {
  return set_text(session, text, length, &MediaSession::id, TextRule::kNonEmpty);
}

}  // extern "C"
