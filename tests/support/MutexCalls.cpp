#include "support/MutexCalls.h"

#include <dlfcn.h>
#include <unistd.h>

#include <atomic>
#include <string_view>

#include <libstd/IntervalAndDuration.h>

namespace
{

thread_local test::MutexCalls* theCalls = nullptr;
std::atomic<bool> isDestructionAnnounced{false};

template <typename Function>
Function* next(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

void record(const char* call)
{
    if (theCalls != nullptr)
    {
        theCalls->add(call);
    }
}

}  // namespace

namespace test
{

MutexCalls::MutexCalls()
{
    theCalls = this;
}

MutexCalls::~MutexCalls()
{
    theCalls = nullptr;
}

void MutexCalls::announceDestruction()
{
    isDestructionAnnounced = true;
}

}  // namespace test

extern "C" {
int osMutexLock(osMutexHandle_t mutex, int waitMs)
{
    if (theCalls != nullptr)
    {
        theCalls->add("lock " + std::to_string(waitMs), mutex);
    }
    return next<int(osMutexHandle_t, int)>("osMutexLock")(mutex, waitMs);
}

int osMutexUnlock(osMutexHandle_t mutex)
{
    if (theCalls != nullptr)
    {
        theCalls->add("unlock", mutex);
    }
    return next<int(osMutexHandle_t)>("osMutexUnlock")(mutex);
}

void osMutexDestroy(osMutexHandle_t mutex)
{
    if (isDestructionAnnounced)
    {
        constexpr std::string_view text = "mutex destroyed\n";
        [[maybe_unused]] const auto written = write(STDERR_FILENO, text.data(), text.size());
    }
    next<void(osMutexHandle_t)>("osMutexDestroy")(mutex);
}
}

namespace generic::timing
{

void IntervalAndDuration::begin()
{
    record("begin");
}

void IntervalAndDuration::end()
{
    record("end");
}

void IntervalAndDuration::output() const
{
    record("output");
}

}  // namespace generic::timing
