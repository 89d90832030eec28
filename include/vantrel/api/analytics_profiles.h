/* Video analytics profiles reported by a plug-in. */
#ifndef VANTREL_API_ANALYTICS_PROFILES_H
#define VANTREL_API_ANALYTICS_PROFILES_H

#include "vantrel/api/export.h"
#include "vantrel/api/handles.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Get or create profile `id`: an existing entry is returned unchanged (its
   name and flag stay). The result points at the profile record inside the
   host's map; null for a null map or name, or on failure. */
VANTREL_DDK_API void* ddk_add_video_analytics_profile(VideoAnalyticsProfilesHandle* profiles, const char* name,
                                                      int id, unsigned char flag);

#ifdef __cplusplus
}
#endif

#endif
