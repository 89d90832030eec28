/* The plug-in entry point: how a host finds, checks, creates, starts and
   destroys a plug-in in a shared object, and reaches its extensions.

   A plug-in shared object exports one C function, vantrel_ddk_plugin_entry
   (DDK_PLUGIN_ENTRY_SYMBOL), which a host finds with dlsym. The host calls
   it with its own ABI version; a plug-in built against another major version
   of the kit answers null. Otherwise it answers the plug-in's descriptor,
   whose first field is the plug-in's ABI version: the host checks it (and
   the rest) with ddk_check_plugin_descriptor before it uses anything else.

   In C++ a vendor writes one line at namespace scope:
       VANTREL_DDK_PLUGIN(MyCamera, "my camera")
   and a host reaches an extension with find_extension<IVideoExtension>(). */
#ifndef VANTREL_EXTENSIONS_PLUGIN_ENTRY_H
#define VANTREL_EXTENSIONS_PLUGIN_ENTRY_H

#include <stdint.h>

#include "vantrel/api/errors.h"
#include "vantrel/api/export.h"
#include "vantrel/api/service_provider.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The ABI version a plug-in carries and a host asks for. */
#define DDK_PLUGIN_ABI_VERSION VANTREL_DDK_VERSION_MAJOR
/* The name of the entry function, for dlsym. */
#define DDK_PLUGIN_ENTRY_SYMBOL "vantrel_ddk_plugin_entry"

/* Extension kinds: the argument of the descriptor's `extension` and the bit
   numbers of its `extensionMask`. The values are part of the ABI. */
enum {
    DDK_EXTENSION_ALARM = 0,
    DDK_EXTENSION_DEVICE_INFO = 1,
    DDK_EXTENSION_DEVICE_MANAGEMENT = 2,
    DDK_EXTENSION_IMAGE_SETTINGS = 3,
    DDK_EXTENSION_MEDIA_SESSION = 4,
    DDK_EXTENSION_SCRIPT_CONTROL = 5,
    DDK_EXTENSION_TIME_MANAGEMENT = 6,
    DDK_EXTENSION_VIDEO = 7,
    DDK_EXTENSION_ZOOM = 8,
    DDK_EXTENSION_COUNT = 9
};

/* The plug-in object as the descriptor's functions make and take it. */
typedef struct DDKPlugin DDKPlugin;

typedef struct DDKPluginDescriptor {
    uint32_t abiVersion;    /* DDK_PLUGIN_ABI_VERSION of the kit the plug-in was built with; always first */
    uint32_t size;          /* sizeof(DDKPluginDescriptor) in that kit */
    const char* name;       /* the plug-in's name, for the host's logs */
    uint32_t extensionMask; /* bit k set: the plug-in implements extension kind k */
    /* A new plug-in object; null when it cannot be made. Nothing throws. */
    DDKPlugin* (*create)(void);
    /* Destroys an object made by create (null is ignored). It does not stop it. */
    void (*destroy)(DDKPlugin* plugin);
    /* Starts the object once for all its extensions: as IPlugin::init on one
       part, the table being stored in every part before doInit runs. Null on
       success; otherwise a record the host frees with ddk_free_error. */
    DDKError* (*start)(DDKPlugin* plugin, DDKServiceProvider* provider);
    /* Stops the object once for all its extensions, as IPlugin::shutdown. */
    void (*stop)(DDKPlugin* plugin);
    /* The object's sub-object of extension `kind` (an IXxxExtension*, as
       void*); null for an extension the plug-in lacks or an unknown kind. */
    void* (*extension)(DDKPlugin* plugin, int kind);
} DDKPluginDescriptor;

/* The type of vantrel_ddk_plugin_entry. */
typedef const DDKPluginDescriptor* (*DDKPluginEntry)(uint32_t hostAbiVersion);

/* 0 when this kit can use the descriptor; -1 for null; -2 when its
   abiVersion (read first) differs from this kit's, its size is too small
   for this kit's fields, or a function is missing. */
VANTREL_DDK_API int ddk_check_plugin_descriptor(const DDKPluginDescriptor* descriptor);

#ifdef __cplusplus
}

#include <type_traits>

#include "vantrel/extensions/alarm_extension.h"
#include "vantrel/extensions/device_info_extension.h"
#include "vantrel/extensions/device_management_extension.h"
#include "vantrel/extensions/image_settings_extension.h"
#include "vantrel/extensions/iplugin.h"
#include "vantrel/extensions/media_session_extension.h"
#include "vantrel/extensions/script_control_extension.h"
#include "vantrel/extensions/time_management_extension.h"
#include "vantrel/extensions/video_extension.h"
#include "vantrel/extensions/zoom_extension.h"

