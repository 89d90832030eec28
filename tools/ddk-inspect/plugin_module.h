// Loading a plug-in shared object and making plug-in objects from it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <vantrel/ddk.h>

namespace inspect {

// The extension interfaces one plug-in object implements; null where it does
// not. Each pointer is that extension's own IPlugin part.
struct Extensions {
    vantrel::ddk::IAlarmExtension* alarm = nullptr;
    vantrel::ddk::IDeviceInfoExtension* deviceInfo = nullptr;
    vantrel::ddk::IDeviceManagementExtension* deviceManagement = nullptr;
    vantrel::ddk::IImageSettingsExtension* imageSettings = nullptr;
    vantrel::ddk::IMediaSessionExtension* mediaSession = nullptr;
    vantrel::ddk::IScriptControlExtension* scriptControl = nullptr;
    vantrel::ddk::ITimeManagementExtension* timeManagement = nullptr;
    vantrel::ddk::IVideoExtension* video = nullptr;
    vantrel::ddk::IZoomExtension* zoom = nullptr;

    // Names of the implemented interfaces, in the order above.
    std::vector<std::string> names() const;
    // Every IPlugin part, one per implemented extension (each has its own
    // table and flags).
    std::vector<vantrel::ddk::IPlugin*> parts;
};

class PluginModule;

// One plug-in object; destroyed through the module's entry point.
class PluginInstance {
public:
    ~PluginInstance();
    PluginInstance(const PluginInstance&) = delete;
    PluginInstance& operator=(const PluginInstance&) = delete;

    const Extensions& extensions() const { return extensions_; }

    // Starts the object (all its IPlugin parts) with `table`: null, or an
    // error record the caller frees. Exceptions pass.
    DDKError* init(DDKServiceProvider* table);
    // Stops the object (all its parts).
    void shutdown();

private:
    friend class PluginModule;
    PluginInstance(const PluginModule& module, DDKPlugin* object);

    const PluginModule& module_;
    DDKPlugin* object_;
    Extensions extensions_;
};

class PluginModule {
public:
    // Loads the shared object and checks its entry point and ABI version;
    // throws Failure (not loadable, no entry point, incompatible ABI).
    explicit PluginModule(const std::string& path);
    ~PluginModule();
    PluginModule(const PluginModule&) = delete;
    PluginModule& operator=(const PluginModule&) = delete;

    const std::string& path() const { return path_; }
    // The ABI version the plug-in was built against, and its name.
    unsigned abiVersion() const { return descriptor_->abiVersion; }
    std::string name() const;
    // A new plug-in object; throws Failure when the entry point makes none.
    std::unique_ptr<PluginInstance> create() const;

private:
    friend class PluginInstance;
    std::string path_;
    void* handle_ = nullptr;
    const DDKPluginDescriptor* descriptor_ = nullptr;
};

}  // namespace inspect
