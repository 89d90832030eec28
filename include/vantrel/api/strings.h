/* Strings and string lists filled through handles. */
#ifndef VANTREL_API_STRINGS_H
#define VANTREL_API_STRINGS_H

#include "vantrel/api/export.h"
#include "vantrel/api/handles.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Replaces the content with `length` bytes. 0; -1 for a null text or zero
   length (tested first), a null string, or a failed copy. */
VANTREL_DDK_API int ddk_set_string(StringHandle* string, const char* text, unsigned int length);
/* Insert before the first / after the last element. 0; -2 for a null text or
   zero length (tested first); -1 for a null list or a failed insertion. */
VANTREL_DDK_API int ddk_prepend_string(StringListHandle* list, const char* text, unsigned int length);
VANTREL_DDK_API int ddk_append_string(StringListHandle* list, const char* text, unsigned int length);
/* The string's own buffer (valid until it changes); null for a null handle. */
VANTREL_DDK_API const char* ddk_string_to_cstr(StringHandle* string);
/* Number of elements; 0 for a null list. */
VANTREL_DDK_API unsigned int ddk_get_string_list_size(StringListHandle* list);
/* Element `index`; null for a null list or an index not below the size. */
VANTREL_DDK_API const char* ddk_get_string_at(StringListHandle* list, unsigned int index);

#ifdef __cplusplus
}
#endif

#endif
