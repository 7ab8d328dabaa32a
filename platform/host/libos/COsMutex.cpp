#include <libos/COsMutex.h>

COsMutex::COsMutex() : m_handle(osMutexCreate()) {}

COsMutex::~COsMutex()
{
    osMutexDestroy(m_handle);
}
