#include "report.h"

#include <sstream>
#include <utility>

#include "recording_host.h"

namespace inspect {

namespace {

using Json = nlohmann::ordered_json;

const std::pair<const char*, const char*> kHeadings[] = {
    {"plugin", "Plug-in"},
    {"video", "Video (IVideoExtension)"},
    {"mediaSession", "Media sessions (IMediaSessionExtension)"},
    {"alarm", "Alarms and motion (IAlarmExtension)"},
    {"zoom", "Zoom (IZoomExtension)"},
    {"scriptControl", "Presets and tours (IScriptControlExtension)"},
    {"imageSettings", "Image settings (IImageSettingsExtension)"},
    {"deviceInfo", "Device information (IDeviceInfoExtension)"},
    {"deviceManagement", "Device management (IDeviceManagementExtension)"},
    {"timeManagement", "Time (ITimeManagementExtension)"},
};

const std::size_t kLineWidth = 100;

bool isScalar(const Json& value) { return !value.is_object() && !value.is_array(); }

std::string scalar(const Json& value) {
    if (value.is_null()) {
        return "-";
    }
    if (value.is_string()) {
        // One line per value: line breaks (a PEM key's) show as \n.
        std::string text;
        for (char c : value.get<std::string>()) {
            text += c == '\n' ? std::string("\\n") : c == '\t' ? std::string("\\t") : std::string(1, c);
        }
        return text.empty() ? "\"\"" : text;
    }
    return value.dump();
}

// The one-line form, or empty when the value does not fit on one line.
std::string inlineForm(const Json& value) {
    if (isScalar(value)) {
        return scalar(value);
    }
    if (value.contains("error") && value.size() == 1 && value.is_object()) {
        const Json& e = value["error"];
        return "error " + scalar(e.value("code", Json())) + ": " + scalar(e.value("message", Json()));
    }
    if (value.contains("exception") && value.size() == 1 && value.is_object()) {
        return "EXCEPTION: " + scalar(value["exception"]);
    }
    std::string out = value.is_array() ? "[" : "{";
    bool first = true;
    for (auto it = value.begin(); it != value.end(); ++it) {
        std::string item = inlineForm(*it);
        if (item.empty()) {
            return "";
        }
        if (!first) {
            out += ", ";
        }
        first = false;
        out += value.is_object() ? it.key() + " " + item : item;
        if (out.size() > kLineWidth) {
            return "";
        }
    }
    out += value.is_array() ? "]" : "}";
    return out;
}

// Long masks and keys are cut in the readable form; the JSON keeps them whole.
std::string shorten(const std::string& text, std::size_t originalSize) {
    const std::size_t keep = 48;
    if (text.size() <= keep + 16) {
        return text;
    }
    return text.substr(0, keep) + "... (" + std::to_string(originalSize) + " characters)";
}

// A video stream record on one line.
std::string streamLine(const Json& s) {
    std::ostringstream line;
    line << scalar(s["key"]) << ": " << scalar(s["encodingName"]) << ' ' << s["width"] << 'x' << s["height"] << ' '
         << s["framerate"] << " fps " << s["bitrate"] << " kbit/s";
    if (s["gop"] != 0) {
        line << ", GOP " << s["gop"] << " structure " << s["gopStructure"] << ", profile " << s["profile"]
             << ", rate control " << s["rateControl"];
    }
    line << ", DSCP " << s["dscp"] << ", MTU " << s["mtu"] << ", timeout " << s["timeout"];
    if (s["signing"] == true) {
        line << ", signed";
    }
    if (!s["multicast"].is_null()) {
        line << ", multicast " << inlineForm(s["multicast"]);
    }
    if (s["token"] != s["key"]) {
        line << ", token " << scalar(s["token"]);
    }
    line << " (" << scalar(s["name"]) << ")";
    return line.str();
}

// `prefix` goes before the first line ("- " for an element of a list).
void render(std::ostringstream& out, const std::string& label, const Json& value, std::size_t indent,
            const std::string& prefix = "") {
    const std::string pad(indent, ' ');
    const std::string head = pad + prefix + label + (label.empty() ? "" : ": ");
    if (value.is_object() && value.contains("encodingName") && label.empty()) {
        out << pad << prefix << streamLine(value) << '\n';
        return;
    }
    const std::string line = inlineForm(value);
    if (isScalar(value) || (!line.empty() && head.size() + line.size() <= kLineWidth + 20)) {
        out << head << (value.is_string() ? shorten(line, value.get<std::string>().size()) : line) << '\n';
        return;
    }
    std::size_t inner = indent + prefix.size();
    if (!label.empty()) {
        out << head.substr(0, head.size() - 1) << '\n';
        inner += 2;
    } else if (!prefix.empty()) {
        // A list element: its first field goes on the "- " line.
        bool first = true;
        for (auto it = value.begin(); it != value.end(); ++it) {
            if (value.is_array()) {
                render(out, "", *it, first ? indent : inner, first ? prefix + "- " : "- ");
            } else {
                render(out, it.key(), *it, first ? indent : inner, first ? prefix : "");
            }
            first = false;
        }
        return;
    }
    for (auto it = value.begin(); it != value.end(); ++it) {
        if (value.is_array()) {
            render(out, "", *it, inner, "- ");
        } else {
            render(out, it.key(), *it, inner);
        }
    }
}

}  // namespace

std::string renderText(const Json& report) {
    std::ostringstream out;
    for (const auto& heading : kHeadings) {
        if (!report.contains(heading.first)) {
            continue;
        }
        out << "== " << heading.second << '\n';
        const Json& section = report[heading.first];
        for (auto it = section.begin(); it != section.end(); ++it) {
            render(out, it.key(), *it, 2);
        }
        out << '\n';
    }
    if (report.contains("events")) {
        out << "== Events and log lines (" << report["events"].size() << ")\n";
        for (const Json& record : report["events"]) {
            out << "  " << describeRecord(record) << '\n';
        }
    }
    return out.str();
}

}  // namespace inspect
