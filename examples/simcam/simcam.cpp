#include "simcam.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <ctime>

namespace simcam {

using namespace vantrel;
using namespace vantrel::ddk;
using namespace vantrel::ddk::internal;

namespace {

// Error codes of this plug-in (the kit's own: 7, "Operation not supported.").
const int kUnknownToken = 1;
const int kInvalidArgument = 2;
const int kNotSupported = DDK_ERROR_NOT_SUPPORTED;

DDKError* error(int code, const std::string& text) { return ddk_new_error(text.c_str(), &code); }

DDKError* unknown(const char* what, const char* token) {
    return error(kUnknownToken, std::string("unknown ") + what + " \"" + (token != nullptr ? token : "(null)") + "\"");
}

// ddk_* text functions take a pointer and a byte count.
unsigned length(const char* text) { return static_cast<unsigned>(std::strlen(text)); }

// Filling a host container fails only when the host gave a null handle or
// memory ran out; one error record covers both.
DDKError* filled(bool ok, const char* what) {
    return ok ? nullptr : error(kInvalidArgument, std::string("cannot fill ") + what);
}

const char* mimeOf(int encoding) {
    switch (encoding) {
        case 1: return "video/H264";
        case 2: return "video/H265";
        default: return "video/JPEG";
    }
}

// Sets the fields of one stream record from its row of the camera model.
bool fillStream(VideoStreamConfigurationHandle* config, const StreamSpec& s, unsigned bitrateDivisor) {
    bool ok = config != nullptr;
    ok = ok && ddk_video_set_encoding(config, static_cast<EncodingType>(s.encoding)) == 0;
    ok = ok && ddk_video_set_resolution(config, s.width, s.height) == 0;
    ok = ok && ddk_video_set_framerate(config, s.framerate) == 0;
    ok = ok && ddk_video_set_bitrate(config, s.bitrate / bitrateDivisor) == 0;
    if (ok && s.gop != 0) {
        // GOP, profile and rate control apply to H.264 and H.265 only; the
        // encoding is set first, since the profile setter looks at it.
        ok = ddk_video_set_gop(config, s.gop) == 0 && ddk_video_set_gop_structure(config, 0) == 0 &&
             ddk_video_set_profile(config, s.profile) == 0 && ddk_video_set_rate_control(config, 2) == 0;
    }
    if (ok) {
        ddk_video_set_descriptive_name(config, s.name, length(s.name));
        ddk_video_set_mtu(config, 1400);
    }
    return ok;
}

// The index of `token` in the camera model's stream tables, from 1.
unsigned streamNumber(const char* token) {
    unsigned n = 0;
    for (const SourceSpec& source : kSources) {
        for (std::size_t i = 0; i < source.streamCount; ++i) {
            ++n;
            if (std::strcmp(source.streams[i].token, token) == 0) {
                return n;
            }
        }
    }
    return 0;
}

std::string multicastGroup(const char* streamToken) {
    return "239.192.0." + std::to_string(streamNumber(streamToken));
}

}  // namespace

SimCam::SimCam() {
    for (const SourceSpec& desc : kSources) {
        SourceState& s = sources_[desc.token];
        s.magnification = desc.magnification;
        s.presetsInUse.assign(desc.presetCount, false);
        for (std::size_t i = 0; i < desc.presetsInUseCount; ++i) {
            s.presetsInUse[desc.presetsInUse[i]] = true;
        }
        for (std::size_t i = 0; i < desc.regionCount; ++i) {
            const RegionSpec& r = desc.regions[i];
            MotionDetectionRegion region(r.enabled, r.sensitivity, r.threshold, r.x1, r.y1, r.x2, r.y2);
            if (r.masked) {
                // A checkerboard: every other macro block takes part.
                std::vector<unsigned char> mask(region.maskByteCount(), 0x55);
                region.setMask(mask.data(), static_cast<unsigned>(mask.size()));
            }
            s.regions.push_back(region);
        }
    }
    addresses_ = {{4, kDeviceAddress}, {6, kDeviceAddress6}};
    ntpServers_ = {{4, kNtpServer}, {0, kNtpServerName}};
    Session recorder{"session-" + std::to_string(nextSession_++), kSources[0].streams[0].token, 1,
                     kRecorderAddress, kRecorderPort, 60, 1};
    sessions_.push_back(recorder);
}

// A host destroys a plug-in after stopping it; stop the thread anyway, so
// that a forgotten shutdown cannot leave it running into freed memory.
SimCam::~SimCam() { stopEvents(); }

int SimCam::lastScript(const std::string& source) const {
    std::lock_guard<std::mutex> lock(mutex_);
    auto it = sources_.find(source);
    return it == sources_.end() ? 0 : it->second.lastScript;
}

void SimCam::log(const std::string& line) const { ddk_log(host(), 1, ("simcam: " + line).c_str()); }

DDKError* SimCam::findSource(const char* token, const SourceSpec*& desc) const {
    for (const SourceSpec& s : kSources) {
        if (token != nullptr && std::strcmp(s.token, token) == 0) {
            desc = &s;
            return nullptr;
        }
    }
    return unknown("video source", token);
}

const StreamSpec* SimCam::findStream(const char* token, const SourceSpec** owner) {
    for (const SourceSpec& source : kSources) {
        for (std::size_t i = 0; i < source.streamCount; ++i) {
            if (token != nullptr && std::strcmp(source.streams[i].token, token) == 0) {
                if (owner != nullptr) {
                    *owner = &source;
                }
                return &source.streams[i];
            }
        }
    }
    return nullptr;
}

// ---- Start and stop -----------------------------------------------------------

DDKError* SimCam::doInit() {
    // A real plug-in connects to its device here and fails with a record
    // when it cannot; the table is already stored, so logging works.
    log("connected to the simulated device");
    {
        std::lock_guard<std::mutex> lock(eventsMutex_);
        stopping_ = false;
    }
    events_ = std::thread(&SimCam::runEvents, this);
    return nullptr;
}

void SimCam::doShutdown() {
    stopEvents();
    log("disconnected");
}

void SimCam::stopEvents() {
    {
        std::lock_guard<std::mutex> lock(eventsMutex_);
        stopping_ = true;
    }
    eventsWake_.notify_all();
    if (events_.joinable()) {
        events_.join();
    }
}

// The device's event stream, replayed in a loop: an alarm input raised and
// cleared, motion, a sabotage and a lost video signal.
void SimCam::runEvents() {
    unsigned step = 0;
    std::unique_lock<std::mutex> lock(eventsMutex_);
    while (!eventsWake_.wait_for(lock, eventPeriod_, [this] { return stopping_; })) {
        lock.unlock();
        const uint32_t now = static_cast<uint32_t>(std::time(nullptr));
        switch (step++ % 5) {
            case 0:
                signalAlarm(AlarmEvent{0, 1, 1, now});  // input0 raised
                break;
            case 1: {
                bool detecting;
                {
                    std::lock_guard<std::mutex> state(mutex_);
                    detecting = sources_.at(kSources[0].token).motionDetection;
                }
                if (detecting) {
                    static const char region[] = "region0";
                    ddk_signal_motion_detected(host(), 42, kSources[0].token, length(kSources[0].token), region,
                                               length(region));
                }
                break;
            }
            case 2:
                signalAlarm(AlarmEvent{0, 1, 0, now});  // input0 cleared
                break;
            case 3:
                ddk_signal_sabotage_event(host(), "lens covered", 1, 95, kSources[1].token);
                break;
            case 4:
                ddk_signal_video_loss_event(host(), 1, 0, now);  // source 1, signal lost
                break;
        }
        lock.lock();
    }
}

// ---- IVideoExtension ------------------------------------------------------

DDKError* SimCam::sourceTokens(StringListHandle* tokens) const {
    for (const SourceSpec& s : kSources) {
        if (ddk_append_string(tokens, s.token, length(s.token)) != 0) {
            return filled(false, "the source list");
        }
    }
    return nullptr;
}

DDKError* SimCam::videoStreams(const char* sourceToken, VideoStreamConfigurationsHandle* configurations) const {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(sourceToken, source)) {
        return e;
    }
    for (std::size_t i = 0; i < source->streamCount; ++i) {
        const StreamSpec& s = source->streams[i];
        VideoStreamConfigurationHandle* config =
            ddk_add_video_stream_to_configurations(configurations, s.token, length(s.token));
        if (!fillStream(config, s, 1)) {
            return filled(false, "the stream configurations");
        }
    }
    return nullptr;
}

