#include "core/heap.h"

#include <malloc.h>

namespace orvanta {

void giveLargeBlocksBack()
{
#ifdef __GLIBC__
    constexpr int kLarge = 256 * 1024; // bytes; smaller than any picture of a clip
    mallopt(M_MMAP_THRESHOLD, kLarge);
#endif
}

void giveFreeMemoryBack()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

} // namespace orvanta
