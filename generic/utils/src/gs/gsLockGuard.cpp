#include <utils/gsLockGuard.h>

Gs_LockGuard::Gs_LockGuard(COsMutex& mutex) : Lock(mutex) {}

Gs_LockGuard::~Gs_LockGuard() = default;