DDKError* SimCam::videoPresets(const char* sourceToken, VideoStreamPresetsHandle* presets) const {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(sourceToken, source)) {
        return e;
    }
    for (const PresetSpec& preset : kStreamPresets) {
        VideoStreamConfigurationsHandle* streams = ddk_add_to_presets(presets, preset.name, length(preset.name));
        const StreamSpec& main = source->streams[0];
        VideoStreamConfigurationHandle* config =
            ddk_add_video_stream_to_configurations(streams, main.token, length(main.token));
        if (!fillStream(config, main, preset.bitrateDivisor)) {
            return filled(false, "the stream presets");
        }
    }
    return nullptr;
}

DDKError* SimCam::applyVideoStream(const char* sourceToken, VideoStreamConfigurationHandle* configuration) {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(sourceToken, source)) {
        return e;
    }
    const char* token = ddk_video_get_stream_token(configuration);
    const SourceSpec* owner = nullptr;
    if (findStream(token, &owner) == nullptr || owner != source) {
        return unknown("stream", token);
    }
    EncodingType encoding = DDK_ENCODING_NONE;
    unsigned width = 0, height = 0;
    if (ddk_video_get_encoding(configuration, &encoding) != 0 ||
        ddk_video_get_resolution(configuration, &width, &height) != 0) {
        return error(kInvalidArgument, "a stream needs an encoding and a resolution");
    }
    for (std::size_t i = 0; i < source->modeCount; ++i) {
        const EncoderMode& m = source->modes[i];
        if (m.encoding == encoding && m.width == width && m.height == height) {
            log(std::string("stream ") + token + " reconfigured");
            return nullptr;
        }
    }
    return error(kInvalidArgument, "the encoder cannot deliver that encoding at that resolution");
}

DDKError* SimCam::applyVideoPreset(const char* sourceToken, const char* presetName) {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(sourceToken, source)) {
        return e;
    }
    for (const PresetSpec& preset : kStreamPresets) {
        if (presetName != nullptr && std::strcmp(preset.name, presetName) == 0) {
            std::lock_guard<std::mutex> lock(mutex_);
            state(*source).activePreset = presetName;
            return nullptr;
        }
    }
    return unknown("stream preset", presetName);
}

// Answers from the encoder modes that pass every filter of the query: a
// query for H.264 at 640 x 360 gets the frame rates of that mode only.
DDKError* SimCam::encoderOptions(const char* sourceToken, VideoOptionsQueryHandle* query,
                                 EncoderOptionsHandle* options) const {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(sourceToken, source)) {
        return e;
    }
    EncodingType wantedEncoding = DDK_ENCODING_NONE;
    unsigned wantedFramerate = 0, wantedWidth = 0, wantedHeight = 0;
    // The getters answer 1 when the query has the filter, 0 when not (and a
    // null query has none).
    const bool byEncoding = ddk_get_encoder_query_encoding(query, &wantedEncoding) == 1;
    const bool byFramerate = ddk_get_encoder_query_framerate(query, &wantedFramerate) == 1;
    const bool byResolution = ddk_get_encoder_query_video_resolution(query, &wantedWidth, &wantedHeight) == 1;

    bool interFrame = false;
    for (std::size_t i = 0; i < source->modeCount; ++i) {
        const EncoderMode& m = source->modes[i];
        if ((byEncoding && m.encoding != wantedEncoding) ||
            (byResolution && (m.width != wantedWidth || m.height != wantedHeight)) ||
            (byFramerate && wantedFramerate > m.maxFramerate)) {
            continue;
        }
        bool ok = ddk_add_encoding_to_encoder_options(options, static_cast<EncodingType>(m.encoding)) == 0 &&
                  ddk_add_resolution_to_encoder_options(options, m.width, m.height) == 0;
        for (unsigned rate : kFramerates) {
            if (rate <= m.maxFramerate && (!byFramerate || rate == wantedFramerate)) {
                ok = ok && ddk_add_framerate_to_encoder_options(options, rate) == 0;
            }
        }
        if (!ok) {
            return filled(false, "the encoder options");
        }
        interFrame = interFrame || m.encoding == DDK_ENCODING_H264 || m.encoding == DDK_ENCODING_H265;
    }
    if (interFrame) {
        for (int profile = 0; profile <= 2; ++profile) {
            ddk_add_video_profile_to_encoder_options(options, profile);
        }
        ddk_add_gop_structure_to_encoder_options(options, 0);
        ddk_add_gop_structure_to_encoder_options(options, 1);
        ddk_add_rate_control_to_encoder_options(options, 1);
        ddk_add_rate_control_to_encoder_options(options, 2);
        ddk_set_gop_range_on_encoder_options(options, 1, 300, 1);
    }
    ddk_set_bitrate_range_on_encoder_options(options, 64, 16000, 64);
    ddk_set_dscp_range_on_encoder_options(options, 0, 63, 0);
    ddk_set_signing_on_encoder_options(options, 1);
    return nullptr;
}

