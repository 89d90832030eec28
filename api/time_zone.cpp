// The time zone record behind a handle.
#include "vantrel/api/time_zone.h"

#include <string>

#include "camera_handles.h"
#include "vantrel/api/errors.h"

using namespace vantrel::ddk::internal;
using vantrel::TimeZone;

namespace {

const char* get_text(TimeZoneHandle* zone, std::string TimeZone::*field) {
  const TimeZone* record = record_of(zone);
  return record != nullptr ? (record->*field).c_str() : nullptr;
}

int set_text(TimeZoneHandle* zone, std::string TimeZone::*field, const char* text,
             unsigned int length) {
  TimeZone* record = record_of(zone);
  if (record == nullptr) return kFailed;
  if (text == nullptr && length != 0) return kRejected;
  // The copy is made before the field is touched, so any failure keeps the
  // old content.
  return guarded(kRejected, [&] {
    record->*field = vantrel::create_std_string(text, length);
    return kOk;
  });
}

int get_number(TimeZoneHandle* zone, int TimeZone::*field) {
  const TimeZone* record = record_of(zone);
  return record != nullptr ? record->*field : 0;
}

void set_number(TimeZoneHandle* zone, int TimeZone::*field, int value) {
  if (TimeZone* record = record_of(zone)) record->*field = value;
}

}  // namespace

extern "C" {

const char* ddk_get_timezone_name(TimeZoneHandle* zone) { return get_text(zone, &TimeZone::name); }

const char* ddk_get_timezone_dstname(TimeZoneHandle* zone) {
  return get_text(zone, &TimeZone::dstName);
}

int ddk_set_timezone_name(TimeZoneHandle* zone, const char* text, unsigned int length) {
  return set_text(zone, &TimeZone::name, text, length);
}

int ddk_set_timezone_dstname(TimeZoneHandle* zone, const char* text, unsigned int length) {
  return set_text(zone, &TimeZone::dstName, text, length);
}

int ddk_get_timezone_gmtoffset(TimeZoneHandle* zone) {
  return get_number(zone, &TimeZone::gmtOffset);
}

void ddk_set_timezone_gmtoffset(TimeZoneHandle* zone, int value) {
  set_number(zone, &TimeZone::gmtOffset, value);
}

int ddk_get_timezone_dstoffset(TimeZoneHandle* zone) {
  return get_number(zone, &TimeZone::dstOffset);
}

void ddk_set_timezone_dstoffset(TimeZoneHandle* zone, int value) {
  set_number(zone, &TimeZone::dstOffset, value);
}

int ddk_get_timezone_dststart(TimeZoneHandle* zone) { return get_number(zone, &TimeZone::dstStart); }

void ddk_set_timezone_dststart(TimeZoneHandle* zone, int value) {
  set_number(zone, &TimeZone::dstStart, value);
}

int ddk_get_timezone_dstend(TimeZoneHandle* zone) { return get_number(zone, &TimeZone::dstEnd); }

void ddk_set_timezone_dstend(TimeZoneHandle* zone, int value) {
  set_number(zone, &TimeZone::dstEnd, value);
}

}  // extern "C"
