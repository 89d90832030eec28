#include "inspector.h"

#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "exit_codes.h"

namespace inspect {

using namespace vantrel;
using namespace vantrel::ddk;
using namespace vantrel::ddk::internal;

namespace {

// The host's containers travel as the address of the record itself.
template <class Handle, class Record>
Handle* handle(Record& record) {
    return reinterpret_cast<Handle*>(&record);
}

std::string hex(const unsigned char* data, unsigned size) {
    std::string out;
    char byte[4];
    for (unsigned i = 0; i < size; ++i) {
        std::snprintf(byte, sizeof byte, "%02x", data[i]);
        out += byte;
    }
    return out;
}

Json readList(const std::vector<std::string>& list) {
    Json out = Json::array();
    for (const std::string& text : list) {
        out.push_back(readString(text));
    }
    return out;
}

Json readSessions(const std::vector<MediaSession>& sessions) {
    Json out = Json::array();
    for (const MediaSession& s : sessions) {
        out.push_back({{"id", readString(s.id)},
                       {"uri", readString(s.uri)},
                       {"mime", readString(s.mime)},
                       {"streamToken", readString(s.streamToken)},
                       {"transmissionMode", s.transmissionMode},
                       {"streamType", s.streamType},
                       {"streamState", s.streamState},
                       {"destinationIp", readString(s.destinationIp)},
                       {"destinationPort", s.destinationPort},
                       {"timeout", s.timeout}});
    }
    return out;
}

Json readEndpoints(const std::vector<StreamConnectionInfo>& infos) {
    Json out = Json::array();
    for (const StreamConnectionInfo& info : infos) {
        out.push_back({{"url", readString(info.url)},
                       {"mimeType", readString(info.mimeType)},
                       {"token", readString(info.token)},
                       {"transmissionMode", info.transmissionMode},
                       {"type", info.type}});
    }
    return out;
}

Json readAddresses(const std::vector<NetworkAddress>& addresses) {
    Json out = Json::array();
    for (const NetworkAddress& a : addresses) {
        out.push_back({{"type", a.type}, {"address", readString(a.address)}});
    }
    return out;
}

Json readRegions(const std::vector<MotionDetectionRegion>& regions) {
    Json out = Json::array();
    for (const MotionDetectionRegion& r : regions) {
        unsigned x1 = 0, y1 = 0, x2 = 0, y2 = 0;
        r.coordinates(x1, y1, x2, y2);
        const unsigned char* mask = nullptr;
        unsigned maskSize = 0;
        r.mask(mask, maskSize);
        out.push_back({{"enabled", r.isEnabled()},
                       {"sensitivity", r.sensitivity()},
                       {"threshold", r.threshold()},
                       {"x1", x1},
                       {"y1", y1},
                       {"x2", x2},
                       {"y2", y2},
                       {"macroBlocks", r.macroBlockCount()},
                       {"maskBytesExpected", r.maskByteCount()},
                       {"maskBytes", maskSize},
                       {"mask", mask != nullptr ? Json(hex(mask, maskSize)) : Json()}});
    }
    return out;
}

Json readFlags(const std::vector<bool>& flags) {
    Json enabled = Json::array();
    for (std::size_t i = 0; i < flags.size(); ++i) {
        if (flags[i]) {
            enabled.push_back(i);
        }
    }
    return {{"numbers", flags.size()}, {"enabled", enabled}};
}

Json readAudioStreams(const std::map<std::string, AudioStreamConfiguration>& streams) {
    Json out = Json::array();
    for (const auto& entry : streams) {
        const AudioStreamConfiguration& c = entry.second;
        out.push_back({{"name", readString(entry.first)},
                       {"format", c.format},
                       {"sampleSizeInBits", c.sampleSizeInBits},
                       {"samplesPerSecond", c.samplesPerSecond},
                       {"framesPerKilosecond", c.framesPerKilosecond},
                       {"bigEndian", c.bigEndian},
                       {"vbr", c.vbr}});
    }
    return out;
}

Json readAudioSource(const AudioSource& s) {
    return {{"type", s.type},
            {"sampleSizeInBits", s.sampleSizeInBits},
            {"samplesPerSecond", s.samplesPerSecond},
            {"channels", s.channels},
            {"level", s.level}};
}

Json readProfiles(const std::map<int, ProfileSummary>& profiles) {
    Json out = Json::array();
    for (const auto& entry : profiles) {
        out.push_back({{"id", entry.first}, {"name", readString(entry.second.name)}, {"flag", entry.second.flag}});
    }
    return out;
}

Json readTimeZone(const TimeZone& zone) {
    return {{"name", readString(zone.name)},
            {"dstName", readString(zone.dstName)},
            {"gmtOffset", zone.gmtOffset},
            {"dstOffset", zone.dstOffset},
            {"dstStart", zone.dstStart},
            {"dstEnd", zone.dstEnd}};
}

Json range(const EncoderRange& r, bool present) {
    if (!present) {
        return Json();
    }
    return {{"low", r.low}, {"high", r.high}, {"third", r.thirdValue}};
}

// An answer: the value, or the error the operation returned.
Json answer(const Json& error, const Json& value) { return error.is_null() ? value : error; }

}  // namespace

Json readString(const std::string& text) {
    std::string out;
    for (unsigned char c : text) {
        if ((c >= 0x20 && c < 0x7F) || c == '\n' || c == '\t') {
            out += static_cast<char>(c);
        } else {
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "\\x%02X", c);
            out += escaped;
        }
    }
    return out;
}