namespace vantrel {
namespace ddk {

/* The kind number of each extension interface. */
template <class Extension> struct ExtensionKind;
template <> struct ExtensionKind<IAlarmExtension> { static const int value = DDK_EXTENSION_ALARM; };
template <> struct ExtensionKind<IDeviceInfoExtension> { static const int value = DDK_EXTENSION_DEVICE_INFO; };
template <> struct ExtensionKind<IDeviceManagementExtension> { static const int value = DDK_EXTENSION_DEVICE_MANAGEMENT; };
template <> struct ExtensionKind<IImageSettingsExtension> { static const int value = DDK_EXTENSION_IMAGE_SETTINGS; };
template <> struct ExtensionKind<IMediaSessionExtension> { static const int value = DDK_EXTENSION_MEDIA_SESSION; };
template <> struct ExtensionKind<IScriptControlExtension> { static const int value = DDK_EXTENSION_SCRIPT_CONTROL; };
template <> struct ExtensionKind<ITimeManagementExtension> { static const int value = DDK_EXTENSION_TIME_MANAGEMENT; };
template <> struct ExtensionKind<IVideoExtension> { static const int value = DDK_EXTENSION_VIDEO; };
template <> struct ExtensionKind<IZoomExtension> { static const int value = DDK_EXTENSION_ZOOM; };

/* Start and stop an object made of several IPlugin parts (one per extension,
   the inheritance not being virtual) as one plug-in: doInit and doShutdown
   run once, through parts[0], and every part ends with the same table and
   flags. start stores the table in every other part before doInit runs, so
   the hook may already signal through any part. */
VANTREL_DDK_API DDKError* start_plugin_parts(IPlugin* const* parts, unsigned int count,
                                             DDKServiceProvider* provider);
VANTREL_DDK_API void stop_plugin_parts(IPlugin* const* parts, unsigned int count);

/* Host side: the plug-in's sub-object of `Extension`, or null. */
template <class Extension>
Extension* find_extension(const DDKPluginDescriptor& descriptor, DDKPlugin* plugin) {
    return static_cast<Extension*>(descriptor.extension(plugin, ExtensionKind<Extension>::value));
}

/* Plug-in side: what the entry point answers for a host's ABI version. */
inline const DDKPluginDescriptor* offer_plugin(const DDKPluginDescriptor* descriptor, uint32_t hostAbiVersion) {
    return hostAbiVersion == DDK_PLUGIN_ABI_VERSION ? descriptor : 0;
}

namespace detail {

/* The Extension part of a Plugin, or null when Plugin does not implement it. */
template <class Plugin, class Extension, bool = std::is_base_of<Extension, Plugin>::value>
struct Part {
    static const uint32_t bit = 0;
    static Extension* of(Plugin*) { return 0; }
};
template <class Plugin, class Extension>
struct Part<Plugin, Extension, true> {
    static const uint32_t bit = 1u << ExtensionKind<Extension>::value;
    static Extension* of(Plugin* plugin) { return plugin; }
};

/* A plug-in without extensions has exactly one IPlugin part. */
template <class Plugin, bool HasExtensions>
struct SolePart {
    static IPlugin* of(Plugin*) { return 0; }
};
template <class Plugin>
struct SolePart<Plugin, false> {
    static IPlugin* of(Plugin* plugin) { return plugin; }
};

template <class Plugin>
struct Glue {
    static const uint32_t mask =
        Part<Plugin, IAlarmExtension>::bit | Part<Plugin, IDeviceInfoExtension>::bit |
        Part<Plugin, IDeviceManagementExtension>::bit | Part<Plugin, IImageSettingsExtension>::bit |
        Part<Plugin, IMediaSessionExtension>::bit | Part<Plugin, IScriptControlExtension>::bit |
        Part<Plugin, ITimeManagementExtension>::bit | Part<Plugin, IVideoExtension>::bit |
        Part<Plugin, IZoomExtension>::bit;

    static Plugin* object(DDKPlugin* plugin) { return reinterpret_cast<Plugin*>(plugin); }

