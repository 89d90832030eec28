// Strings, string lists, error records and the parameter list under arbitrary
// call sequences with null and valid handles, zero and large counts, NUL bytes.
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz_input.h"
#include "vantrel/ddk.h"

namespace {

StringHandle* handle(std::string* s) { return reinterpret_cast<StringHandle*>(s); }
StringListHandle* handle(std::vector<std::string>* v) { return reinterpret_cast<StringListHandle*>(v); }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput in(data, size);
  std::string text;
  std::vector<std::string> list;
  PluginParameters params{nullptr, nullptr};
  std::size_t entries = 0;

  while (!in.empty()) {
    const bool nullHandle = in.choice(8) == 0;
    const bool nullText = in.choice(8) == 0;
    const std::string bytes = in.bytes();
    const char* ptr = nullText ? nullptr : bytes.data();
    // Counts never exceed the owned bytes: the contract makes the caller
    // guarantee them.
    const unsigned length = bytes.empty() ? 0 : in.choice(static_cast<unsigned>(bytes.size()) + 1);
    const bool refused = ptr == nullptr || length == 0;

    switch (in.choice(9)) {
      case 0: {
        const std::string before = text;
        const int r = ddk_set_string(nullHandle ? nullptr : handle(&text), ptr, length);
        FUZZ_CHECK(r == 0 || r == -1);
        FUZZ_CHECK((r == 0) == (!refused && !nullHandle));
        FUZZ_CHECK(r == 0 ? text == std::string(ptr, length) : text == before);
        break;
      }
      case 1:
      case 2: {
        const bool prepend = in.flag();
        const std::vector<std::string> before = list;
        auto* h = nullHandle ? nullptr : handle(&list);
        const int r = prepend ? ddk_prepend_string(h, ptr, length) : ddk_append_string(h, ptr, length);
        FUZZ_CHECK(r == (refused ? -2 : nullHandle ? -1 : 0));
        if (r != 0) {
          FUZZ_CHECK(list == before);
        } else {
          FUZZ_CHECK(list.size() == before.size() + 1);
          FUZZ_CHECK((prepend ? list.front() : list.back()) == std::string(ptr, length));
        }
        break;
      }
      case 3: {
        const unsigned index = in.flag() ? in.u32() : in.choice(static_cast<unsigned>(list.size()) + 2);
        const char* s = ddk_get_string_at(nullHandle ? nullptr : handle(&list), index);
        FUZZ_CHECK((s != nullptr) == (!nullHandle && index < list.size()));
        if (s != nullptr) FUZZ_CHECK(s == list[index].c_str());
        FUZZ_CHECK(ddk_get_string_list_size(nullHandle ? nullptr : handle(&list)) ==
                   (nullHandle ? 0u : list.size()));
        break;
      }
      case 4: {
        const char* s = ddk_string_to_cstr(nullHandle ? nullptr : handle(&text));
        FUZZ_CHECK(nullHandle ? s == nullptr : s == text.c_str());
        break;
      }
      case 5: {
        const std::string message(bytes.c_str());  // up to the first NUL
        const int code = in.i32();
        DDKError* e = ddk_new_error(nullText ? nullptr : message.c_str(), in.flag() ? nullptr : &code);
        FUZZ_CHECK(e != nullptr && e->message != nullptr);
        FUZZ_CHECK(std::string(e->message) == (nullText ? std::string("Unknown error") : message));
        ddk_free_error(e);
        break;
      }
      case 6:
        insert_plugin(nullHandle ? nullptr : &params, &params, nullptr, &text);
        if (!nullHandle) ++entries;
        break;
      case 7: {
        std::size_t n = 0;
        for (PluginEntry* e = params.head; e != nullptr; e = e->next) ++n;
        FUZZ_CHECK(n == entries);
        break;
      }
      default:
        free_parameters(nullHandle ? nullptr : &params);
        if (!nullHandle) {
          FUZZ_CHECK(params.head == nullptr);
          entries = 0;
        }
        break;
    }
  }
  free_parameters(&params);
  return 0;
}