DDKError* SimCam::analyticsProfiles(const char* sourceToken, VideoAnalyticsProfilesHandle* profiles) const {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(sourceToken, source)) {
        return e;
    }
    for (std::size_t i = 0; i < source->profileCount; ++i) {
        const ProfileSpec& p = source->profiles[i];
        if (ddk_add_video_analytics_profile(profiles, p.name, p.id, p.flag) == nullptr) {
            return filled(false, "the analytics profiles");
        }
    }
    return nullptr;
}

DDKError* SimCam::activateAnalyticsProfile(const char* sourceToken, int profileId) {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(sourceToken, source)) {
        return e;
    }
    for (std::size_t i = 0; i < source->profileCount; ++i) {
        if (source->profiles[i].id == profileId) {
            if (source->profiles[i].flag == 0) {
                return error(kNotSupported, std::string("profile \"") + source->profiles[i].name +
                                                "\" needs a licence");
            }
            std::lock_guard<std::mutex> lock(mutex_);
            state(*source).activeProfile = profileId;
            return nullptr;
        }
    }
    return error(kInvalidArgument, "unknown analytics profile " + std::to_string(profileId));
}

// Every stream has its own group; the host starts multicast itself.
DDKError* SimCam::multicastDefaults(const char* token, VideoStreamConfigurationHandle* configuration) const {
    if (findStream(token) == nullptr) {
        return unknown("stream", token);
    }
    const std::string group = multicastGroup(token);
    const unsigned port = 5000 + 2 * streamNumber(token);
    return filled(ddk_video_set_multicast(configuration, group.c_str(), length(group.c_str()), port, 16, 0) == 0,
                  "the multicast defaults");
}

// ---- IMediaSessionExtension ---------------------------------------------------

namespace {

bool fillSession(MediaSessionHandle* handle, const std::string& id, const char* streamToken, int mode,
                 const std::string& ip, unsigned short port, unsigned short timeout, int state) {
    const StreamSpec* stream = nullptr;
    for (const SourceSpec& source : kSources) {
        for (std::size_t i = 0; i < source.streamCount; ++i) {
            if (std::strcmp(source.streams[i].token, streamToken) == 0) {
                stream = &source.streams[i];
            }
        }
    }
    const std::string uri = std::string("rtsp://") + kDeviceAddress + "/" + streamToken;
    const char* mime = mimeOf(stream != nullptr ? stream->encoding : 3);
    auto count = [](const std::string& s) { return static_cast<uint16_t>(s.size()); };
    const uint16_t idLength = count(id), uriLength = count(uri), ipLength = count(ip);
    const uint16_t tokenLength = static_cast<uint16_t>(std::strlen(streamToken));
    const uint16_t mimeLength = static_cast<uint16_t>(std::strlen(mime));
    const int32_t type = 0, sessionState = state;
    return handle != nullptr && ddk_set_media_session_id(handle, id.c_str(), &idLength) == 0 &&
           ddk_set_media_session_uri(handle, uri.c_str(), &uriLength) == 0 &&
           ddk_set_media_session_mime(handle, mime, &mimeLength) == 0 &&
           ddk_set_media_session_stream_token(handle, streamToken, &tokenLength) == 0 &&
           ddk_set_media_session_transmission_mode(handle, mode) == 0 &&
           ddk_set_media_session_stream_type(handle, &type) == 0 &&
           ddk_set_media_session_destination_ip(handle, ip.c_str(), &ipLength) == 0 &&
           ddk_set_media_session_destination_port(handle, &port) == 0 &&
           ddk_set_media_session_timeout(handle, &timeout) == 0 &&
           ddk_set_media_session_stream_state(handle, &sessionState) == 0;
}

}  // namespace

DDKError* SimCam::mediaSessions(MediaSessionCollectionHandle* sessions) const {
    std::lock_guard<std::mutex> lock(mutex_);
    for (const Session& s : sessions_) {
        // Fill each session before appending the next: an append may move
        // the earlier elements.
        if (!fillSession(ddk_add_media_session_to_collection(sessions), s.id, s.streamToken.c_str(),
                         s.transmissionMode, s.destinationIp, s.destinationPort, s.timeout, s.state)) {
            return filled(false, "the media sessions");
        }
    }
    return nullptr;
}

DDKError* SimCam::startMediaSession(const char* streamToken, int transmissionMode, const char* destinationIp,
                                    unsigned short destinationPort, MediaSessionCollectionHandle* sessions) {
    if (findStream(streamToken) == nullptr) {
        return unknown("stream", streamToken);
    }
    if (destinationIp == nullptr || *destinationIp == '\0') {
        return error(kInvalidArgument, "a session needs a destination address");
    }
    std::lock_guard<std::mutex> lock(mutex_);
    Session s{"session-" + std::to_string(nextSession_++), streamToken, transmissionMode, destinationIp,
              destinationPort, 60, 1};
    if (!fillSession(ddk_add_media_session_to_collection(sessions), s.id, streamToken, transmissionMode,
                     s.destinationIp, destinationPort, s.timeout, s.state)) {
        return filled(false, "the started session");
    }
    sessions_.push_back(s);
    return nullptr;
}

namespace {

template <class Sessions>
auto findSession(Sessions& sessions, const char* id) -> decltype(sessions.begin()) {
    return std::find_if(sessions.begin(), sessions.end(),
                        [id](const typename Sessions::value_type& s) { return id != nullptr && s.id == id; });
}

}  // namespace