std::string encodingName(int encoding) {
    switch (encoding) {
        case DDK_ENCODING_NONE: return "none";
        case DDK_ENCODING_H264: return "H264";
        case DDK_ENCODING_H265: return "H265";
        default: return "code " + std::to_string(encoding);
    }
}

Json readStreams(const std::map<std::string, VideoStreamConfiguration>& streams) {
    Json out = Json::array();
    for (const auto& entry : streams) {
        auto* h = handle<VideoStreamConfigurationHandle>(const_cast<VideoStreamConfiguration&>(entry.second));
        EncodingType encoding = DDK_ENCODING_NONE;
        ddk_video_get_encoding(h, &encoding);
        unsigned width = 0, height = 0, framerate = 0, gop = 0;
        ddk_video_get_resolution(h, &width, &height);
        ddk_video_get_framerate(h, &framerate);
        ddk_video_get_gop(h, &gop);
        int gopStructure = 0, profile = 0, rateControl = 0, imageProcessing = 0;
        ddk_video_get_gop_structure(h, &gopStructure);
        ddk_video_get_profile(h, &profile);
        ddk_video_get_rate_control(h, &rateControl);
        ddk_video_get_image_processing(h, &imageProcessing);
        unsigned char dscp = 0;
        ddk_video_get_dscp(h, &dscp);
        ddk_bool signing = 0, multicastFlag = 0;
        ddk_video_get_signing(h, &signing);
        unsigned port = 0;
        unsigned char ttl = 0;
        StringHandle* group = ddk_video_get_multicast(h, &port, &ttl, &multicastFlag);
        const char* token = ddk_video_get_stream_token(h);
        Json multicast;
        if (group != nullptr) {
            multicast = {{"address", readString(ddk_string_to_cstr(group))},
                         {"port", port},
                         {"ttl", ttl},
                         {"enabled", multicastFlag != 0}};
        }
        out.push_back({{"key", readString(entry.first)},
                       {"token", readString(token != nullptr ? token : "")},
                       {"name", readString(ddk_string_to_cstr(ddk_video_get_descriptive_name(h)))},
                       {"encoding", encoding},
                       {"encodingName", encodingName(encoding)},
                       {"width", width},
                       {"height", height},
                       {"framerate", framerate},
                       {"bitrate", ddk_video_get_bitrate(h)},
                       {"gop", gop},
                       {"gopStructure", gopStructure},
                       {"profile", profile},
                       {"rateControl", rateControl},
                       {"imageProcessing", imageProcessing},
                       {"dscp", dscp},
                       {"mtu", ddk_video_get_mtu(h)},
                       {"timeout", ddk_video_get_timeout(h)},
                       {"signing", signing != 0},
                       {"multicast", multicast}});
    }
    return out;
}

