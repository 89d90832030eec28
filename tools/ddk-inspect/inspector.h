// Asks a started plug-in every question of the host contract that its
// extensions answer, and gathers the answers into one report document.
#pragma once

#include <string>
#include <vector>

#include <nlohmann/json.hpp>
#include <vantrel/ddk.h>

#include "options.h"
#include "plugin_module.h"

namespace inspect {

using Json = nlohmann::ordered_json;

class Inspector {
public:
    // A strict inspector turns an exception leaving an operation into a
    // Failure; a tolerant one records it and carries on (the checks use that).
    Inspector(const Options& options, bool tolerant);

    // One section per implemented extension, in a fixed order.
    Json inspect(const PluginInstance& plugin);

    // Operations that let an exception out: {"operation", "what"}.
    const std::vector<Json>& exceptions() const { return exceptions_; }
    // Operations whose error record had no text.
    const std::vector<std::string>& errorsWithoutText() const { return errorsWithoutText_; }
    unsigned calls() const { return calls_; }

    // Runs one operation: the error record (converted, then released), or
    // null. Exceptions are handled as the constructor says.
    Json call(const std::string& operation, DDKError* (*thunk)(void*), void* closure);

    template <class Fn>
    Json run(const std::string& operation, Fn&& fn) {
        return call(operation, [](void* c) -> DDKError* { return (*static_cast<Fn*>(c))(); }, &fn);
    }

    // The query the options describe (no filters by default).
    void buildQuery(vantrel::ddk::internal::VideoOptionsQuery& query) const;

private:
    Json video(vantrel::ddk::IVideoExtension& video, const std::vector<std::string>& sources);
    Json mediaSession(vantrel::ddk::IMediaSessionExtension& media, const std::vector<std::string>& sources,
                      const std::vector<std::string>& streams);
    Json alarm(vantrel::ddk::IAlarmExtension& alarm, const std::vector<std::string>& sources);
    Json zoom(vantrel::ddk::IZoomExtension& zoom, const std::vector<std::string>& sources);
    Json scriptControl(vantrel::ddk::IScriptControlExtension& script, const std::vector<std::string>& sources);
    Json imageSettings(vantrel::ddk::IImageSettingsExtension& image, const std::vector<std::string>& sources);
    Json deviceInfo(vantrel::ddk::IDeviceInfoExtension& info);
    Json deviceManagement(vantrel::ddk::IDeviceManagementExtension& management);
    Json timeManagement(vantrel::ddk::ITimeManagementExtension& time);

    const Options& options_;
    bool tolerant_;
    std::vector<Json> exceptions_;
    std::vector<std::string> errorsWithoutText_;
    unsigned calls_ = 0;
};

// Readers of the host's containers, shared with the checks.
Json readString(const std::string& text);
Json readStreams(const std::map<std::string, vantrel::ddk::internal::VideoStreamConfiguration>& streams);
Json readEncoderOptions(const vantrel::ddk::internal::EncoderOptions& options);
std::string encodingName(int encoding);

}  // namespace inspect
