/* vantrel DDK: everything a camera plug-in or a host uses.
   In C this declares the flat C API; in C++ also the classes and records. */
#ifndef VANTREL_DDK_H
#define VANTREL_DDK_H

#include "vantrel/api/export.h"
#include "vantrel/api/handles.h"
#include "vantrel/api/errors.h"
#include "vantrel/api/service_provider.h"
#include "vantrel/api/strings.h"
#include "vantrel/api/parameters.h"
#include "vantrel/api/media_sessions.h"
#include "vantrel/api/stream_connections.h"
#include "vantrel/api/network_addresses.h"
#include "vantrel/api/encoding_type.h"
#include "vantrel/api/video_configuration.h"
#include "vantrel/api/video_collections.h"
#include "vantrel/api/encoder_options.h"
#include "vantrel/api/analytics_profiles.h"
#include "vantrel/api/audio.h"
#include "vantrel/api/signals.h"
#include "vantrel/api/motion_regions.h"
#include "vantrel/api/presets_tours.h"
#include "vantrel/api/time_zone.h"
#include "vantrel/extensions/plugin_entry.h"

#ifdef __cplusplus
#include "vantrel/model/invalid_handle_exception.h"
#include "vantrel/extensions/iplugin.h"
#include "vantrel/model/media_session.h"
#include "vantrel/model/network_address.h"
#include "vantrel/internal/stream_connection_info.h"
#include "vantrel/internal/video_stream_configuration.h"
#include "vantrel/internal/resolution.h"
#include "vantrel/internal/encoder_options.h"
#include "vantrel/internal/video_options_query.h"
#include "vantrel/internal/profile_summary.h"
#include "vantrel/model/audio_stream_configuration.h"
#include "vantrel/model/audio_source.h"
#include "vantrel/model/events.h"
#include "vantrel/model/motion_detection_region.h"
#include "vantrel/model/time_zone.h"
#include "vantrel/extensions/alarm_extension.h"
#include "vantrel/extensions/device_info_extension.h"
#include "vantrel/extensions/device_management_extension.h"
#include "vantrel/extensions/image_settings_extension.h"
#include "vantrel/extensions/media_session_extension.h"
#include "vantrel/extensions/script_control_extension.h"
#include "vantrel/extensions/time_management_extension.h"
#include "vantrel/extensions/video_extension.h"
#include "vantrel/extensions/zoom_extension.h"
#endif

#endif