Json readEncoderOptions(const EncoderOptions& o) {
    Json encodings = Json::array(), resolutions = Json::array();
    for (EncodingType e : o.encodings) {
        encodings.push_back(e);
    }
    for (const Resolution& r : o.resolutions) {
        resolutions.push_back({{"width", r.width}, {"height", r.height}});
    }
    return {{"encodings", encodings},
            {"resolutions", resolutions},
            {"framerates", Json(std::vector<unsigned>(o.framerates.begin(), o.framerates.end()))},
            {"gopStructures", Json(std::vector<int>(o.gopStructures.begin(), o.gopStructures.end()))},
            {"profiles", Json(std::vector<int>(o.videoProfiles.begin(), o.videoProfiles.end()))},
            {"rateControls", Json(std::vector<int>(o.rateControls.begin(), o.rateControls.end()))},
            {"gopRange", range(o.gopRange, o.hasGopRange)},
            {"bitrateRange", range(o.bitrateRange, o.hasBitrateRange)},
            {"dscpRange", range(o.dscpRange, o.hasDscpRange)},
            {"signing", o.hasSigning ? Json(o.signing != 0) : Json()}};
}

Inspector::Inspector(const Options& options, bool tolerant) : options_(options), tolerant_(tolerant) {}

Json Inspector::call(const std::string& operation, DDKError* (*thunk)(void*), void* closure) {
    DDKError* error = nullptr;
    std::string what;
    try {
        error = thunk(closure);
        ++calls_;
    } catch (const std::exception& e) {
        what = e.what();
    } catch (...) {
        what = "an exception that is not a std::exception";
    }
    if (!what.empty()) {
        if (!tolerant_) {
            throw Failure(kExitOperationThrew, operation + " let an exception out: " + what);
        }
        exceptions_.push_back({{"operation", operation}, {"what", what}});
        return {{"exception", what}};
    }
    if (error == nullptr) {
        return Json();
    }
    if (error->message == nullptr) {
        errorsWithoutText_.push_back(operation);
    }
    Json out = {{"error", {{"code", error->code}, {"message", readString(error->message ? error->message : "")}}}};
    ddk_free_error(error);
    return out;
}

void Inspector::buildQuery(VideoOptionsQuery& query) const {
    if (options_.queryEncoding >= 0) {
        query.setEncodingType(static_cast<EncodingType>(options_.queryEncoding));
    }
    if (options_.queryFramerate >= 0) {
        query.setFramerate(static_cast<unsigned>(options_.queryFramerate));
    }
    if (!options_.queryResolution.empty()) {
        unsigned width = 0, height = 0;
        if (std::sscanf(options_.queryResolution.c_str(), "%ux%u", &width, &height) == 2) {
            query.setResolution(width, height);
        }
    }
}

Json Inspector::inspect(const PluginInstance& plugin) {
    const Extensions& x = plugin.extensions();
    Json report;

    std::vector<std::string> sources = options_.sources;
    std::vector<std::string> streams;
    if (x.video != nullptr) {
        Json section = video(*x.video, sources);
        if (sources.empty() && section["sources"].is_array()) {
            for (const Json& s : section["sources"]) {
                sources.push_back(s.get<std::string>());
            }
        }
        for (const Json& source : section["streams"]) {
            if (source["streams"].is_array()) {
                for (const Json& stream : source["streams"]) {
                    streams.push_back(stream["key"].get<std::string>());
                }
            }
        }
        report["video"] = section;
    }
    if (sources.empty()) {
        sources.push_back("0");
    }
    if (x.mediaSession != nullptr) {
        report["mediaSession"] = mediaSession(*x.mediaSession, sources, streams);
    }
    if (x.alarm != nullptr) {
        report["alarm"] = alarm(*x.alarm, sources);
    }
    if (x.zoom != nullptr) {
        report["zoom"] = zoom(*x.zoom, sources);
    }
    if (x.scriptControl != nullptr) {
        report["scriptControl"] = scriptControl(*x.scriptControl, sources);
    }
    if (x.imageSettings != nullptr) {
        report["imageSettings"] = imageSettings(*x.imageSettings, sources);
    }
    if (x.deviceInfo != nullptr) {
        report["deviceInfo"] = deviceInfo(*x.deviceInfo);
    }
    if (x.deviceManagement != nullptr) {
        report["deviceManagement"] = deviceManagement(*x.deviceManagement);
    }
    if (x.timeManagement != nullptr) {
        report["timeManagement"] = timeManagement(*x.timeManagement);
    }
    return report;
}

