#include "vantrel/extensions/media_session_extension.h"

#include "vantrel/api/strings.h"

namespace vantrel::ddk {

namespace {
// The kit's own RSA public key (X.509 SubjectPublicKeyInfo, PEM), without a
// newline after the last line.
constexpr char kPublicKey[] =
    "-----BEGIN PUBLIC KEY-----\n"
    "MDwwDQYJKoZIhvcNAQEBBQADKwAwKAIhAMES4/DEU2L6OV6qmdD3DJ+dPMF/O5U8\n"
    "QqEtp9pMbwDlAgMBAAE=\n"
    "-----END PUBLIC KEY-----";
constexpr unsigned int kPublicKeyLength = 137;
static_assert(sizeof kPublicKey - 1 == kPublicKeyLength, "the key text is 137 characters");
}  // namespace

IMediaSessionExtension::IMediaSessionExtension() = default;

IMediaSessionExtension::~IMediaSessionExtension() = default;

DDKError* IMediaSessionExtension::publicRSA(StringHandle* key) {
  ddk_set_string(key, kPublicKey, kPublicKeyLength);
  return nullptr;
}

}  // namespace vantrel::ddk
