#include "platform/process/memory.h"

#include <malloc.h>

namespace orvanta {

void giveLargeBlocksBack()
{
    constexpr int kLarge = 256 * 1024; // bytes; smaller than any picture of a clip
    mallopt(M_MMAP_THRESHOLD, kLarge);
}

void giveFreeMemoryBack()
{
    malloc_trim(0);
}

} // namespace orvanta
