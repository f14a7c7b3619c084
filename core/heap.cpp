#include "core/heap.h"

#include <malloc.h>

namespace orvanta {

void giveFreeMemoryBack()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

} // namespace orvanta
