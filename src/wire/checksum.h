#pragma once

#include <QtGlobal>

namespace wire {

/// CRC-32 as zlib computes it, of `size` bytes that follow those of which `crc` is the checksum; it
/// starts with 0. Where the processor can multiply without carries it takes a tenth of zlib's time,
/// which is most of what a frame costs.
quint32 crc32(quint32 crc, const char *data, int size);

} // namespace wire