DDKError* SimCam::stopMediaSession(const char* sessionId) {
    std::lock_guard<std::mutex> lock(mutex_);
    auto it = findSession(sessions_, sessionId);
    if (it == sessions_.end()) {
        return unknown("media session", sessionId);
    }
    sessions_.erase(it);
    return nullptr;
}

DDKError* SimCam::renewMediaSession(const char* sessionId, unsigned short timeout) {
    std::lock_guard<std::mutex> lock(mutex_);
    auto it = findSession(sessions_, sessionId);
    if (it == sessions_.end()) {
        return unknown("media session", sessionId);
    }
    it->timeout = timeout;
    return nullptr;
}

DDKError* SimCam::pauseMediaSession(const char* sessionId) {
    std::lock_guard<std::mutex> lock(mutex_);
    auto it = findSession(sessions_, sessionId);
    if (it == sessions_.end()) {
        return unknown("media session", sessionId);
    }
    it->state = 2;
    return nullptr;
}

DDKError* SimCam::resumeMediaSession(const char* sessionId) {
    std::lock_guard<std::mutex> lock(mutex_);
    auto it = findSession(sessions_, sessionId);
    if (it == sessions_.end()) {
        return unknown("media session", sessionId);
    }
    it->state = 1;
    return nullptr;
}

// Each stream is reachable through RTSP; Motion JPEG also over plain HTTP.
DDKError* SimCam::streamConnectionInfos(const char* streamToken, StreamConnectionInfosHandle* infos) const {
    const StreamSpec* stream = findStream(streamToken);
    if (stream == nullptr) {
        return unknown("stream", streamToken);
    }
    struct Endpoint {
        std::string url;
        int type;
        int mode;
    };
    std::vector<Endpoint> endpoints = {{std::string("rtsp://") + kDeviceAddress + ":554/" + streamToken, 0, 3}};
    if (stream->encoding == 3) {
        endpoints.push_back({std::string("http://") + kDeviceAddress + "/mjpeg/" + streamToken, 1, 3});
    }
    const char* mime = mimeOf(stream->encoding);
    for (const Endpoint& e : endpoints) {
        StreamConnectionInfoHandle* info = ddk_add_stream_connection_info(infos);
        const bool ok = info != nullptr &&
                        ddk_set_stream_connection_info_url(info, e.url.c_str(), length(e.url.c_str())) == 0 &&
                        ddk_set_stream_connection_info_mime_type(info, mime, length(mime)) == 0 &&
                        ddk_set_stream_connection_info_token(info, streamToken, length(streamToken)) == 0 &&
                        ddk_set_stream_connection_info_transmission_mode(info, e.mode) == 0 &&
                        ddk_set_stream_connection_info_type(info, e.type) == 0;
        if (!ok) {
            return filled(false, "the stream endpoints");
        }
    }
    return nullptr;
}

DDKError* SimCam::requestKeyFrame(const char* streamToken) {
    const StreamSpec* stream = findStream(streamToken);
    if (stream == nullptr) {
        return unknown("stream", streamToken);
    }
    if (stream->gop == 0) {
        return error(kNotSupported, "Motion JPEG has only key frames");
    }
    return nullptr;
}

DDKError* SimCam::snapshotUri(const char* sourceToken, StringHandle* uri) const {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(sourceToken, source)) {
        return e;
    }
    const std::string text = std::string("http://") + kDeviceAddress + "/snapshot/" + source->token + ".jpg";
    return filled(ddk_set_string(uri, text.c_str(), length(text.c_str())) == 0, "the snapshot URI");
}

DDKError* SimCam::multicastAddresses(const char* streamToken, NetworkAddressCollectionHandle* addresses) const {
    if (findStream(streamToken) == nullptr) {
        return unknown("stream", streamToken);
    }
    const std::string group = multicastGroup(streamToken);
    return filled(ddk_append_network_address(addresses, 4, group.c_str(), length(group.c_str())) == 0,
                  "the multicast groups");
}

DDKError* SimCam::audioSourceTokens(StringListHandle* tokens) const {
    return filled(ddk_append_string(tokens, kAudioSource, length(kAudioSource)) == 0, "the audio sources");
}

DDKError* SimCam::audioStreams(const char* sourceToken, AudioStreamConfigurationsHandle* configurations) const {
    if (sourceToken == nullptr || std::strcmp(sourceToken, kAudioSource) != 0) {
        return unknown("audio source", sourceToken);
    }
    static const char kG711[] = "G.711";
    static const char kAac[] = "AAC";
    const uint32_t g711 = 1, aac = 2;
    AudioStreamConfigurationHandle* a = ddk_add_audio_to_configurations(configurations, kG711, length(kG711));
    AudioStreamConfigurationHandle* b = ddk_add_audio_to_configurations(configurations, kAac, length(kAac));
    const bool ok = a != nullptr && b != nullptr && ddk_audio_set_format(a, &g711) == 0 &&
                    ddk_audio_set_sample_size_in_bits(a, 8) == 0 && ddk_audio_set_samples_per_second(a, 8000) == 0 &&
                    ddk_audio_set_frames_per_kilosecond(a, 50000) == 0 && ddk_audio_set_format(b, &aac) == 0 &&
                    ddk_audio_set_sample_size_in_bits(b, 16) == 0 && ddk_audio_set_samples_per_second(b, 16000) == 0 &&
                    ddk_audio_set_frames_per_kilosecond(b, 15625) == 0 && ddk_audio_enable_little_endian(b) == 0 &&
                    ddk_audio_enable_vbr(b) == 0;
    return filled(ok, "the audio streams");
}

DDKError* SimCam::audioSource(const char* sourceToken, AudioSourceHandle* source) const {
    if (sourceToken == nullptr || std::strcmp(sourceToken, kAudioSource) != 0) {
        return unknown("audio source", sourceToken);
    }
    const bool ok = ddk_audio_set_source_type(source, 1) == 0 && ddk_audio_set_source_sample_size_in_bits(source, 16) == 0 &&
                    ddk_audio_set_source_samples_per_second(source, 16000) == 0 &&
                    ddk_audio_set_source_channels(source, 1) == 0 && ddk_audio_set_source_level(source, 75) == 0;
    return filled(ok, "the audio source");
}

