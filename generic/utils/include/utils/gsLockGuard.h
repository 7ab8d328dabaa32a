#ifndef GENERIC_UTILS_GSLOCKGUARD_H
#define GENERIC_UTILS_GSLOCKGUARD_H

#include <utils/export.h>
#include <utils/lock/Lock.h>

/// Holds a platform mutex for the time of a scope: utils::lock::Lock under its older name.
class GENERIC_UTILS_EXPORT Gs_LockGuard : public utils::lock::Lock
{
  public:
    /// See utils::lock::Lock.
    explicit Gs_LockGuard(COsMutex& mutex);
    ~Gs_LockGuard() override;

    Gs_LockGuard(const Gs_LockGuard&) = delete;
    Gs_LockGuard& operator=(const Gs_LockGuard&) = delete;
};

#endif
