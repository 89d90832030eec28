/* Enabled flags of numbered presets and tours, in host-owned bit vectors
   (std::vector<bool>). Statuses: 0 success; -1 a null handle or a failure
   inside (such as memory); -2 an index not below the vector's size. */
#ifndef VANTREL_API_PRESETS_TOURS_H
#define VANTREL_API_PRESETS_TOURS_H

#include "vantrel/api/export.h"
#include "vantrel/api/handles.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Resizes to n + 1 flags (32-bit, wrapping: n = 4294967295 empties the
   vector), so that numbers 0 to n are valid. Kept flags keep their values;
   new flags are false. */
VANTREL_DDK_API int ddk_set_preset_vector_size(PresetVectorHandle* presets, unsigned int n);
VANTREL_DDK_API int ddk_set_preset_enabled(PresetVectorHandle* presets, unsigned int index);
VANTREL_DDK_API int ddk_set_preset_disabled(PresetVectorHandle* presets, unsigned int index);

VANTREL_DDK_API int ddk_set_tour_vector_size(TourVectorHandle* tours, unsigned int n);
VANTREL_DDK_API int ddk_set_tour_enabled(TourVectorHandle* tours, unsigned int index);
VANTREL_DDK_API int ddk_set_tour_disabled(TourVectorHandle* tours, unsigned int index);

#ifdef __cplusplus
}
#endif

#endif