Json Inspector::video(IVideoExtension& v, const std::vector<std::string>& givenSources) {
    Json out;
    std::vector<std::string> sources = givenSources;
    {
        std::vector<std::string> tokens;
        Json error = run("IVideoExtension::sourceTokens",
                         [&] { return v.sourceTokens(handle<StringListHandle>(tokens)); });
        out["sources"] = answer(error, readList(tokens));
        if (sources.empty() && error.is_null()) {
            sources = tokens;
        }
    }
    out["streams"] = Json::array();
    for (const std::string& source : sources) {
        const char* token = source.c_str();
        Json s = {{"source", readString(source)}};
        std::map<std::string, VideoStreamConfiguration> streams;
        Json error = run("IVideoExtension::videoStreams", [&] {
            return v.videoStreams(token, handle<VideoStreamConfigurationsHandle>(streams));
        });
        s["streams"] = answer(error, readStreams(streams));

        Json multicast = Json::object();
        for (auto& entry : streams) {
            VideoStreamConfiguration copy = entry.second;
            Json e = run("IVideoExtension::multicastDefaults", [&] {
                return v.multicastDefaults(entry.first.c_str(), handle<VideoStreamConfigurationHandle>(copy));
            });
            std::map<std::string, VideoStreamConfiguration> one{{entry.first, copy}};
            multicast[readString(entry.first).get<std::string>()] =
                answer(e, readStreams(one).at(0)["multicast"]);
        }
        s["multicastDefaults"] = multicast;

        std::map<std::string, std::map<std::string, VideoStreamConfiguration>> presets;
        error = run("IVideoExtension::videoPresets",
                    [&] { return v.videoPresets(token, handle<VideoStreamPresetsHandle>(presets)); });
        Json presetList = Json::array();
        for (const auto& preset : presets) {
            presetList.push_back({{"name", readString(preset.first)}, {"streams", readStreams(preset.second)}});
        }
        s["presets"] = answer(error, presetList);

        VideoOptionsQuery query;
        buildQuery(query);
        EncoderOptions options;
        error = run("IVideoExtension::encoderOptions", [&] {
            return v.encoderOptions(token, handle<VideoOptionsQueryHandle>(query),
                                    handle<EncoderOptionsHandle>(options));
        });
        s["encoderOptions"] = answer(error, readEncoderOptions(options));

        std::map<int, ProfileSummary> profiles;
        error = run("IVideoExtension::analyticsProfiles", [&] {
            return v.analyticsProfiles(token, handle<VideoAnalyticsProfilesHandle>(profiles));
        });
        s["analyticsProfiles"] = answer(error, readProfiles(profiles));
        out["streams"].push_back(s);
    }
    return out;
}

Json Inspector::mediaSession(IMediaSessionExtension& m, const std::vector<std::string>& sources,
                             const std::vector<std::string>& streams) {
    Json out;
    std::vector<MediaSession> sessions;
    Json error = run("IMediaSessionExtension::mediaSessions",
                     [&] { return m.mediaSessions(handle<MediaSessionCollectionHandle>(sessions)); });
    out["sessions"] = answer(error, readSessions(sessions));

    Json endpoints = Json::object();
    Json groups = Json::object();
    for (const std::string& stream : streams) {
        std::vector<StreamConnectionInfo> infos;
        error = run("IMediaSessionExtension::streamConnectionInfos", [&] {
            return m.streamConnectionInfos(stream.c_str(), handle<StreamConnectionInfosHandle>(infos));
        });
        endpoints[readString(stream).get<std::string>()] = answer(error, readEndpoints(infos));
        std::vector<NetworkAddress> addresses;
        error = run("IMediaSessionExtension::multicastAddresses", [&] {
            return m.multicastAddresses(stream.c_str(), handle<NetworkAddressCollectionHandle>(addresses));
        });
        groups[readString(stream).get<std::string>()] = answer(error, readAddresses(addresses));
    }
    out["endpoints"] = endpoints;
    out["multicastGroups"] = groups;

    Json snapshots = Json::object();
    for (const std::string& source : sources) {
        std::string uri;
        error = run("IMediaSessionExtension::snapshotUri",
                    [&] { return m.snapshotUri(source.c_str(), handle<StringHandle>(uri)); });
        snapshots[readString(source).get<std::string>()] = answer(error, readString(uri));
    }
    out["snapshotUris"] = snapshots;

    std::vector<std::string> audioSources;
    error = run("IMediaSessionExtension::audioSourceTokens",
                [&] { return m.audioSourceTokens(handle<StringListHandle>(audioSources)); });
    out["audioSources"] = answer(error, readList(audioSources));
    Json audio = Json::array();
    for (const std::string& source : audioSources) {
        Json a = {{"source", readString(source)}};
        std::map<std::string, AudioStreamConfiguration> configurations;
        error = run("IMediaSessionExtension::audioStreams", [&] {
            return m.audioStreams(source.c_str(), handle<AudioStreamConfigurationsHandle>(configurations));
        });
        a["streams"] = answer(error, readAudioStreams(configurations));
        AudioSource record{};
        error = run("IMediaSessionExtension::audioSource",
                    [&] { return m.audioSource(source.c_str(), handle<AudioSourceHandle>(record)); });
        a["input"] = answer(error, readAudioSource(record));
        audio.push_back(a);
    }
    out["audio"] = audio;

    std::vector<std::string> outputs;
    error = run("IMediaSessionExtension::audioOutputTokens",
                [&] { return m.audioOutputTokens(handle<StringListHandle>(outputs)); });
    out["audioOutputs"] = answer(error, readList(outputs));
    Json backchannels = Json::object();
    for (const std::string& output : outputs) {
        std::string uri;
        error = run("IMediaSessionExtension::audioBackchannelUri",
                    [&] { return m.audioBackchannelUri(output.c_str(), handle<StringHandle>(uri)); });
        backchannels[readString(output).get<std::string>()] = answer(error, readString(uri));
    }
    out["audioBackchannelUris"] = backchannels;

    std::string key;
    error = run("IMediaSessionExtension::publicRSA", [&] { return m.publicRSA(handle<StringHandle>(key)); });
    out["publicKey"] = answer(error, readString(key));
    return out;
}

