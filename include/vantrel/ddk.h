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
#include "vantrel/api/motion_regions.h"
#include "vantrel/api/presets_tours.h"
#include "vantrel/api/time_zone.h"

#ifdef __cplusplus
#include "vantrel/model/invalid_handle_exception.h"
#include "vantrel/extensions/iplugin.h"
#include "vantrel/model/motion_detection_region.h"
#include "vantrel/model/time_zone.h"
#endif

#endif
