/* Motion detection regions: a list of regions filled or read through handles.
   A region handle points at the element inside the list and stays valid only
   until the next append to that list. Statuses: 0 success; -1 a null handle
   or pointer, or a failure inside (such as memory); -2 a value refused or
   clamped. */
#ifndef VANTREL_API_MOTION_REGIONS_H
#define VANTREL_API_MOTION_REGIONS_H

#include "vantrel/api/errors.h"
#include "vantrel/api/export.h"
#include "vantrel/api/handles.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Number of regions; 0 for a null list. A list longer than 65535 reports 65535. */
VANTREL_DDK_API unsigned short ddk_get_motion_region_list_size(MotionDetectionRegionListHandle* list);
/* Region `index`; null for a null list or an index not below the size. */
VANTREL_DDK_API MotionDetectionRegionHandle* ddk_get_motion_region_at(MotionDetectionRegionListHandle* list,
                                                                      unsigned int index);
/* Appends a default region (enabled, sensitivity 100, threshold 1, one block
   at (0, 0), no mask) and returns it. Null for a null list, a list already
   holding 65535 regions, or a failed allocation (the list is then unchanged). */
VANTREL_DDK_API MotionDetectionRegionHandle* ddk_append_motion_region(MotionDetectionRegionListHandle* list);

VANTREL_DDK_API int ddk_set_motion_region_enabled(MotionDetectionRegionHandle* region);
VANTREL_DDK_API int ddk_set_motion_region_disabled(MotionDetectionRegionHandle* region);
/* 1 or 0; 0 for a null region. */
VANTREL_DDK_API ddk_bool ddk_get_motion_region_enabled(MotionDetectionRegionHandle* region);

/* Above the region's macro-block count: stores the block count, returns -2. */
VANTREL_DDK_API int ddk_set_motion_region_threshold(MotionDetectionRegionHandle* region, unsigned int threshold);
/* 0 for a null region. */
VANTREL_DDK_API unsigned short ddk_get_motion_region_threshold(MotionDetectionRegionHandle* region);
/* Above 100: stores 100, returns -2. */
VANTREL_DDK_API int ddk_set_motion_region_sensitivity(MotionDetectionRegionHandle* region, unsigned int sensitivity);
/* 0 for a null region. */
VANTREL_DDK_API unsigned char ddk_get_motion_region_sensitivity(MotionDetectionRegionHandle* region);

/* Copies a mask of exactly the region's mask byte count (-2 otherwise, region
   unchanged). A null mask removes the region's mask and returns 0. */
VANTREL_DDK_API int ddk_set_motion_region_mask(MotionDetectionRegionHandle* region, const unsigned char* mask,
                                               unsigned int size);
/* The region's own mask buffer (do not free; valid until the region changes)
   and its size; null and 0 for a region without a mask. -1 when either out
   pointer or the region is null (the non-null outs get null and 0). -2, with
   null and 0, for a mask longer than 65535 bytes. */
VANTREL_DDK_API int ddk_get_motion_region_mask(MotionDetectionRegionHandle* region, const unsigned char** mask,
                                               unsigned short* size);
/* New corners with a mask of their byte count. -1 for a null region or mask;
   -2 when x1 > x2 or y1 > y2, the size differs from the new byte count, or the
   region's own mask is passed with a different byte count (region unchanged). */
VANTREL_DDK_API int ddk_set_motion_region_dimensions(MotionDetectionRegionHandle* region, unsigned int x1,
                                                     unsigned int y1, unsigned int x2, unsigned int y2,
                                                     const unsigned char* mask, unsigned short size);
/* -1 (nothing written) when the region or any out pointer is null. */
VANTREL_DDK_API int ddk_get_motion_region_coordinates(MotionDetectionRegionHandle* region, unsigned int* x1,
                                                      unsigned int* y1, unsigned int* x2, unsigned int* y2);

#ifdef __cplusplus
}
#endif

#endif