DDKError* SimCam::setSessionKey(const char* sessionId, const char* encryptedKey) {
    std::lock_guard<std::mutex> lock(mutex_);
    if (findSession(sessions_, sessionId) == sessions_.end()) {
        return unknown("media session", sessionId);
    }
    if (encryptedKey == nullptr || *encryptedKey == '\0') {
        return error(kInvalidArgument, "empty session key");
    }
    return nullptr;  // a real device would decrypt it with its private key
}

DDKError* SimCam::enableAudio(const char* sourceToken) {
    if (sourceToken == nullptr || std::strcmp(sourceToken, kAudioSource) != 0) {
        return unknown("audio source", sourceToken);
    }
    {
        std::lock_guard<std::mutex> lock(mutex_);
        audioEnabled_ = true;
    }
    ddk_signal_audio_enabled(host());
    return nullptr;
}

DDKError* SimCam::disableAudio(const char* sourceToken) {
    if (sourceToken == nullptr || std::strcmp(sourceToken, kAudioSource) != 0) {
        return unknown("audio source", sourceToken);
    }
    {
        std::lock_guard<std::mutex> lock(mutex_);
        audioEnabled_ = false;
    }
    ddk_signal_audio_disabled(host());
    return nullptr;
}

DDKError* SimCam::audioOutputTokens(StringListHandle* tokens) const {
    return filled(ddk_append_string(tokens, kAudioOutput, length(kAudioOutput)) == 0, "the audio outputs");
}

DDKError* SimCam::audioBackchannelUri(const char* outputToken, StringHandle* uri) const {
    if (outputToken == nullptr || std::strcmp(outputToken, kAudioOutput) != 0) {
        return unknown("audio output", outputToken);
    }
    const std::string text = std::string("rtsp://") + kDeviceAddress + ":554/backchannel/" + kAudioOutput;
    return filled(ddk_set_string(uri, text.c_str(), length(text.c_str())) == 0, "the back-channel URI");
}

DDKError* SimCam::setAudioOutputLevel(const char* outputToken, unsigned int level) {
    if (outputToken == nullptr || std::strcmp(outputToken, kAudioOutput) != 0) {
        return unknown("audio output", outputToken);
    }
    if (level > 100) {
        return error(kInvalidArgument, "output level above 100");
    }
    std::lock_guard<std::mutex> lock(mutex_);
    audioOutputLevel_ = level;
    return nullptr;
}

// ---- IAlarmExtension -------------------------------------------------------

DDKError* SimCam::alarmInputs(StringListHandle* inputs) const {
    for (const char* input : kAlarmInputs) {
        if (ddk_append_string(inputs, input, length(input)) != 0) {
            return filled(false, "the alarm inputs");
        }
    }
    return nullptr;
}

DDKError* SimCam::alarmOutputs(StringListHandle* outputs) const {
    for (const char* output : kAlarmOutputs) {
        if (ddk_append_string(outputs, output, length(output)) != 0) {
            return filled(false, "the alarm outputs");
        }
    }
    return nullptr;
}

DDKError* SimCam::setAlarmOutput(const char* output, ddk_bool active) {
    if (output == nullptr || std::strcmp(output, kAlarmOutputs[0]) != 0) {
        return unknown("alarm output", output);
    }
    std::lock_guard<std::mutex> lock(mutex_);
    relayClosed_ = active != 0;
    return nullptr;
}

DDKError* SimCam::motionRegions(const char* sourceToken, MotionDetectionRegionListHandle* regions) const {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(sourceToken, source)) {
        return e;
    }
    std::lock_guard<std::mutex> lock(mutex_);
    for (const MotionDetectionRegion& r : state(*source).regions) {
        MotionDetectionRegionHandle* region = ddk_append_motion_region(regions);
        unsigned x1, y1, x2, y2;
        r.coordinates(x1, y1, x2, y2);
        const unsigned char* mask = nullptr;
        unsigned size = 0;
        r.mask(mask, size);
        // The dimensions come first (the threshold is clamped to the region's
        // blocks) and need a mask of the right size: a maskless region gets
        // a blank one, dropped again right after.
        std::vector<unsigned char> bytes(MotionDetectionRegion::requiredMaskSize(x1, y1, x2, y2), 0);
        if (mask != nullptr) {
            bytes.assign(mask, mask + size);
        }
        const bool ok =
            region != nullptr &&
            ddk_set_motion_region_dimensions(region, x1, y1, x2, y2, bytes.data(),
                                             static_cast<uint16_t>(bytes.size())) == 0 &&
            (mask != nullptr || ddk_set_motion_region_mask(region, nullptr, 0) == 0) &&
            ddk_set_motion_region_sensitivity(region, r.sensitivity()) == 0 &&
            ddk_set_motion_region_threshold(region, r.threshold()) == 0 &&
            (r.isEnabled() ? ddk_set_motion_region_enabled(region) : ddk_set_motion_region_disabled(region)) == 0;
        if (!ok) {
            return filled(false, "the motion regions");
        }
    }
    return nullptr;
}

DDKError* SimCam::setMotionRegions(const char* sourceToken, MotionDetectionRegionListHandle* regions) {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(sourceToken, source)) {
        return e;
    }
    // Read the host's list through the kit's functions, into regions of our own.
    std::vector<MotionDetectionRegion> next;
    const unsigned count = ddk_get_motion_region_list_size(regions);
    for (unsigned i = 0; i < count; ++i) {
        MotionDetectionRegionHandle* h = ddk_get_motion_region_at(regions, i);
        unsigned x1 = 0, y1 = 0, x2 = 0, y2 = 0;
        const unsigned char* mask = nullptr;
        uint16_t size = 0;
        if (ddk_get_motion_region_coordinates(h, &x1, &y1, &x2, &y2) != 0 ||
            ddk_get_motion_region_mask(h, &mask, &size) != 0) {
            return error(kInvalidArgument, "unreadable motion region " + std::to_string(i));
        }
        MotionDetectionRegion region(ddk_get_motion_region_enabled(h) != 0, ddk_get_motion_region_sensitivity(h),
                                     ddk_get_motion_region_threshold(h), x1, y1, x2, y2);
        if (mask != nullptr && !region.setMask(mask, size)) {
            return error(kInvalidArgument, "motion region " + std::to_string(i) + " has a mask of the wrong size");
        }
        next.push_back(region);
    }
    std::lock_guard<std::mutex> lock(mutex_);
    state(*source).regions = next;
    return nullptr;
}

