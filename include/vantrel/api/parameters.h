/* The plug-in parameter list: a singly linked list of three-value entries. */
#ifndef VANTREL_API_PARAMETERS_H
#define VANTREL_API_PARAMETERS_H

#include "vantrel/api/export.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Allocated with malloc, so a C caller may free entries too. */
typedef struct PluginEntry {
    void* param1;
    void* param2;
    void* param3;
    struct PluginEntry* next;
} PluginEntry;

/* The caller owns the header; the list owns its entries. */
typedef struct PluginParameters {
    void* reserved; /* not read or written by the list functions */
    PluginEntry* head;
} PluginParameters;

/* A new entry with the three values and next null; null when out of memory. */
VANTREL_DDK_API PluginEntry* new_plugin(void* param1, void* param2, void* param3);
/* Appends a new entry at the end of the chain; a null list is ignored. */
VANTREL_DDK_API void insert_plugin(PluginParameters* list, void* param1, void* param2, void* param3);
/* Frees every entry and sets head to null; a null list is ignored. */
VANTREL_DDK_API void free_parameters(PluginParameters* list);

#ifdef __cplusplus
}
#endif

#endif
