#pragma once

#include <QtGlobal>

namespace wire {

/// CRC-32 with zlib's polynomial, of `size` bytes that follow those of which `crc` is the checksum;
/// it starts with 0.
quint32 crc32(quint32 crc, const char *data, int size);

} // namespace wire