Json Inspector::alarm(IAlarmExtension& a, const std::vector<std::string>& sources) {
    Json out;
    std::vector<std::string> inputs, outputs;
    Json error = run("IAlarmExtension::alarmInputs", [&] { return a.alarmInputs(handle<StringListHandle>(inputs)); });
    out["inputs"] = answer(error, readList(inputs));
    error = run("IAlarmExtension::alarmOutputs", [&] { return a.alarmOutputs(handle<StringListHandle>(outputs)); });
    out["outputs"] = answer(error, readList(outputs));
    Json regions = Json::object();
    for (const std::string& source : sources) {
        std::vector<MotionDetectionRegion> list;
        error = run("IAlarmExtension::motionRegions", [&] {
            return a.motionRegions(source.c_str(), handle<MotionDetectionRegionListHandle>(list));
        });
        regions[readString(source).get<std::string>()] = answer(error, readRegions(list));
    }
    out["motionRegions"] = regions;
    return out;
}

Json Inspector::zoom(IZoomExtension& z, const std::vector<std::string>& sources) {
    Json out = Json::object();
    for (const std::string& source : sources) {
        const char* token = source.c_str();
        Json s;
        unsigned first = 0, second = 0;
        Json error = run("IZoomExtension::magnificationFactors",
                         [&] { return z.magnificationFactors(token, first, second); });
        s["factors"] = answer(error, Json{{"first", first}, {"second", second}});
        unsigned char magnification = 0;
        error = run("IZoomExtension::getMagnification", [&] { return z.getMagnification(token, magnification); });
        s["magnification"] = answer(error, Json(magnification));
        unsigned hundredths = 0;
        error = run("IZoomExtension::getMagHundredthsX", [&] { return z.getMagHundredthsX(token, hundredths); });
        s["hundredthsX"] = answer(error, Json(hundredths));
        unsigned low = 0, high = 0;
        error = run("IZoomExtension::magnificationRange", [&] { return z.magnificationRange(token, low, high); });
        s["rangeHundredthsX"] = answer(error, Json{{"minimum", low}, {"maximum", high}});
        out[readString(source).get<std::string>()] = s;
    }
    return out;
}

Json Inspector::scriptControl(IScriptControlExtension& c, const std::vector<std::string>& sources) {
    Json out = Json::object();
    for (const std::string& source : sources) {
        Json s;
        std::vector<bool> presets, tours;
        Json error = run("IScriptControlExtension::presets",
                         [&] { return c.presets(source.c_str(), handle<PresetVectorHandle>(presets)); });
        s["presets"] = answer(error, readFlags(presets));
        error = run("IScriptControlExtension::tours",
                    [&] { return c.tours(source.c_str(), handle<TourVectorHandle>(tours)); });
        s["tours"] = answer(error, readFlags(tours));
        out[readString(source).get<std::string>()] = s;
    }
    return out;
}

