#include "wire/checksum.h"

#include <libdeflate.h>

namespace wire {

quint32 crc32(quint32 crc, const char *data, int size)
{
    // Without data libdeflate begins anew instead of going on.
    return size > 0 ? libdeflate_crc32(crc, data, static_cast<size_t>(size)) : crc;
}

} // namespace wire
