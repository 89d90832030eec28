#include "vantrel/model/audio_stream_configuration.h"

namespace vantrel {

// Out of line so the vtable and type information live in the library.
AudioStreamConfiguration::~AudioStreamConfiguration() = default;

}  // namespace vantrel
