// The readable form of a report document.
#pragma once

#include <string>

#include <nlohmann/json.hpp>

namespace inspect {

// Section by section, one heading per extension; nested records indented,
// short ones on one line.
std::string renderText(const nlohmann::ordered_json& report);

}  // namespace inspect
