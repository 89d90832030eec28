// Media sessions, stream connection information and network addresses under
// arbitrary call sequences: null and valid handles, counts up to the owned
// bytes, NUL bytes, extreme codes. Each result is checked against the
// documented rule and every stored value is read back.
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "fuzz_input.h"
#include "vantrel/ddk.h"

using vantrel::MediaSession;
using vantrel::NetworkAddress;
using vantrel::ddk::internal::StreamConnectionInfo;

namespace {

// The media type rule, written independently of the library's own.
bool oracle_media_type(const std::string& s) {
  const std::size_t slash = s.find('/');
  if (slash == std::string::npos || slash == 0 || slash + 1 == s.size()) return false;
  for (std::size_t i = 0; i < s.size(); ++i) {
    const auto c = static_cast<unsigned char>(s[i]);
    if (i == slash) continue;
    if (c < 0x20 || c == 0x7F || std::strchr(" ()<>@,;:\\\"/[]?={}", c) != nullptr) return false;
  }
  return true;
}

bool same(const MediaSession& a, const MediaSession& b) {
  return a.uri == b.uri && a.mime == b.mime && a.transmissionMode == b.transmissionMode &&
         a.streamToken == b.streamToken && a.streamType == b.streamType &&
         a.destinationIp == b.destinationIp && a.id == b.id && a.timeout == b.timeout &&
         a.streamState == b.streamState && a.destinationPort == b.destinationPort;
}

bool same(const StreamConnectionInfo& a, const StreamConnectionInfo& b) {
  return a.url == b.url && a.mimeType == b.mimeType && a.token == b.token &&
         a.transmissionMode == b.transmissionMode && a.type == b.type;
}

bool is_default(const MediaSession& s) { return same(s, MediaSession{}); }

// A record of the collection, or null when asked for or when there is none.
template <class Record>
Record* pick(FuzzInput& in, std::vector<Record>& records, bool null) {
  if (null || records.empty()) return nullptr;
  return &records[in.choice(static_cast<unsigned>(records.size()))];
}

struct State {
  std::vector<MediaSession> sessions;
  std::vector<StreamConnectionInfo> infos;
  std::vector<NetworkAddress> addresses;
};

void media_session_call(FuzzInput& in, State& st, bool nullHandle, const std::string& bytes,
                        bool nullText) {
  auto* col = reinterpret_cast<MediaSessionCollectionHandle*>(&st.sessions);
  MediaSession* record = pick(in, st.sessions, nullHandle);
  auto* h = reinterpret_cast<MediaSessionHandle*>(record);
  const MediaSession before = record != nullptr ? *record : MediaSession{};
  switch (in.choice(4)) {
    case 0: {
      const std::size_t size = st.sessions.size();
      MediaSessionHandle* added = ddk_add_media_session_to_collection(nullHandle ? nullptr : col);
      if (nullHandle) {
        FUZZ_CHECK(added == nullptr && st.sessions.size() == size);
      } else {
        FUZZ_CHECK(st.sessions.size() == size + 1);
        FUZZ_CHECK(added == reinterpret_cast<MediaSessionHandle*>(&st.sessions.back()));
        FUZZ_CHECK(is_default(st.sessions.back()));
      }
      return;
    }
    case 1: {
      // Numeric fields, with the value pointer null now and then.
      const bool nullValue = in.choice(8) == 0;
      const std::uint32_t v = in.u32();
      const std::int32_t i = static_cast<std::int32_t>(v);
      const std::uint16_t u = static_cast<std::uint16_t>(v);
      const unsigned which = in.choice(5);
      int r = 0;
      MediaSession expected = before;
      switch (which) {
        case 0: r = ddk_set_media_session_transmission_mode(h, i); expected.transmissionMode = i; break;
        case 1: r = ddk_set_media_session_stream_type(h, nullValue ? nullptr : &i); expected.streamType = i; break;
        case 2: r = ddk_set_media_session_stream_state(h, nullValue ? nullptr : &i); expected.streamState = i; break;
        case 3: r = ddk_set_media_session_timeout(h, nullValue ? nullptr : &u); expected.timeout = u; break;
        default: r = ddk_set_media_session_destination_port(h, nullValue ? nullptr : &u); expected.destinationPort = u; break;
      }
      const bool refused = record == nullptr || (which != 0 && nullValue);
      FUZZ_CHECK(r == (refused ? -1 : 0));
      if (record != nullptr) FUZZ_CHECK(same(*record, refused ? before : expected));
      return;
    }
    default: {
      // Text fields: a count never beyond the owned bytes.
      const bool nullLength = in.choice(8) == 0;
      const std::uint16_t count = static_cast<std::uint16_t>(in.choice(static_cast<unsigned>(bytes.size()) + 1));
      const char* text = nullText ? nullptr : bytes.data();
      using Setter = int (*)(MediaSessionHandle*, const char*, const std::uint16_t*);
      struct Field { Setter set; std::string MediaSession::*member; };
      static const Field fields[] = {
          {ddk_set_media_session_uri, &MediaSession::uri},
          {ddk_set_media_session_mime, &MediaSession::mime},
          {ddk_set_media_session_stream_token, &MediaSession::streamToken},
          {ddk_set_media_session_destination_ip, &MediaSession::destinationIp},
          {ddk_set_media_session_id, &MediaSession::id}};
      const unsigned which = in.choice(5);
      const int r = fields[which].set(h, text, nullLength ? nullptr : &count);
      const std::string value = text != nullptr ? std::string(text, count) : std::string();
      int expected = 0;
      if (record == nullptr || text == nullptr || nullLength) {
        expected = -1;
      } else if (which == 4 && count == 0) {
        expected = -1;
      } else if (value.find('\0') != std::string::npos) {
        expected = -1;
      } else if (which == 1 && !value.empty() && !oracle_media_type(value)) {
        expected = -2;
      }
      FUZZ_CHECK(r == expected);
      if (record == nullptr) return;
      MediaSession after = before;
      if (r == 0) after.*fields[which].member = value;
      FUZZ_CHECK(same(*record, after));
      // The setters keep every text free of NUL bytes and the media type valid.
      const std::string& stored = record->*fields[which].member;
      FUZZ_CHECK(std::strlen(stored.c_str()) == stored.size());
      FUZZ_CHECK(record->mime.empty() || oracle_media_type(record->mime));
      return;
    }
  }
}

void stream_connection_call(FuzzInput& in, State& st, bool nullHandle, const std::string& bytes,
                            bool nullText) {
  auto* col = reinterpret_cast<StreamConnectionInfosHandle*>(nullHandle ? nullptr : &st.infos);
  StreamConnectionInfo* record = pick(in, st.infos, nullHandle);
  auto* h = reinterpret_cast<StreamConnectionInfoHandle*>(record);
  const StreamConnectionInfo before = record != nullptr ? *record : StreamConnectionInfo{};
  switch (in.choice(5)) {
    case 0: {
      const std::size_t size = st.infos.size();
      StreamConnectionInfoHandle* added = ddk_add_stream_connection_info(col);
      FUZZ_CHECK(st.infos.size() == size + (nullHandle ? 0 : 1));
      FUZZ_CHECK(added == (nullHandle ? nullptr : reinterpret_cast<StreamConnectionInfoHandle*>(&st.infos.back())));
      if (!nullHandle) FUZZ_CHECK(same(st.infos.back(), StreamConnectionInfo{}));
      return;
    }
    case 1: {
      const unsigned index = in.flag() ? in.u32() : in.choice(static_cast<unsigned>(st.infos.size()) + 2);
      StreamConnectionInfoHandle* at = ddk_get_stream_connection_info_at(col, index);
      const bool found = !nullHandle && index < st.infos.size();
      FUZZ_CHECK(at == (found ? reinterpret_cast<StreamConnectionInfoHandle*>(&st.infos[index]) : nullptr));
      FUZZ_CHECK(ddk_get_stream_connection_infos_size(col) == (nullHandle ? 0u : st.infos.size()));
      return;
    }
    case 2: {
      const std::int32_t code = in.i32();
      const bool mode = in.flag();
      const int r = mode ? ddk_set_stream_connection_info_transmission_mode(h, code)
                         : ddk_set_stream_connection_info_type(h, code);
      FUZZ_CHECK(r == (record == nullptr ? -1 : 0));
      if (record != nullptr) {
        StreamConnectionInfo after = before;
        (mode ? after.transmissionMode : after.type) = code;
        FUZZ_CHECK(same(*record, after));
      }
      return;
    }
    default: {
      const unsigned length = in.flag() ? in.choice(static_cast<unsigned>(bytes.size()) + 1)
                                        : static_cast<unsigned>(bytes.size());
      const char* text = nullText ? nullptr : bytes.data();
      const std::string value = text != nullptr ? std::string(text, length) : std::string();
      const unsigned which = in.choice(3);
      int r = 0;
      int expected = 0;
      std::string StreamConnectionInfo::*member = nullptr;
      // The value is judged before the record.
      switch (which) {
        case 0:
          r = ddk_set_stream_connection_info_url(h, text, length);
          member = &StreamConnectionInfo::url;
          expected = value.empty() || record == nullptr ? -1 : 0;
          break;
        case 1:
          r = ddk_set_stream_connection_info_token(h, text, length);
          member = &StreamConnectionInfo::token;
          expected = value.empty() ? -2 : record == nullptr ? -1 : 0;
          break;
        default:
          r = ddk_set_stream_connection_info_mime_type(h, text, length);
          member = &StreamConnectionInfo::mimeType;
          expected = !oracle_media_type(value) ? -2 : record == nullptr ? -1 : 0;
          break;
      }
      FUZZ_CHECK(r == expected);
      if (record != nullptr) {
        StreamConnectionInfo after = before;
        if (r == 0) after.*member = value;
        FUZZ_CHECK(same(*record, after));
      }
      return;
    }
  }
}

void network_address_call(FuzzInput& in, State& st, bool nullHandle, const std::string& bytes,
                          bool nullText) {
  auto* col = reinterpret_cast<NetworkAddressCollectionHandle*>(nullHandle ? nullptr : &st.addresses);
  switch (in.choice(3)) {
    case 0: {
      const std::vector<NetworkAddress> before = st.addresses;
      const std::int32_t type = in.i32();
      const unsigned length = in.flag() ? in.choice(static_cast<unsigned>(bytes.size()) + 1)
                                        : static_cast<unsigned>(bytes.size());
      const char* text = nullText ? nullptr : bytes.data();
      const int r = ddk_append_network_address(col, type, text, length);
      // The collection is tested first.
      const bool empty = text == nullptr || length == 0;
      FUZZ_CHECK(r == (nullHandle ? -1 : empty ? -2 : 0));
      FUZZ_CHECK(st.addresses.size() == before.size() + (r == 0 ? 1 : 0));
      for (std::size_t i = 0; i < before.size(); ++i) {
        FUZZ_CHECK(st.addresses[i].type == before[i].type && st.addresses[i].address == before[i].address);
      }
      if (r == 0) {
        FUZZ_CHECK(st.addresses.back().type == type);
        FUZZ_CHECK(st.addresses.back().address == std::string(text, length));
      }
      return;
    }
    case 1: {
      const unsigned index = in.flag() ? in.u32() : in.choice(static_cast<unsigned>(st.addresses.size()) + 2);
      NetworkAddressHandle* at = ddk_get_network_address_at(col, index);
      const bool found = !nullHandle && index < st.addresses.size();
      FUZZ_CHECK(at == (found ? reinterpret_cast<NetworkAddressHandle*>(&st.addresses[index]) : nullptr));
      FUZZ_CHECK(ddk_get_network_address_collection_size(col) == (nullHandle ? 0u : st.addresses.size()));
      return;
    }
    default: {
      NetworkAddress* record = pick(in, st.addresses, nullHandle);
      auto* h = reinterpret_cast<NetworkAddressHandle*>(record);
      const char* text = ddk_get_network_address(h);
      FUZZ_CHECK(text == (record != nullptr ? record->address.c_str() : nullptr));
      const bool nullType = in.choice(8) == 0;
      std::int32_t type = 0x5A5A5A5A;
      const int r = ddk_get_network_address_type(h, nullType ? nullptr : &type);
      FUZZ_CHECK(r == (record == nullptr || nullType ? -1 : 0));
      FUZZ_CHECK(type == (r == 0 ? record->type : 0x5A5A5A5A));
      return;
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput in(data, size);
  State st;
  while (!in.empty()) {
    const bool nullHandle = in.choice(8) == 0;
    const bool nullText = in.choice(8) == 0;
    const std::string bytes = in.bytes();
    switch (in.choice(4)) {
      case 0: media_session_call(in, st, nullHandle, bytes, nullText); break;
      case 1: stream_connection_call(in, st, nullHandle, bytes, nullText); break;
      case 2: network_address_call(in, st, nullHandle, bytes, nullText); break;
      default: FUZZ_CHECK(vantrel::is_valid_mime_type(bytes) == oracle_media_type(bytes)); break;
    }
  }
  return 0;
}