Json Inspector::imageSettings(IImageSettingsExtension& i, const std::vector<std::string>& sources) {
    using Level = DDKError* (IImageSettingsExtension::*)(const char*, int&) const;
    using Range = DDKError* (IImageSettingsExtension::*)(const char*, int&, int&) const;
    struct Setting {
        const char* name;
        Level level;
        Range range;
    };
    static const Setting settings[] = {
        {"brightness", &IImageSettingsExtension::brightness, &IImageSettingsExtension::brightnessRange},
        {"contrast", &IImageSettingsExtension::contrast, &IImageSettingsExtension::contrastRange},
        {"hue", &IImageSettingsExtension::hue, &IImageSettingsExtension::hueRange},
        {"saturation", &IImageSettingsExtension::saturation, &IImageSettingsExtension::saturationRange},
    };
    Json out = Json::object();
    for (const std::string& source : sources) {
        Json s;
        for (const Setting& setting : settings) {
            int level = 0, minimum = 0, maximum = 0;
            const std::string op = std::string("IImageSettingsExtension::") + setting.name;
            Json e1 = run(op, [&] { return (i.*setting.level)(source.c_str(), level); });
            Json e2 = run(op + "Range", [&] { return (i.*setting.range)(source.c_str(), minimum, maximum); });
            s[setting.name] = {{"level", answer(e1, Json(level))},
                               {"range", answer(e2, Json{{"minimum", minimum}, {"maximum", maximum}})}};
        }
        out[readString(source).get<std::string>()] = s;
    }
    return out;
}

Json Inspector::deviceInfo(IDeviceInfoExtension& d) {
    using Text = DDKError* (IDeviceInfoExtension::*)(const char*, StringHandle*) const;
    static const std::pair<const char*, Text> texts[] = {
        {"manufacturer", &IDeviceInfoExtension::manufacturer},
        {"modelNumber", &IDeviceInfoExtension::modelNumber},
        {"serialNumber", &IDeviceInfoExtension::serialNumber},
        {"firmwareVersion", &IDeviceInfoExtension::firmwareVersion},
        {"hardwareId", &IDeviceInfoExtension::hardwareId},
        {"macAddress", &IDeviceInfoExtension::macAddress},
        {"deviceName", &IDeviceInfoExtension::deviceName},
    };
    const char* token = options_.deviceToken.c_str();
    Json out;
    std::string model;
    Json error = run("IDeviceInfoExtension::modelDescription",
                     [&] { return d.modelDescription(handle<StringHandle>(model)); });
    out["modelDescription"] = answer(error, readString(model));
    for (const auto& text : texts) {
        std::string value;
        error = run(std::string("IDeviceInfoExtension::") + text.first,
                    [&] { return (d.*text.second)(token, handle<StringHandle>(value)); });
        out[text.first] = answer(error, readString(value));
    }
    std::vector<std::string> features;
    error = run("IDeviceInfoExtension::capabilities",
                [&] { return d.capabilities(token, handle<StringListHandle>(features)); });
    out["capabilities"] = answer(error, readList(features));
    return out;
}

Json Inspector::deviceManagement(IDeviceManagementExtension& m) {
    Json out;
    std::vector<NetworkAddress> addresses;
    Json error = run("IDeviceManagementExtension::networkAddresses", [&] {
        return m.networkAddresses(options_.deviceToken.c_str(), handle<NetworkAddressCollectionHandle>(addresses));
    });
    out["networkAddresses"] = answer(error, readAddresses(addresses));
    return out;
}

Json Inspector::timeManagement(ITimeManagementExtension& t) {
    const char* token = options_.deviceToken.c_str();
    Json out;
    TimeZone zone;
    Json error = run("ITimeManagementExtension::timeZone",
                     [&] { return t.timeZone(token, handle<TimeZoneHandle>(zone)); });
    out["timeZone"] = answer(error, readTimeZone(zone));
    int64_t seconds = 0;
    error = run("ITimeManagementExtension::systemTime", [&] { return t.systemTime(token, seconds); });
    out["systemTime"] = answer(error, Json(seconds));
    std::vector<NetworkAddress> servers;
    error = run("ITimeManagementExtension::ntpServers",
                [&] { return t.ntpServers(token, handle<NetworkAddressCollectionHandle>(servers)); });
    out["ntpServers"] = answer(error, readAddresses(servers));
    return out;
}

}  // namespace inspect
