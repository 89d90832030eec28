/* Event records the library hands to the host's callbacks. The host reads
   them by layout, so field order, widths and virtual tables are part of the
   kit's binary interface. */
#ifndef VANTREL_MODEL_EVENTS_H
#define VANTREL_MODEL_EVENTS_H

#include <stdint.h>

#include <string>

#include "vantrel/api/export.h"

namespace vantrel {

/* A diagnostic condition such as a video loss. The library gives the three
   fields no meaning; it copies them from the signal's arguments. */
class VANTREL_DDK_API DiagnosticsEvent {
public:
    DiagnosticsEvent() : byte1(0), byte2(0), value(0) {}
    DiagnosticsEvent(uint8_t first, uint8_t second, uint32_t number)
        : byte1(first), byte2(second), value(number) {}
    DiagnosticsEvent(const DiagnosticsEvent&) = default;
    DiagnosticsEvent& operator=(const DiagnosticsEvent&) = default;
    virtual ~DiagnosticsEvent();

    uint8_t byte1;
    uint8_t byte2;
    uint32_t value;
};

/* A rule of the device's analytics fired. value1, value2, text1, text2 and
   flag are the plug-in's; the library only transports them. */
class VANTREL_DDK_API AnalyticsEvent {
public:
    AnalyticsEvent() : value1(0), value2(0), flag(false) {}
    AnalyticsEvent(uint32_t first, uint32_t second, const std::string& firstText,
                   const std::string& rule, const std::string& ruleIdentifier,
                   const std::string& numericIdentifier, const std::string& secondText,
                   bool mark)
        : value1(first), value2(second), text1(firstText), ruleName(rule),
          ruleId(ruleIdentifier), numericId(numericIdentifier), text2(secondText),
          flag(mark) {}
    AnalyticsEvent(const AnalyticsEvent&) = default;
    AnalyticsEvent(AnalyticsEvent&&) = default;
    AnalyticsEvent& operator=(const AnalyticsEvent&) = default;
    AnalyticsEvent& operator=(AnalyticsEvent&&) = default;
    virtual ~AnalyticsEvent();

    uint32_t value1;
    uint32_t value2;
    std::string text1;
    std::string ruleName;
    std::string ruleId;
    std::string numericId; /* decimal digits */
    std::string text2;
    bool flag;
};

/* The camera-sabotage rule: fixed rule name "Camera Sabotage", id
   "com.tolvo.rule.camerasabotage", numeric id "570445347", flag false.
   The host receives it as a plain AnalyticsEvent copy. */
class VANTREL_DDK_API SabotageEvent : public AnalyticsEvent {
public:
    SabotageEvent(uint32_t first, uint32_t second, const std::string& firstText,
                  const std::string& secondText);
    SabotageEvent(const SabotageEvent&) = default;
    SabotageEvent(SabotageEvent&&) = default;
    SabotageEvent& operator=(const SabotageEvent&) = default;
    SabotageEvent& operator=(SabotageEvent&&) = default;
    ~SabotageEvent() override;
};

/* Motion detected. Not polymorphic. The texts may hold any bytes. */
struct MotionEvent {
    MotionEvent() : value(0) {}
    explicit MotionEvent(uint32_t number) : value(number) {}

    uint32_t value;
    std::string text1;
    std::string text2;
};

} // namespace vantrel

#endif
