#include "core/error_boundary.h"

namespace orvanta {

void logSwallowed(const RuntimeError& error, const char* where)
{
    qCInfo(logErrors, "%s: error %d, %s", where, static_cast<int>(error.number()), error.what());
}

} // namespace orvanta