DDKError* SimCam::enableMotionDetection(const char* sourceToken) {
    return switchMotionDetection(sourceToken, true);
}

DDKError* SimCam::disableMotionDetection(const char* sourceToken) {
    return switchMotionDetection(sourceToken, false);
}

DDKError* SimCam::switchMotionDetection(const char* sourceToken, bool on) {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(sourceToken, source)) {
        return e;
    }
    {
        std::lock_guard<std::mutex> lock(mutex_);
        state(*source).motionDetection = on;
    }
    // The host hears of the change after the lock is released: its callback may call back in.
    if (on) {
        ddk_signal_motion_detection_enabled(host());
    } else {
        ddk_signal_motion_detection_disabled(host());
    }
    return nullptr;
}

// ---- IZoomExtension ----------------------------------------------------------
// The lens works in one-byte steps from 0 (1.00x) to 100 (the longest focal
// length); the factors tell the kit what one step is worth, and its default
// getMagHundredthsX / setMagHundredthsX convert to and from the host's unit.

DDKError* SimCam::magnificationFactors(const char* token, unsigned int& firstHundredths,
                                       unsigned int& secondHundredths) {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(token, source)) {
        return e;
    }
    firstHundredths = source->zoomFactor;
    secondHundredths = 100;
    return nullptr;
}

DDKError* SimCam::getMagnification(const char* token, unsigned char& magnification) {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(token, source)) {
        return e;
    }
    std::lock_guard<std::mutex> lock(mutex_);
    magnification = state(*source).magnification;
    return nullptr;
}

DDKError* SimCam::setMagnification(const char* token, const unsigned char& magnification,
                                   const unsigned char& /*option*/) {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(token, source)) {
        return e;
    }
    std::lock_guard<std::mutex> lock(mutex_);
    state(*source).magnification = std::min<unsigned char>(magnification, 100);
    return nullptr;
}

DDKError* SimCam::magnificationRange(const char* token, unsigned int& minimumHundredthsX,
                                     unsigned int& maximumHundredthsX) const {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(token, source)) {
        return e;
    }
    minimumHundredthsX = 100;
    maximumHundredthsX = source->zoomFactor;
    return nullptr;
}

DDKError* SimCam::zoomIn(const char* token, const unsigned char& speed) {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(token, source)) {
        return e;
    }
    if (speed == 0 || speed > 100) {
        return error(kInvalidArgument, "zoom speed outside 1..100");
    }
    std::lock_guard<std::mutex> lock(mutex_);
    state(*source).zoomSpeed = speed;
    return nullptr;
}

DDKError* SimCam::zoomOut(const char* token, const unsigned char& speed) {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(token, source)) {
        return e;
    }
    if (speed == 0 || speed > 100) {
        return error(kInvalidArgument, "zoom speed outside 1..100");
    }
    std::lock_guard<std::mutex> lock(mutex_);
    state(*source).zoomSpeed = -speed;
    return nullptr;
}

DDKError* SimCam::stopZoom(const char* token) {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(token, source)) {
        return e;
    }
    std::lock_guard<std::mutex> lock(mutex_);
    state(*source).zoomSpeed = 0;
    return nullptr;
}

// ---- IScriptControlExtension ----------------------------------------------------

DDKError* SimCam::presets(const char* token, PresetVectorHandle* presetFlags) const {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(token, source)) {
        return e;
    }
    std::lock_guard<std::mutex> lock(mutex_);
    const std::vector<bool>& inUse = state(*source).presetsInUse;
    // Sizing to n gives numbers 0..n.
    if (ddk_set_preset_vector_size(presetFlags, static_cast<unsigned>(inUse.size()) - 1) != 0) {
        return filled(false, "the preset flags");
    }
    for (unsigned i = 0; i < inUse.size(); ++i) {
        if (inUse[i] && ddk_set_preset_enabled(presetFlags, i) != 0) {
            return filled(false, "the preset flags");
        }
    }
    return nullptr;
}

DDKError* SimCam::tours(const char* token, TourVectorHandle* tourFlags) const {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(token, source)) {
        return e;
    }
    if (ddk_set_tour_vector_size(tourFlags, source->tourCount - 1) != 0) {
        return filled(false, "the tour flags");
    }
    for (std::size_t i = 0; i < source->toursInUseCount; ++i) {
        if (ddk_set_tour_enabled(tourFlags, source->toursInUse[i]) != 0) {
            return filled(false, "the tour flags");
        }
    }
    return nullptr;
}

// The eight script operations of the kit arrive here with their codes.
DDKError* SimCam::runScript(const char* token, int script) {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(token, source)) {
        return e;
    }
    {
        std::lock_guard<std::mutex> lock(mutex_);
        state(*source).lastScript = script;
    }
    log(std::string(source->token) + " runs motion script " + std::to_string(script));
    return nullptr;
}

DDKError* SimCam::gotoPreset(const char* token, unsigned int preset) {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(token, source)) {
        return e;
    }
    std::lock_guard<std::mutex> lock(mutex_);
    const std::vector<bool>& inUse = state(*source).presetsInUse;
    if (preset >= inUse.size() || !inUse[preset]) {
        return error(kInvalidArgument, "preset " + std::to_string(preset) + " is not in use");
    }
    return nullptr;
}

DDKError* SimCam::savePreset(const char* token, unsigned int preset) {
    return markPreset(token, preset, true);
}

DDKError* SimCam::removePreset(const char* token, unsigned int preset) {
    return markPreset(token, preset, false);
}

DDKError* SimCam::markPreset(const char* token, unsigned int preset, bool inUseNow) {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(token, source)) {
        return e;
    }
    std::lock_guard<std::mutex> lock(mutex_);
    std::vector<bool>& inUse = state(*source).presetsInUse;
    if (preset >= inUse.size()) {
        return error(kInvalidArgument, "preset numbers go up to " + std::to_string(inUse.size() - 1));
    }
    inUse[preset] = inUseNow;
    return nullptr;
}

DDKError* SimCam::startTour(const char* token, unsigned int tour) {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(token, source)) {
        return e;
    }
    for (std::size_t i = 0; i < source->toursInUseCount; ++i) {
        if (source->toursInUse[i] == tour) {
            return nullptr;
        }
    }
    return error(kInvalidArgument, "tour " + std::to_string(tour) + " is not in use");
}

