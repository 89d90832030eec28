// Video analytics profiles: get-or-create by profile number.
#include "vantrel/api/analytics_profiles.h"

#include "video_handles.h"

using namespace vantrel::ddk::internal;

// The exported copy that plug-ins use instead of instantiating their own.
template VANTREL_DDK_API VideoAnalyticsProfiles&
vantrel::from_handle<VideoAnalyticsProfiles, VideoAnalyticsProfilesHandle*>(
    VideoAnalyticsProfilesHandle*);

extern "C" {

void* ddk_add_video_analytics_profile(VideoAnalyticsProfilesHandle* profiles, const char* name,
                                      int id, unsigned char flag) {
  if (profiles == nullptr || name == nullptr) return nullptr;
  return guarded(static_cast<void*>(nullptr), [&] {
    auto& map = unwrap(profiles);
    auto it = map.lower_bound(id);
    if (it == map.end() || it->first != id) {
      // Built before it is linked in, so a failure adds nothing.
      it = map.emplace_hint(it, id, ProfileSummary(name, id, flag));
    }
    return static_cast<void*>(&it->second);
  });
}

}  // extern "C"