    static void* extension(DDKPlugin* plugin, int kind) {
        Plugin* p = object(plugin);
        if (p == 0) return 0;
        switch (kind) {
        case DDK_EXTENSION_ALARM: return Part<Plugin, IAlarmExtension>::of(p);
        case DDK_EXTENSION_DEVICE_INFO: return Part<Plugin, IDeviceInfoExtension>::of(p);
        case DDK_EXTENSION_DEVICE_MANAGEMENT: return Part<Plugin, IDeviceManagementExtension>::of(p);
        case DDK_EXTENSION_IMAGE_SETTINGS: return Part<Plugin, IImageSettingsExtension>::of(p);
        case DDK_EXTENSION_MEDIA_SESSION: return Part<Plugin, IMediaSessionExtension>::of(p);
        case DDK_EXTENSION_SCRIPT_CONTROL: return Part<Plugin, IScriptControlExtension>::of(p);
        case DDK_EXTENSION_TIME_MANAGEMENT: return Part<Plugin, ITimeManagementExtension>::of(p);
        case DDK_EXTENSION_VIDEO: return Part<Plugin, IVideoExtension>::of(p);
        case DDK_EXTENSION_ZOOM: return Part<Plugin, IZoomExtension>::of(p);
        default: return 0;
        }
    }

    /* Every IPlugin part, in kind order; returns their number (at least 1). */
    static unsigned int parts(Plugin* p, IPlugin* (&out)[DDK_EXTENSION_COUNT]) {
        unsigned int count = 0;
        add(Part<Plugin, IAlarmExtension>::of(p), out, count);
        add(Part<Plugin, IDeviceInfoExtension>::of(p), out, count);
        add(Part<Plugin, IDeviceManagementExtension>::of(p), out, count);
        add(Part<Plugin, IImageSettingsExtension>::of(p), out, count);
        add(Part<Plugin, IMediaSessionExtension>::of(p), out, count);
        add(Part<Plugin, IScriptControlExtension>::of(p), out, count);
        add(Part<Plugin, ITimeManagementExtension>::of(p), out, count);
        add(Part<Plugin, IVideoExtension>::of(p), out, count);
        add(Part<Plugin, IZoomExtension>::of(p), out, count);
        add(SolePart<Plugin, (mask != 0)>::of(p), out, count);
        return count;
    }
    static void add(IPlugin* part, IPlugin* (&out)[DDK_EXTENSION_COUNT], unsigned int& count) {
        if (part != 0) out[count++] = part;
    }

    static DDKPlugin* create() {
        try {
            return reinterpret_cast<DDKPlugin*>(new Plugin());
        } catch (...) {
            return 0;
        }
    }
    static void destroy(DDKPlugin* plugin) { delete object(plugin); }
    static DDKError* start(DDKPlugin* plugin, DDKServiceProvider* provider) {
        IPlugin* all[DDK_EXTENSION_COUNT];
        Plugin* p = object(plugin);
        return p == 0 ? 0 : start_plugin_parts(all, parts(p, all), provider);
    }
    static void stop(DDKPlugin* plugin) {
        IPlugin* all[DDK_EXTENSION_COUNT];
        Plugin* p = object(plugin);
        if (p != 0) stop_plugin_parts(all, parts(p, all));
    }
};

} // namespace detail

/* The descriptor of plug-in class `Plugin` (default-constructible, deriving
   publicly from IPlugin or from one or more extension interfaces, each once). */
template <class Plugin>
DDKPluginDescriptor describe_plugin(const char* name) {
    typedef detail::Glue<Plugin> Glue;
    DDKPluginDescriptor descriptor = {
        DDK_PLUGIN_ABI_VERSION, static_cast<uint32_t>(sizeof(DDKPluginDescriptor)), name, Glue::mask,
        &Glue::create, &Glue::destroy, &Glue::start, &Glue::stop, &Glue::extension};
    return descriptor;
}

} // namespace ddk
} // namespace vantrel

/* Defines the plug-in's entry point for class PluginClass, named PluginName. */
#define VANTREL_DDK_PLUGIN(PluginClass, PluginName)                                               \
    extern "C" VANTREL_DDK_API const DDKPluginDescriptor* vantrel_ddk_plugin_entry(               \
        uint32_t hostAbiVersion) {                                                                \
        static const DDKPluginDescriptor descriptor =                                             \
            ::vantrel::ddk::describe_plugin<PluginClass>(PluginName);                             \
        return ::vantrel::ddk::offer_plugin(&descriptor, hostAbiVersion);                         \
    }

#endif

#endif
