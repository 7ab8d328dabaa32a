#ifndef BENCH_RECEIVERS_H
#define BENCH_RECEIVERS_H

#include <cstddef>
#include <cstdint>
#include <memory>

#include <utils/observer/Notifier.h>

namespace bench
{

/// Whom events call: an object that notes that it was called, and with what.
class Receiver
{
  public:
    void receive(void* data)
    {
        m_data = data;
        ++m_numCalls;
    }

    std::int64_t getNumCalls() const { return m_numCalls; }

  private:
    void* m_data = nullptr;
    std::int64_t m_numCalls = 0;
};

/// Receivers behind the interface of notifiers. Their class is known only elsewhere, as that of
/// other people's notifiers: else the compiler guesses whom a notification calls.
class NotifiedReceivers
{
  public:
    explicit NotifiedReceivers(std::size_t count);
    ~NotifiedReceivers();

    NotifiedReceivers(const NotifiedReceivers&) = delete;
    NotifiedReceivers& operator=(const NotifiedReceivers&) = delete;

    utils::observer::Notifier* getPtr(std::size_t index);
    std::int64_t getNumCalls(std::size_t index) const;

  private:
    struct Data;

    std::unique_ptr<Data> m_data;
};

}  // namespace bench

#endif
