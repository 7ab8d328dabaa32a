#ifndef INSTRUMENT_CORE_EXECUTOR_H
#define INSTRUMENT_CORE_EXECUTOR_H

#include <functional>

namespace instrument
{

/// The one thread that the instrument, its clients and their answers belong to.
class Executor
{
  public:
    virtual ~Executor() = default;

    /// Has work done on that thread, later. May be called by any thread.
    virtual void post(std::function<void()> work) = 0;
};

}  // namespace instrument

#endif
