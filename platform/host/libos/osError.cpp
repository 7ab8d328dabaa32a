#include <libos/osError.h>

namespace
{

thread_local uint32_t lastError = 0;

}  // namespace

uint32_t osGetLastError(void)
{
    return lastError;
}

void osSetLastError(uint32_t error)
{
    lastError = error;
}

int osIsError(void)
{
    return lastError != 0 ? 1 : 0;
}
