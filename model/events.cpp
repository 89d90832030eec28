#include "vantrel/model/events.h"

namespace vantrel {

// Destructors out of line: they are the key functions, so the vtables and
// type information the host compares against live in the library.
DiagnosticsEvent::~DiagnosticsEvent() = default;

AnalyticsEvent::~AnalyticsEvent() = default;

SabotageEvent::SabotageEvent(uint32_t first, uint32_t second, const std::string& firstText,
                             const std::string& secondText)
    : AnalyticsEvent(first, second, firstText, "Camera Sabotage",
                     "com.tolvo.rule.camerasabotage", "570445347", secondText, false) {}

SabotageEvent::~SabotageEvent() = default;

}  // namespace vantrel