DDKError* SimCam::stopTour(const char* token) {
    const SourceSpec* source = nullptr;
    return findSource(token, source);
}

DDKError* SimCam::move(const char* token, int panSpeed, int tiltSpeed) {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(token, source)) {
        return e;
    }
    if (panSpeed < -100 || panSpeed > 100 || tiltSpeed < -100 || tiltSpeed > 100) {
        return error(kInvalidArgument, "pan and tilt speeds go from -100 to 100");
    }
    return nullptr;
}

DDKError* SimCam::stopMove(const char* token) {
    const SourceSpec* source = nullptr;
    return findSource(token, source);
}

// ---- IImageSettingsExtension ----------------------------------------------------

DDKError* SimCam::level(const char* token, Level SourceState::*which, int& value) const {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(token, source)) {
        return e;
    }
    std::lock_guard<std::mutex> lock(mutex_);
    value = (state(*source).*which).value;
    return nullptr;
}

DDKError* SimCam::setLevel(const char* token, Level SourceState::*which, int value) {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(token, source)) {
        return e;
    }
    std::lock_guard<std::mutex> lock(mutex_);
    Level& l = state(*source).*which;
    if (value < l.minimum || value > l.maximum) {
        return error(kInvalidArgument,
                     "level outside " + std::to_string(l.minimum) + ".." + std::to_string(l.maximum));
    }
    l.value = value;
    return nullptr;
}

DDKError* SimCam::levelRange(const char* token, Level SourceState::*which, int& minimum, int& maximum) const {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(token, source)) {
        return e;
    }
    std::lock_guard<std::mutex> lock(mutex_);
    const Level& l = state(*source).*which;
    minimum = l.minimum;
    maximum = l.maximum;
    return nullptr;
}

// One step is 5 units; the level stops at the ends of its range.
DDKError* SimCam::adjustLevel(const char* token, Level SourceState::*which, int steps) {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(token, source)) {
        return e;
    }
    std::lock_guard<std::mutex> lock(mutex_);
    Level& l = state(*source).*which;
    const long long target = static_cast<long long>(l.value) + 5LL * steps;
    l.value = static_cast<int>(std::max<long long>(l.minimum, std::min<long long>(l.maximum, target)));
    return nullptr;
}

// Unlike the kit's default ("Operation not supported."), this device can
// restore its factory setting.
DDKError* SimCam::restoreLevel(const char* token, Level SourceState::*which) {
    const SourceSpec* source = nullptr;
    if (DDKError* e = findSource(token, source)) {
        return e;
    }
    std::lock_guard<std::mutex> lock(mutex_);
    Level& l = state(*source).*which;
    l.value = l.standard;
    return nullptr;
}

DDKError* SimCam::brightness(const char* t, int& v) const { return level(t, &SourceState::brightness, v); }
DDKError* SimCam::setBrightness(const char* t, int v) { return setLevel(t, &SourceState::brightness, v); }
DDKError* SimCam::brightnessRange(const char* t, int& lo, int& hi) const {
    return levelRange(t, &SourceState::brightness, lo, hi);
}
DDKError* SimCam::adjustBrightness(const char* t, int s) { return adjustLevel(t, &SourceState::brightness, s); }
DDKError* SimCam::setDefaultBrightness(const char* t) { return restoreLevel(t, &SourceState::brightness); }

DDKError* SimCam::contrast(const char* t, int& v) const { return level(t, &SourceState::contrast, v); }
DDKError* SimCam::setContrast(const char* t, int v) { return setLevel(t, &SourceState::contrast, v); }
DDKError* SimCam::contrastRange(const char* t, int& lo, int& hi) const {
    return levelRange(t, &SourceState::contrast, lo, hi);
}
DDKError* SimCam::adjustContrast(const char* t, int s) { return adjustLevel(t, &SourceState::contrast, s); }
DDKError* SimCam::setDefaultContrast(const char* t) { return restoreLevel(t, &SourceState::contrast); }

DDKError* SimCam::hue(const char* t, int& v) const { return level(t, &SourceState::hue, v); }
DDKError* SimCam::setHue(const char* t, int v) { return setLevel(t, &SourceState::hue, v); }
DDKError* SimCam::hueRange(const char* t, int& lo, int& hi) const { return levelRange(t, &SourceState::hue, lo, hi); }
DDKError* SimCam::adjustHue(const char* t, int s) { return adjustLevel(t, &SourceState::hue, s); }
DDKError* SimCam::setDefaultHue(const char* t) { return restoreLevel(t, &SourceState::hue); }

DDKError* SimCam::saturation(const char* t, int& v) const { return level(t, &SourceState::saturation, v); }
DDKError* SimCam::setSaturation(const char* t, int v) { return setLevel(t, &SourceState::saturation, v); }
DDKError* SimCam::saturationRange(const char* t, int& lo, int& hi) const {
    return levelRange(t, &SourceState::saturation, lo, hi);
}
DDKError* SimCam::adjustSaturation(const char* t, int s) { return adjustLevel(t, &SourceState::saturation, s); }
DDKError* SimCam::setDefaultSaturation(const char* t) { return restoreLevel(t, &SourceState::saturation); }

// ---- IDeviceInfoExtension ---------------------------------------------------------
// A single device: the token is not looked at.

namespace {

DDKError* text(StringHandle* handle, const char* value, const char* what) {
    return filled(ddk_set_string(handle, value, length(value)) == 0, what);
}

}  // namespace

DDKError* SimCam::modelDescription(StringHandle* description) {
    return text(description, kModelDescription, "the model description");
}
DDKError* SimCam::manufacturer(const char*, StringHandle* name) const {
    return text(name, kManufacturer, "the manufacturer");
}
DDKError* SimCam::modelNumber(const char*, StringHandle* number) const {
    return text(number, kModelNumber, "the model number");
}
DDKError* SimCam::serialNumber(const char*, StringHandle* number) const {
    return text(number, kSerialNumber, "the serial number");
}
DDKError* SimCam::firmwareVersion(const char*, StringHandle* version) const {
    return text(version, kFirmwareVersion, "the firmware version");
}
DDKError* SimCam::hardwareId(const char*, StringHandle* id) const { return text(id, kHardwareId, "the hardware id"); }
DDKError* SimCam::macAddress(const char*, StringHandle* address) const {
    return text(address, kMacAddress, "the MAC address");
}

