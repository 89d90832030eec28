// Error records, the kit's boolean and byte-counted strings.
#include <cstdlib>
#include <cstring>

#include "vantrel/api/errors.h"

extern "C" {

DDKError* ddk_new_error(const char* message, const int* code) {
  auto* error = static_cast<DDKError*>(std::malloc(sizeof(DDKError)));
  if (error == nullptr) return nullptr;
  error->code = code != nullptr ? *code : 0;
  error->message = ::strdup(message != nullptr ? message : "Unknown error");
  return error;
}

void ddk_free_error(DDKError* error) {
  if (error == nullptr) return;
  std::free(error->message);
  std::free(error);
}

}  // extern "C"

namespace vantrel {

unsigned char to_ddk_bool(bool value) { return value ? 1 : 0; }

bool from_ddk_bool(unsigned char value) { return value != 0; }

std::string create_std_string(const char* text, unsigned int length) {
  if (text == nullptr || length == 0) return std::string();
  return std::string(text, length);
}

}  // namespace vantrel
