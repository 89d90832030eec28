// Handle conversions of the media session descriptions.
#pragma once

#include <vector>

#include "barrier.h"
#include "vantrel/api/handles.h"
#include "vantrel/internal/stream_connection_info.h"
#include "vantrel/model/media_session.h"
#include "vantrel/model/network_address.h"

namespace vantrel::ddk::internal {

VANTREL_DDK_HANDLE(MediaSession, MediaSessionHandle)
VANTREL_DDK_HANDLE(std::vector<MediaSession>, MediaSessionCollectionHandle)
VANTREL_DDK_HANDLE(StreamConnectionInfo, StreamConnectionInfoHandle)
VANTREL_DDK_HANDLE(std::vector<StreamConnectionInfo>, StreamConnectionInfosHandle)
VANTREL_DDK_HANDLE(NetworkAddress, NetworkAddressHandle)
VANTREL_DDK_HANDLE(std::vector<NetworkAddress>, NetworkAddressCollectionHandle)

}  // namespace vantrel::ddk::internal