DDKError* SimCam::deviceName(const char*, StringHandle* name) const {
    std::lock_guard<std::mutex> lock(mutex_);
    return text(name, deviceName_.c_str(), "the device name");
}

DDKError* SimCam::setDeviceName(const char*, const char* name) {
    if (name == nullptr || *name == '\0') {
        return error(kInvalidArgument, "empty device name");
    }
    {
        std::lock_guard<std::mutex> lock(mutex_);
        deviceName_ = name;
    }
    ddk_signal_refresh_ddf(host());  // the host shows the name: read the description again
    return nullptr;
}

DDKError* SimCam::capabilities(const char*, StringListHandle* features) const {
    for (const char* feature : kCapabilities) {
        if (ddk_append_string(features, feature, length(feature)) != 0) {
            return filled(false, "the capabilities");
        }
    }
    return nullptr;
}

// ---- IDeviceManagementExtension -----------------------------------------------

DDKError* SimCam::reboot(const char*) {
    log("rebooting");
    std::lock_guard<std::mutex> lock(mutex_);
    sessions_.clear();  // a reboot ends every session
    return nullptr;
}

DDKError* SimCam::factoryReset(const char*, ddk_bool keepNetworkSettings) {
    std::lock_guard<std::mutex> lock(mutex_);
    deviceName_ = kDefaultDeviceName;
    for (auto& entry : sources_) {
        for (Level SourceState::*l : {&SourceState::brightness, &SourceState::contrast, &SourceState::hue,
                                      &SourceState::saturation}) {
            (entry.second.*l).value = (entry.second.*l).standard;
        }
    }
    if (keepNetworkSettings == 0) {
        addresses_ = {{4, kDeviceAddress}, {6, kDeviceAddress6}};
    }
    return nullptr;
}

namespace {

DDKError* fillAddresses(NetworkAddressCollectionHandle* out, const std::vector<std::pair<int32_t, std::string>>& in,
                        const char* what) {
    for (const auto& a : in) {
        if (ddk_append_network_address(out, a.first, a.second.data(), static_cast<unsigned>(a.second.size())) != 0) {
            return filled(false, what);
        }
    }
    return nullptr;
}

bool readAddresses(NetworkAddressCollectionHandle* in, std::vector<std::pair<int32_t, std::string>>& out) {
    const unsigned count = ddk_get_network_address_collection_size(in);
    for (unsigned i = 0; i < count; ++i) {
        NetworkAddressHandle* a = ddk_get_network_address_at(in, i);
        int32_t type = 0;
        const char* address = ddk_get_network_address(a);
        if (address == nullptr || ddk_get_network_address_type(a, &type) != 0) {
            return false;
        }
        out.emplace_back(type, address);
    }
    return true;
}

}  // namespace

DDKError* SimCam::networkAddresses(const char*, NetworkAddressCollectionHandle* addresses) const {
    std::lock_guard<std::mutex> lock(mutex_);
    return fillAddresses(addresses, addresses_, "the network addresses");
}

DDKError* SimCam::setNetworkAddresses(const char*, NetworkAddressCollectionHandle* addresses) {
    std::vector<std::pair<int32_t, std::string>> next;
    if (!readAddresses(addresses, next) || next.empty()) {
        return error(kInvalidArgument, "a device needs at least one address");
    }
    std::lock_guard<std::mutex> lock(mutex_);
    addresses_ = next;
    return nullptr;
}

// ---- ITimeManagementExtension -----------------------------------------------------

DDKError* SimCam::timeZone(const char*, TimeZoneHandle* zone) const {
    const bool ok = ddk_set_timezone_name(zone, kTimeZoneName, length(kTimeZoneName)) == 0 &&
                    ddk_set_timezone_dstname(zone, kTimeZoneDstName, length(kTimeZoneDstName)) == 0;
    if (!ok) {
        return filled(false, "the time zone");
    }
    ddk_set_timezone_gmtoffset(zone, kGmtOffsetMinutes);
    ddk_set_timezone_dstoffset(zone, kDstOffsetMinutes);
    ddk_set_timezone_dststart(zone, kDstStartDay);
    ddk_set_timezone_dstend(zone, kDstEndDay);
    return nullptr;
}

DDKError* SimCam::setTimeZone(const char*, TimeZoneHandle* zone) {
    const char* name = ddk_get_timezone_name(zone);
    if (name == nullptr || *name == '\0') {
        return error(kInvalidArgument, "a time zone needs a name");
    }
    return error(kNotSupported, "the simulated device keeps its time zone");
}

DDKError* SimCam::systemTime(const char*, int64_t& utcSeconds) const {
    std::lock_guard<std::mutex> lock(mutex_);
    utcSeconds = static_cast<int64_t>(std::time(nullptr)) + clockOffset_;
    return nullptr;
}

DDKError* SimCam::setSystemTime(const char*, int64_t utcSeconds) {
    std::lock_guard<std::mutex> lock(mutex_);
    clockOffset_ = utcSeconds - static_cast<int64_t>(std::time(nullptr));
    return nullptr;
}

DDKError* SimCam::ntpServers(const char*, NetworkAddressCollectionHandle* servers) const {
    std::lock_guard<std::mutex> lock(mutex_);
    return fillAddresses(servers, ntpServers_, "the time servers");
}

DDKError* SimCam::setNtpServers(const char*, NetworkAddressCollectionHandle* servers) {
    std::vector<std::pair<int32_t, std::string>> next;
    if (!readAddresses(servers, next)) {
        return error(kInvalidArgument, "unreadable time servers");
    }
    std::lock_guard<std::mutex> lock(mutex_);
    ntpServers_ = next;
    return nullptr;
}

DDKError* SimCam::synchronizeTime(const char*) {
    std::lock_guard<std::mutex> lock(mutex_);
    if (ntpServers_.empty()) {
        return error(kNotSupported, "no time server set: the clock is set by hand");
    }
    clockOffset_ = 0;
    return nullptr;
}

}  // namespace simcam

// The entry point the host finds with dlsym: creates SimCam objects and
// carries the kit's ABI version.
VANTREL_DDK_PLUGIN(simcam::SimCam, "simcam")
