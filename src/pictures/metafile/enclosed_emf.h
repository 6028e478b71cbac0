#pragma once
// The enhanced metafile that makers of Windows metafiles put into comments beside the plain records, cut
// into chunks of at most 64 KiB.

#include <optional>
#include <vector>

#include "pictures/picture_data.h"

namespace lumidex::metafile {

// The chunks put together; nothing when one is missing or says something else than the others.
std::optional<std::vector<std::uint8_t>> EnclosedEmf(Bytes wmfRecords);

}  // namespace lumidex::metafile
