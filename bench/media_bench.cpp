// Media sessions, stream connection information and network addresses
// against direct code on the same records.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "baseline.h"
#include "vantrel/ddk.h"

using vantrel::MediaSession;
using vantrel::NetworkAddress;
using StreamConnectionInfo = vantrel::ddk::internal::StreamConnectionInfo;

namespace {

const char kUri[] = "rtsp://192.0.2.10:554/stream/main";
const uint16_t kUriLength = sizeof kUri - 1;
const char kMime[] = "video/H264";
const uint16_t kMimeLength = sizeof kMime - 1;
const char kAddress[] = "2001:db8::10";

template <class H, class R>
H* handle(R& record) {
  return reinterpret_cast<H*>(&record);
}

// The media type rule written out: a token, one slash, a token.
bool direct_token_byte(unsigned char c) {
  return c > 0x20 && c != 0x7F && std::strchr("()<>@,;:\\\"/[]?={}", c) == nullptr;
}
bool direct_mime(const char* text, std::size_t length) {
  const char* slash = static_cast<const char*>(std::memchr(text, '/', length));
  if (slash == nullptr || slash == text || slash + 1 == text + length) return false;
  for (const char* p = text; p != text + length; ++p) {
    if (p != slash && !direct_token_byte(static_cast<unsigned char>(*p))) return false;
  }
  return true;
}

BASELINE MediaSession* direct_add_session(std::vector<MediaSession>& v) {
  v.emplace_back();
  return &v.back();
}
BASELINE int direct_session_text(MediaSession* s, const char* text, const uint16_t* length,
                                 std::string MediaSession::*field) {
  if (s == nullptr || text == nullptr || length == nullptr) return -1;
  if (::strnlen(text, *length) < *length) return -1;
  (s->*field).assign(text, *length);
  return 0;
}
BASELINE int direct_session_mime(MediaSession* s, const char* text, const uint16_t* length) {
  if (s == nullptr || text == nullptr || length == nullptr) return -1;
  if (::strnlen(text, *length) < *length) return -1;
  if (*length != 0 && !direct_mime(text, *length)) return -2;
  s->mime.assign(text, *length);
  return 0;
}
BASELINE int direct_session_port(MediaSession* s, const uint16_t* port) {
  if (s == nullptr || port == nullptr) return -1;
  s->destinationPort = *port;
  return 0;
}

BASELINE StreamConnectionInfo* direct_add_info(std::vector<StreamConnectionInfo>& v) {
  v.emplace_back();
  return &v.back();
}
BASELINE int direct_info_url(StreamConnectionInfo* info, const char* text, unsigned length) {
  if (text == nullptr || length == 0) return -1;
  if (info == nullptr) return -1;
  info->url.assign(text, length);
  return 0;
}
BASELINE int direct_info_mime(StreamConnectionInfo* info, const char* text, unsigned length) {
  if (text == nullptr || length == 0 || !direct_mime(text, length)) return -2;
  if (info == nullptr) return -1;
  info->mimeType.assign(text, length);
  return 0;
}
BASELINE StreamConnectionInfo* direct_info_at(std::vector<StreamConnectionInfo>* v, unsigned index) {
  return v != nullptr && index < v->size() ? &(*v)[index] : nullptr;
}

BASELINE int direct_append_address(std::vector<NetworkAddress>& v, int32_t type, const char* text,
                                   unsigned length) {
  if (text == nullptr || length == 0) return -2;
  v.emplace_back(type, std::string(text, length));
  return 0;
}
BASELINE NetworkAddress* direct_address_at(std::vector<NetworkAddress>* v, unsigned index) {
  return v != nullptr && index < v->size() ? &(*v)[index] : nullptr;
}
BASELINE int direct_address_type(NetworkAddress* a, int32_t* type) {
  if (a == nullptr || type == nullptr) return -1;
  *type = a->type;
  return 0;
}

// Media sessions.

void BM_AddMediaSession(benchmark::State& state) {
  std::vector<MediaSession> v;
  append_loop(state, v, [&] {
    benchmark::DoNotOptimize(ddk_add_media_session_to_collection(handle<MediaSessionCollectionHandle>(v)));
  });
}
void BM_AddMediaSession_Baseline(benchmark::State& state) {
  std::vector<MediaSession> v;
  append_loop(state, v, [&] { benchmark::DoNotOptimize(direct_add_session(v)); });
}
void BM_AddMediaSession_NullHandle(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(ddk_add_media_session_to_collection(nullptr));
}

void BM_SetMediaSessionUri(benchmark::State& state) {
  MediaSession s;
  for (auto _ : state) {
    benchmark::DoNotOptimize(ddk_set_media_session_uri(handle<MediaSessionHandle>(s), kUri, &kUriLength));
  }
}
void BM_SetMediaSessionUri_Baseline(benchmark::State& state) {
  MediaSession s;
  for (auto _ : state) benchmark::DoNotOptimize(direct_session_text(&s, kUri, &kUriLength, &MediaSession::uri));
}
void BM_SetMediaSessionUri_NullHandle(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(ddk_set_media_session_uri(nullptr, kUri, &kUriLength));
}

void BM_SetMediaSessionMime(benchmark::State& state) {
  MediaSession s;
  for (auto _ : state) {
    benchmark::DoNotOptimize(ddk_set_media_session_mime(handle<MediaSessionHandle>(s), kMime, &kMimeLength));
  }
}
void BM_SetMediaSessionMime_Baseline(benchmark::State& state) {
  MediaSession s;
  for (auto _ : state) benchmark::DoNotOptimize(direct_session_mime(&s, kMime, &kMimeLength));
}
void BM_SetMediaSessionMime_Refused(benchmark::State& state) {
  MediaSession s;
  const uint16_t length = 5;  // "video": no slash
  for (auto _ : state) {
    benchmark::DoNotOptimize(ddk_set_media_session_mime(handle<MediaSessionHandle>(s), kMime, &length));
  }
}

void BM_SetMediaSessionPort(benchmark::State& state) {
  MediaSession s;
  const uint16_t port = 554;
  for (auto _ : state) {
    benchmark::DoNotOptimize(ddk_set_media_session_destination_port(handle<MediaSessionHandle>(s), &port));
  }
}
void BM_SetMediaSessionPort_Baseline(benchmark::State& state) {
  MediaSession s;
  const uint16_t port = 554;
  for (auto _ : state) benchmark::DoNotOptimize(direct_session_port(&s, &port));
}
void BM_SetMediaSessionPort_BaselineIndirect(benchmark::State& state) {
  MediaSession s;
  const uint16_t port = 554;
  auto call = opaque(&direct_session_port);
  for (auto _ : state) benchmark::DoNotOptimize(call(&s, &port));
}

// Stream connection information.

void BM_AddStreamConnectionInfo(benchmark::State& state) {
  std::vector<StreamConnectionInfo> v;
  append_loop(state, v, [&] {
    benchmark::DoNotOptimize(ddk_add_stream_connection_info(handle<StreamConnectionInfosHandle>(v)));
  });
}
void BM_AddStreamConnectionInfo_Baseline(benchmark::State& state) {
  std::vector<StreamConnectionInfo> v;
  append_loop(state, v, [&] { benchmark::DoNotOptimize(direct_add_info(v)); });
}
void BM_AddStreamConnectionInfo_NullHandle(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(ddk_add_stream_connection_info(nullptr));
}

void BM_SetStreamConnectionUrl(benchmark::State& state) {
  StreamConnectionInfo info;
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        ddk_set_stream_connection_info_url(handle<StreamConnectionInfoHandle>(info), kUri, kUriLength));
  }
}
void BM_SetStreamConnectionUrl_Baseline(benchmark::State& state) {
  StreamConnectionInfo info;
  for (auto _ : state) benchmark::DoNotOptimize(direct_info_url(&info, kUri, kUriLength));
}
void BM_SetStreamConnectionUrl_NullHandle(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(ddk_set_stream_connection_info_url(nullptr, kUri, kUriLength));
}

