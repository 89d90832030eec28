// The media type check shared by the media session and stream connection
// setters: the HTTP/1.1 token rule on both sides of a single slash.
#include <string_view>

#include "vantrel/model/media_session.h"

namespace vantrel {

namespace {

// The token rule's separators other than space and horizontal tab, which
// the control and space tests already cover.
constexpr std::string_view kSeparators = "()<>@,;:\\\"/[]?={}";

bool is_token_byte(unsigned char byte) {
  if (byte < 0x20 || byte == 0x7F || byte == ' ') return false;
  return kSeparators.find(static_cast<char>(byte)) == std::string_view::npos;
}

bool all_token_bytes(std::string_view text) {
  for (char c : text) {
    if (!is_token_byte(static_cast<unsigned char>(c))) return false;
  }
  return true;
}

}  // namespace

bool is_valid_mime_type(const std::string& text) {
  const std::string_view view(text);
  const std::size_t slash = view.find('/');
  if (slash == std::string_view::npos || slash == 0 || slash + 1 == view.size()) return false;
  return all_token_bytes(view.substr(0, slash)) && all_token_bytes(view.substr(slash + 1));
}

}  // namespace vantrel
