#ifndef INSTRUMENT_CORE_ERRORQUEUE_H
#define INSTRUMENT_CORE_ERRORQUEUE_H

#include <cstddef>
#include <deque>

#include "core/ScpiError.h"

namespace instrument
{

/// The errors of one client, the oldest first.
class ErrorQueue
{
  public:
    /// Appends an error. When the queue is full, its last entry becomes QUEUE_OVERFLOW instead.
    void add(ScpiError error);

    /// Takes the oldest error out; NO_ERROR when there is none.
    ScpiError next();

    std::size_t size() const { return m_errors.size(); }
    bool isEmpty() const { return m_errors.empty(); }
    void clear() { m_errors.clear(); }

  private:
    std::deque<ScpiError> m_errors;
};

}  // namespace instrument

#endif
