#include "plugin_module.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "exit_codes.h"

namespace inspect {

using namespace vantrel::ddk;

namespace {

// Tells "no such file" and "not a shared object" apart before dlopen, whose
// own texts vary between C libraries.
void checkFile(const std::string& path) {
    const int fd = ::open(path.c_str(), O_RDONLY);
    if (fd < 0) {
        throw Failure(kExitNotLoadable, "cannot open " + path + ": " + std::strerror(errno));
    }
    unsigned char magic[4] = {0, 0, 0, 0};
    const ssize_t got = ::read(fd, magic, sizeof magic);
    ::close(fd);
    if (got != 4 || std::memcmp(magic, "\x7f" "ELF", 4) != 0) {
        throw Failure(kExitNotLoadable, path + " is not a shared object (no ELF header)");
    }
}

template <class Extension>
void take(const DDKPluginDescriptor& descriptor, DDKPlugin* object, Extension*& slot, Extensions& x) {
    if ((descriptor.extensionMask & (1u << ExtensionKind<Extension>::value)) == 0) {
        return;
    }
    slot = find_extension<Extension>(descriptor, object);
    if (slot != nullptr) {
        x.parts.push_back(slot);
    }
}

}  // namespace

std::vector<std::string> Extensions::names() const {
    std::vector<std::string> out;
    if (alarm) out.push_back("IAlarmExtension");
    if (deviceInfo) out.push_back("IDeviceInfoExtension");
    if (deviceManagement) out.push_back("IDeviceManagementExtension");
    if (imageSettings) out.push_back("IImageSettingsExtension");
    if (mediaSession) out.push_back("IMediaSessionExtension");
    if (scriptControl) out.push_back("IScriptControlExtension");
    if (timeManagement) out.push_back("ITimeManagementExtension");
    if (video) out.push_back("IVideoExtension");
    if (zoom) out.push_back("IZoomExtension");
    return out;
}

PluginModule::PluginModule(const std::string& path) : path_(path) {
    checkFile(path);
    // A path without a slash would be searched for in the library path.
    const std::string where = path.find('/') == std::string::npos ? "./" + path : path;
    handle_ = dlopen(where.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (handle_ == nullptr) {
        const char* why = dlerror();
        throw Failure(kExitNotLoadable, "cannot load " + path + ": " + (why != nullptr ? why : "unknown reason"));
    }
    auto entry = reinterpret_cast<DDKPluginEntry>(dlsym(handle_, DDK_PLUGIN_ENTRY_SYMBOL));
    if (entry == nullptr) {
        dlclose(handle_);
        throw Failure(kExitNoEntryPoint, path + " has no plug-in entry point (" DDK_PLUGIN_ENTRY_SYMBOL ")");
    }
    descriptor_ = entry(DDK_PLUGIN_ABI_VERSION);
    if (descriptor_ == nullptr) {
        dlclose(handle_);
        throw Failure(kExitAbiMismatch, path + " was built against an incompatible kit: it refuses ABI version " +
                                            std::to_string(DDK_PLUGIN_ABI_VERSION));
    }
    if (descriptor_->abiVersion != DDK_PLUGIN_ABI_VERSION) {
        const std::string theirs = std::to_string(descriptor_->abiVersion);
        dlclose(handle_);
        throw Failure(kExitAbiMismatch, path + " was built against ABI version " + theirs +
                                            ", this host uses " + std::to_string(DDK_PLUGIN_ABI_VERSION));
    }
    if (ddk_check_plugin_descriptor(descriptor_) != 0) {
        dlclose(handle_);
        throw Failure(kExitAbiMismatch, path + " has an incomplete plug-in descriptor for ABI version " +
                                            std::to_string(DDK_PLUGIN_ABI_VERSION));
    }
}

PluginModule::~PluginModule() {
    if (handle_ != nullptr) {
        dlclose(handle_);
    }
}

std::string PluginModule::name() const { return descriptor_->name != nullptr ? descriptor_->name : ""; }

std::unique_ptr<PluginInstance> PluginModule::create() const {
    DDKPlugin* object = descriptor_->create();
    if (object == nullptr) {
        throw Failure(kExitCreateFailed, path_ + ": the entry point made no plug-in object");
    }
    return std::unique_ptr<PluginInstance>(new PluginInstance(*this, object));
}

PluginInstance::PluginInstance(const PluginModule& module, DDKPlugin* object) : module_(module), object_(object) {
    const DDKPluginDescriptor& d = *module.descriptor_;
    Extensions& x = extensions_;
    take(d, object, x.alarm, x);
    take(d, object, x.deviceInfo, x);
    take(d, object, x.deviceManagement, x);
    take(d, object, x.imageSettings, x);
    take(d, object, x.mediaSession, x);
    take(d, object, x.scriptControl, x);
    take(d, object, x.timeManagement, x);
    take(d, object, x.video, x);
    take(d, object, x.zoom, x);
}

PluginInstance::~PluginInstance() { module_.descriptor_->destroy(object_); }

DDKError* PluginInstance::init(DDKServiceProvider* table) { return module_.descriptor_->start(object_, table); }

void PluginInstance::shutdown() { module_.descriptor_->stop(object_); }

}  // namespace inspect