void BM_SetStreamConnectionMimeType(benchmark::State& state) {
  StreamConnectionInfo info;
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        ddk_set_stream_connection_info_mime_type(handle<StreamConnectionInfoHandle>(info), kMime, kMimeLength));
  }
}
void BM_SetStreamConnectionMimeType_Baseline(benchmark::State& state) {
  StreamConnectionInfo info;
  for (auto _ : state) benchmark::DoNotOptimize(direct_info_mime(&info, kMime, kMimeLength));
}
void BM_SetStreamConnectionMimeType_Refused(benchmark::State& state) {
  StreamConnectionInfo info;
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        ddk_set_stream_connection_info_mime_type(handle<StreamConnectionInfoHandle>(info), kMime, 5));
  }
}

void BM_GetStreamConnectionInfoAt(benchmark::State& state) {
  std::vector<StreamConnectionInfo> v(8);
  for (auto _ : state) {
    benchmark::DoNotOptimize(ddk_get_stream_connection_info_at(handle<StreamConnectionInfosHandle>(v), 5));
  }
}
void BM_GetStreamConnectionInfoAt_Baseline(benchmark::State& state) {
  std::vector<StreamConnectionInfo> v(8);
  for (auto _ : state) benchmark::DoNotOptimize(direct_info_at(&v, 5));
}
void BM_GetStreamConnectionInfoAt_BaselineIndirect(benchmark::State& state) {
  std::vector<StreamConnectionInfo> v(8);
  auto call = opaque(&direct_info_at);
  for (auto _ : state) benchmark::DoNotOptimize(call(&v, 5));
}
void BM_GetStreamConnectionInfoAt_OutOfRange(benchmark::State& state) {
  std::vector<StreamConnectionInfo> v(8);
  for (auto _ : state) {
    benchmark::DoNotOptimize(ddk_get_stream_connection_info_at(handle<StreamConnectionInfosHandle>(v), 8));
  }
}

