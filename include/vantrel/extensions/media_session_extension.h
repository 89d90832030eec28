/* The media session extension: sessions, stream endpoints, audio, and the
   public key with which the host protects what it sends the plug-in. */
#ifndef VANTREL_EXTENSIONS_MEDIA_SESSION_EXTENSION_H
#define VANTREL_EXTENSIONS_MEDIA_SESSION_EXTENSION_H

#include "vantrel/api/errors.h"
#include "vantrel/api/handles.h"
#include "vantrel/extensions/iplugin.h"

namespace vantrel {
namespace ddk {

/* Every operation returns null for success or an error record that the host
   releases with ddk_free_error. Containers and texts belong to the host and
   are valid during the call only. */
class VANTREL_DDK_API IMediaSessionExtension : public IPlugin {
public:
    IMediaSessionExtension();
    virtual ~IMediaSessionExtension();

    /* Appends every session the device serves now. */
    virtual DDKError* mediaSessions(MediaSessionCollectionHandle* sessions) const = 0;
    /* Starts streaming `streamToken` and appends the started session. */
    virtual DDKError* startMediaSession(const char* streamToken, int transmissionMode, const char* destinationIp,
                                        unsigned short destinationPort, MediaSessionCollectionHandle* sessions) = 0;
    virtual DDKError* stopMediaSession(const char* sessionId) = 0;
    /* Keeps a session alive for another `timeout` (the session's unit). */
    virtual DDKError* renewMediaSession(const char* sessionId, unsigned short timeout) = 0;
    virtual DDKError* pauseMediaSession(const char* sessionId) = 0;
    virtual DDKError* resumeMediaSession(const char* sessionId) = 0;
    /* Appends the endpoints (URL, media type, modes) through which a stream is reached. */
    virtual DDKError* streamConnectionInfos(const char* streamToken, StreamConnectionInfosHandle* infos) const = 0;
    /* Asks the encoder of a stream for an intra frame now. */
    virtual DDKError* requestKeyFrame(const char* streamToken) = 0;
    /* Sets the URL of a still image of a video source. */
    virtual DDKError* snapshotUri(const char* sourceToken, StringHandle* uri) const = 0;
    /* Appends the multicast groups a stream is sent to. */
    virtual DDKError* multicastAddresses(const char* streamToken, NetworkAddressCollectionHandle* addresses) const = 0;
    /* Appends the token of every audio input. */
    virtual DDKError* audioSourceTokens(StringListHandle* tokens) const = 0;
    /* Adds the audio streams an audio input delivers, by name. */
    virtual DDKError* audioStreams(const char* sourceToken, AudioStreamConfigurationsHandle* configurations) const = 0;
    /* Fills the host's record describing an audio input. */
    virtual DDKError* audioSource(const char* sourceToken, AudioSourceHandle* source) const = 0;

    /* Sets `key` to the kit's RSA public key (PEM, 137 characters) and
       returns null. Override to hand out the plug-in's own key. */
    virtual DDKError* publicRSA(StringHandle* key);

    /* A session key encrypted with the public key, base64 text. */
    virtual DDKError* setSessionKey(const char* sessionId, const char* encryptedKey) = 0;
    /* Switch an audio input on or off. */
    virtual DDKError* enableAudio(const char* sourceToken) = 0;
    virtual DDKError* disableAudio(const char* sourceToken) = 0;
    /* Appends the token of every audio output (loudspeaker, line out). */
    virtual DDKError* audioOutputTokens(StringListHandle* tokens) const = 0;
    /* Sets the URL to which the host sends audio for an output. */
    virtual DDKError* audioBackchannelUri(const char* outputToken, StringHandle* uri) const = 0;
    /* Output volume, 0 to 100. */
    virtual DDKError* setAudioOutputLevel(const char* outputToken, unsigned int level) = 0;
};

} // namespace ddk
} // namespace vantrel

#endif
