/* Opaque handle types of the C boundary.
   A pointer to a handle is the address of the library record behind it;
   the only test ever made on one is the test for null. */
#ifndef VANTREL_API_HANDLES_H
#define VANTREL_API_HANDLES_H

#ifdef __cplusplus
extern "C" {
#endif

typedef struct StringHandle StringHandle;                         /* std::string */
typedef struct StringListHandle StringListHandle;                 /* std::vector<std::string> */
typedef struct VideoStreamConfigurationHandle VideoStreamConfigurationHandle;
typedef struct VideoStreamConfigurationsHandle VideoStreamConfigurationsHandle;
typedef struct VideoStreamPresetsHandle VideoStreamPresetsHandle;
typedef struct VideoAnalyticsProfilesHandle VideoAnalyticsProfilesHandle;
typedef struct EncoderOptionsHandle EncoderOptionsHandle;
typedef struct VideoOptionsQueryHandle VideoOptionsQueryHandle;
typedef struct AudioStreamConfigurationHandle AudioStreamConfigurationHandle;
typedef struct AudioStreamConfigurationsHandle AudioStreamConfigurationsHandle;
typedef struct AudioSourceHandle AudioSourceHandle;
typedef struct MediaSessionHandle MediaSessionHandle;
typedef struct MediaSessionCollectionHandle MediaSessionCollectionHandle;
typedef struct StreamConnectionInfoHandle StreamConnectionInfoHandle;
typedef struct StreamConnectionInfosHandle StreamConnectionInfosHandle;
typedef struct NetworkAddressHandle NetworkAddressHandle;
typedef struct NetworkAddressCollectionHandle NetworkAddressCollectionHandle;
typedef struct MotionDetectionRegionHandle MotionDetectionRegionHandle;
typedef struct MotionDetectionRegionListHandle MotionDetectionRegionListHandle;
typedef struct PresetVectorHandle PresetVectorHandle;
typedef struct TourVectorHandle TourVectorHandle;
typedef struct TimeZoneHandle TimeZoneHandle;

#ifdef __cplusplus
}
#endif

#endif