// Network addresses.

void BM_AppendNetworkAddress(benchmark::State& state) {
  std::vector<NetworkAddress> v;
  append_loop(state, v, [&] {
    benchmark::DoNotOptimize(
        ddk_append_network_address(handle<NetworkAddressCollectionHandle>(v), 2, kAddress, sizeof kAddress - 1));
  });
}
void BM_AppendNetworkAddress_Baseline(benchmark::State& state) {
  std::vector<NetworkAddress> v;
  append_loop(state, v, [&] { benchmark::DoNotOptimize(direct_append_address(v, 2, kAddress, sizeof kAddress - 1)); });
}
void BM_AppendNetworkAddress_Refused(benchmark::State& state) {
  std::vector<NetworkAddress> v;
  for (auto _ : state) {
    benchmark::DoNotOptimize(ddk_append_network_address(handle<NetworkAddressCollectionHandle>(v), 2, kAddress, 0));
  }
}

void BM_GetNetworkAddressAt(benchmark::State& state) {
  std::vector<NetworkAddress> v(8, NetworkAddress(2, kAddress));
  for (auto _ : state) {
    benchmark::DoNotOptimize(ddk_get_network_address_at(handle<NetworkAddressCollectionHandle>(v), 5));
  }
}
void BM_GetNetworkAddressAt_Baseline(benchmark::State& state) {
  std::vector<NetworkAddress> v(8, NetworkAddress(2, kAddress));
  for (auto _ : state) benchmark::DoNotOptimize(direct_address_at(&v, 5));
}
void BM_GetNetworkAddressAt_BaselineIndirect(benchmark::State& state) {
  std::vector<NetworkAddress> v(8, NetworkAddress(2, kAddress));
  auto call = opaque(&direct_address_at);
  for (auto _ : state) benchmark::DoNotOptimize(call(&v, 5));
}
void BM_GetNetworkAddressAt_OutOfRange(benchmark::State& state) {
  std::vector<NetworkAddress> v(8, NetworkAddress(2, kAddress));
  for (auto _ : state) {
    benchmark::DoNotOptimize(ddk_get_network_address_at(handle<NetworkAddressCollectionHandle>(v), 8));
  }
}

