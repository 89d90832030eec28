// The plug-in parameter list. C heap throughout, so C callers may free entries.
#include <cstdlib>

#include "vantrel/api/parameters.h"

extern "C" {

PluginEntry* new_plugin(void* param1, void* param2, void* param3) {
  auto* entry = static_cast<PluginEntry*>(std::malloc(sizeof(PluginEntry)));
  if (entry == nullptr) return nullptr;
  *entry = PluginEntry{param1, param2, param3, nullptr};
  return entry;
}

void insert_plugin(PluginParameters* list, void* param1, void* param2, void* param3) {
  if (list == nullptr) return;
  PluginEntry* entry = new_plugin(param1, param2, param3);
  // No tail pointer in the header: walk to the last link. A null entry
  // (allocation failed) stored at the end leaves the chain unchanged.
  PluginEntry** link = &list->head;
  while (*link != nullptr) link = &(*link)->next;
  *link = entry;
}

void free_parameters(PluginParameters* list) {
  if (list == nullptr) return;
  PluginEntry* entry = list->head;
  while (entry != nullptr) {
    PluginEntry* next = entry->next;
    std::free(entry);
    entry = next;
  }
  list->head = nullptr;  // never leave a dangling head behind
}

}  // extern "C"
