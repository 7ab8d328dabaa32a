#ifndef INSTRUMENT_IOEXECUTOR_H
#define INSTRUMENT_IOEXECUTOR_H

#include <functional>
#include <utility>

#include <boost/asio/io_context.hpp>
#include <boost/asio/post.hpp>

#include "core/Executor.h"

namespace instrument
{

/// The event loop as the instrument's thread.
class IoExecutor : public Executor
{
  public:
    /// @param loop not owned
    explicit IoExecutor(boost::asio::io_context& loop) : m_loop(loop) {}

    void post(std::function<void()> work) override { boost::asio::post(m_loop, std::move(work)); }

  private:
    boost::asio::io_context& m_loop;
};

}  // namespace instrument

#endif