void BM_GetNetworkAddressType(benchmark::State& state) {
  NetworkAddress a(2, kAddress);
  int32_t type = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(ddk_get_network_address_type(handle<NetworkAddressHandle>(a), &type));
  }
}
void BM_GetNetworkAddressType_Baseline(benchmark::State& state) {
  NetworkAddress a(2, kAddress);
  int32_t type = 0;
  for (auto _ : state) benchmark::DoNotOptimize(direct_address_type(&a, &type));
}
void BM_GetNetworkAddressType_BaselineIndirect(benchmark::State& state) {
  NetworkAddress a(2, kAddress);
  int32_t type = 0;
  auto call = opaque(&direct_address_type);
  for (auto _ : state) benchmark::DoNotOptimize(call(&a, &type));
}
void BM_GetNetworkAddressType_NullHandle(benchmark::State& state) {
  int32_t type = 0;
  for (auto _ : state) benchmark::DoNotOptimize(ddk_get_network_address_type(nullptr, &type));
}

}  // namespace

BENCHMARK(BM_AddMediaSession);
BENCHMARK(BM_AddMediaSession_Baseline);
BENCHMARK(BM_AddMediaSession_NullHandle);
BENCHMARK(BM_SetMediaSessionUri);
BENCHMARK(BM_SetMediaSessionUri_Baseline);
BENCHMARK(BM_SetMediaSessionUri_NullHandle);
BENCHMARK(BM_SetMediaSessionMime);
BENCHMARK(BM_SetMediaSessionMime_Baseline);
BENCHMARK(BM_SetMediaSessionMime_Refused);
BENCHMARK(BM_SetMediaSessionPort);
BENCHMARK(BM_SetMediaSessionPort_Baseline);
BENCHMARK(BM_SetMediaSessionPort_BaselineIndirect);
BENCHMARK(BM_AddStreamConnectionInfo);
BENCHMARK(BM_AddStreamConnectionInfo_Baseline);
BENCHMARK(BM_AddStreamConnectionInfo_NullHandle);
BENCHMARK(BM_SetStreamConnectionUrl);
BENCHMARK(BM_SetStreamConnectionUrl_Baseline);
BENCHMARK(BM_SetStreamConnectionUrl_NullHandle);
BENCHMARK(BM_SetStreamConnectionMimeType);
BENCHMARK(BM_SetStreamConnectionMimeType_Baseline);
BENCHMARK(BM_SetStreamConnectionMimeType_Refused);
BENCHMARK(BM_GetStreamConnectionInfoAt);
BENCHMARK(BM_GetStreamConnectionInfoAt_Baseline);
BENCHMARK(BM_GetStreamConnectionInfoAt_BaselineIndirect);
BENCHMARK(BM_GetStreamConnectionInfoAt_OutOfRange);
BENCHMARK(BM_AppendNetworkAddress);
BENCHMARK(BM_AppendNetworkAddress_Baseline);
BENCHMARK(BM_AppendNetworkAddress_Refused);
BENCHMARK(BM_GetNetworkAddressAt);
BENCHMARK(BM_GetNetworkAddressAt_Baseline);
BENCHMARK(BM_GetNetworkAddressAt_BaselineIndirect);
BENCHMARK(BM_GetNetworkAddressAt_OutOfRange);
BENCHMARK(BM_GetNetworkAddressType);
BENCHMARK(BM_GetNetworkAddressType_Baseline);
BENCHMARK(BM_GetNetworkAddressType_BaselineIndirect);
BENCHMARK(BM_GetNetworkAddressType_NullHandle);
