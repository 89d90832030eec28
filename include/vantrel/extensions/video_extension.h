/* The video extension: video sources, streams and presets, encoder
   capabilities and analytics profiles. */
#ifndef VANTREL_EXTENSIONS_VIDEO_EXTENSION_H
#define VANTREL_EXTENSIONS_VIDEO_EXTENSION_H

#include "vantrel/api/errors.h"
#include "vantrel/api/handles.h"
#include "vantrel/extensions/iplugin.h"

namespace vantrel {
namespace ddk {

/* Every operation returns null for success or an error record that the host
   releases with ddk_free_error. Containers and texts belong to the host and
   are valid during the call only. */
class VANTREL_DDK_API IVideoExtension : public IPlugin {
public:
    IVideoExtension();
    virtual ~IVideoExtension();

    /* Appends the token of every video source. The default appends "0":
       one source. */
    virtual DDKError* sourceTokens(StringListHandle* tokens) const;
    /* Adds the streams of a video source, one entry per stream token. */
    virtual DDKError* videoStreams(const char* sourceToken, VideoStreamConfigurationsHandle* configurations) const = 0;
    /* Adds the named stream sets (presets) of a video source. */
    virtual DDKError* videoPresets(const char* sourceToken, VideoStreamPresetsHandle* presets) const = 0;
    /* Reconfigures one stream as the host's record says (read it). */
    virtual DDKError* applyVideoStream(const char* sourceToken, VideoStreamConfigurationHandle* configuration) = 0;
    /* Switches a video source to one of its presets. */
    virtual DDKError* applyVideoPreset(const char* sourceToken, const char* presetName) = 0;
    /* Fills the encoder capabilities that match the query's filters (a query
       without filters asks for everything). */
    virtual DDKError* encoderOptions(const char* sourceToken, VideoOptionsQueryHandle* query,
                                     EncoderOptionsHandle* options) const = 0;
    /* Adds the analytics profiles a video source can run. */
    virtual DDKError* analyticsProfiles(const char* sourceToken, VideoAnalyticsProfilesHandle* profiles) const = 0;
    /* Makes one analytics profile the active one of a video source. */
    virtual DDKError* activateAnalyticsProfile(const char* sourceToken, int profileId) = 0;
    /* Fills the default multicast settings of the stream `token`. The default
       leaves the configuration unchanged. */
    virtual DDKError* multicastDefaults(const char* token, VideoStreamConfigurationHandle* configuration) const;
};

} // namespace ddk
} // namespace vantrel

#endif
