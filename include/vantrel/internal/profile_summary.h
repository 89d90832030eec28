// One video analytics profile, and the host's map of them by number.
#ifndef VANTREL_INTERNAL_PROFILE_SUMMARY_H
#define VANTREL_INTERNAL_PROFILE_SUMMARY_H

#include <stdint.h>

#include <map>
#include <string>

#include "vantrel/api/errors.h"
#include "vantrel/api/export.h"
#include "vantrel/api/handles.h"

namespace vantrel {
namespace ddk {
namespace internal {

struct ProfileSummary {
    ProfileSummary() : id(0), flag(0) {}
    ProfileSummary(const std::string& profileName, int32_t profileId, uint8_t profileFlag)
        : name(profileName), id(profileId), flag(profileFlag) {}

    std::string name;
    int32_t id;   // equal to the entry's key
    uint8_t flag; // the byte as passed, not normalised
};

// Behind VideoAnalyticsProfilesHandle: profile number to profile.
typedef std::map<int, ProfileSummary> VideoAnalyticsProfiles;

} // namespace internal
} // namespace ddk

// The library's own copy serves every plug-in.
extern template VANTREL_DDK_API std::map<int, ddk::internal::ProfileSummary>&
from_handle<std::map<int, ddk::internal::ProfileSummary>, VideoAnalyticsProfilesHandle*>(
    VideoAnalyticsProfilesHandle*);

} // namespace vantrel

#endif
