// Strings and string lists behind handles.
#include "vantrel/api/strings.h"

#include "handles.h"

using namespace vantrel::ddk::internal;

namespace {
bool text_refused(const char* text, unsigned int length) {
  return text == nullptr || length == 0;
}
}  // namespace

extern "C" {

int ddk_set_string(StringHandle* string, const char* text, unsigned int length) {
  if (text_refused(text, length)) return kFailed;
  // assign() copies into fresh storage before releasing the old one, so a
  // failed allocation keeps the old content.
  return guarded(kFailed, [&] {
    unwrap(string).assign(text, length);
    return kOk;
  });
}

int ddk_prepend_string(StringListHandle* list, const char* text, unsigned int length) {
  if (text_refused(text, length)) return kRejected;
  return guarded(kFailed, [&] {
    auto& strings = unwrap(list);
    strings.insert(strings.begin(), std::string(text, length));
    return kOk;
  });
}

int ddk_append_string(StringListHandle* list, const char* text, unsigned int length) {
  if (text_refused(text, length)) return kRejected;
  return guarded(kFailed, [&] {
    unwrap(list).emplace_back(text, length);
    return kOk;
  });
}

const char* ddk_string_to_cstr(StringHandle* string) {
  const std::string* record = record_of(string);
  return record != nullptr ? record->c_str() : nullptr;
}

unsigned int ddk_get_string_list_size(StringListHandle* list) {
  const auto* strings = record_of(list);
  return strings != nullptr ? static_cast<unsigned int>(strings->size()) : 0U;
}

const char* ddk_get_string_at(StringListHandle* list, unsigned int index) {
  auto* strings = record_of(list);
  if (strings == nullptr) return invalid_handle_failure<const char*>(nullptr);
  return index < strings->size() ? (*strings)[index].c_str() : nullptr;
}

}  // extern "C"
