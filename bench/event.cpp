// Events: notifying, registering and unregistering.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <numeric>
#include <random>
#include <vector>

#include <sigc++/sigc++.h>
#include <utils/observer/Event.h>
#include <boost/signals2/signal.hpp>

#include "Receivers.h"

namespace bench
{

namespace
{

using Numbers = std::vector<int>;

// ---- Ours and the peers, as classes of one shape ----

class UtilsEvent
{
  public:
    explicit UtilsEvent(std::size_t numReceivers) : m_receivers(numReceivers) {}

    void add(std::size_t index, int priority)
    {
        m_event->registerInterest(m_receivers.getPtr(index), priority);
    }
    void remove(std::size_t index, int priority)
    {
        m_event->unregisterInterest(m_receivers.getPtr(index), priority);
    }
    void notify(void* data) { m_event->notify(data); }
    void destroy() { m_event.reset(); }
    std::int64_t getNumCalls(std::size_t index) const { return m_receivers.getNumCalls(index); }

  protected:
    void enableLock() { m_event->enableLock(); }

  private:
    NotifiedReceivers m_receivers;
    std::unique_ptr<utils::observer::Event> m_event = std::make_unique<utils::observer::Event>();
};

class LockedUtilsEvent : public UtilsEvent
{
  public:
    explicit LockedUtilsEvent(std::size_t numReceivers) : UtilsEvent(numReceivers) { enableLock(); }
};

// Measures how long it waited for its lock, which locks do for whoever asks.
class MeasuredUtilsEvent : public LockedUtilsEvent
{
  public:
    explicit MeasuredUtilsEvent(std::size_t numReceivers) : LockedUtilsEvent(numReceivers)
    {
        generic::timing::IntervalAndDuration::setMeasuring(true);
    }
    ~MeasuredUtilsEvent() { generic::timing::IntervalAndDuration::setMeasuring(false); }

    MeasuredUtilsEvent(const MeasuredUtilsEvent&) = delete;
    MeasuredUtilsEvent& operator=(const MeasuredUtilsEvent&) = delete;
};

// The least that any of them can do: virtual calls along an array that nobody changes meanwhile.
class Loop
{
  public:
    explicit Loop(std::size_t numReceivers) : m_receivers(numReceivers) {}

    void add(std::size_t index, int /*priority*/)
    {
        m_notifiers.push_back(m_receivers.getPtr(index));
    }
    void notify(void* data)
    {
        for (utils::observer::Notifier* const notifier : m_notifiers)
        {
            notifier->notify(data);
        }
    }
    std::int64_t getNumCalls(std::size_t index) const { return m_receivers.getNumCalls(index); }

  private:
    NotifiedReceivers m_receivers;
    std::vector<utils::observer::Notifier*> m_notifiers;
};

// Without priorities: in the order of connection.
template <typename Signal, typename Connection>
class PeerSignal
{
  public:
    explicit PeerSignal(std::size_t numReceivers)
        : m_receivers(numReceivers), m_connections(numReceivers)
    {
    }

    void add(std::size_t index, int /*priority*/)
    {
        m_connections[index] = m_signal->connect([receiver = &m_receivers[index]](void* data)
                                                 { receiver->receive(data); });
    }
    void remove(std::size_t index, int /*priority*/) { m_connections[index].disconnect(); }
    void notify(void* data) { (*m_signal)(data); }
    void destroy() { m_signal.reset(); }
    std::int64_t getNumCalls(std::size_t index) const { return m_receivers[index].getNumCalls(); }

  protected:
    std::vector<Receiver> m_receivers;
    std::vector<Connection> m_connections;
    std::unique_ptr<Signal> m_signal = std::make_unique<Signal>();
};

using SigcSignal = PeerSignal<sigc::signal<void, void*>, sigc::connection>;

using BoostSignal = PeerSignal<boost::signals2::signal<void(void*)>, boost::signals2::connection>;

// With priorities.
class BoostGroups : public BoostSignal
{
  public:
    using BoostSignal::BoostSignal;

    void add(std::size_t index, int priority)
    {
        m_connections[index] = m_signal->connect(
            priority, [receiver = &m_receivers[index]](void* data) { receiver->receive(data); });
    }
};

// ---- Measurement ----

template <typename Event>
void notify(benchmark::State& state)
{
    const auto numReceivers = static_cast<std::size_t>(state.range(0));
    Event event(numReceivers);
    for (std::size_t i = 0; i < numReceivers; ++i)
    {
        event.add(i, 0);
    }
    int data = 0;
    for (auto _ : state)
    {
        event.notify(&data);
    }
    for (std::size_t i = 0; i < numReceivers; ++i)
    {
        if (event.getNumCalls(i) != state.iterations())
        {
            state.SkipWithError("a receiver was not called once a notification");
        }
    }
}

// In which order entries are removed, and the priorities of a random order.
Numbers inOrder(std::size_t count)
{
    Numbers numbers(count);
    std::iota(numbers.begin(), numbers.end(), 0);
    return numbers;
}

Numbers inReverse(std::size_t count)
{
    Numbers numbers = inOrder(count);
    std::reverse(numbers.begin(), numbers.end());
    return numbers;
}

Numbers atRandom(std::size_t count)
{
    Numbers numbers = inOrder(count);
    std::shuffle(numbers.begin(), numbers.end(), std::mt19937(20260101));
    return numbers;
}

Numbers allEqual(std::size_t count)
{
    return Numbers(count);
}

using MakeNumbers = Numbers (*)(std::size_t);

// Registers all, then unregisters all and destroys what is left; one of the two is timed.
template <typename Event, bool IS_REMOVAL_TIMED>
void fillAndEmpty(benchmark::State& state, MakeNumbers makePriorities, MakeNumbers makeRemovals)
{
    const auto count = static_cast<std::size_t>(state.range(0));
    const Numbers priorities = makePriorities(count);
    const Numbers removals = makeRemovals(count);
    for (auto _ : state)
    {
        state.PauseTiming();
        Event event(count);
        if (!IS_REMOVAL_TIMED)
        {
            state.ResumeTiming();
        }
        for (std::size_t i = 0; i < count; ++i)
        {
            event.add(i, priorities[i]);
        }
        if (IS_REMOVAL_TIMED)
        {
            state.ResumeTiming();
        }
        else
        {
            state.PauseTiming();
        }
        for (const int number : removals)
        {
            const auto index = static_cast<std::size_t>(number);
            event.remove(index, priorities[index]);
        }
        event.destroy();
        if (IS_REMOVAL_TIMED)
        {
            state.PauseTiming();
        }
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

template <typename Event>
void registerNotify(const char* name)
{
    auto* const benchmark = benchmark::RegisterBenchmark(name, notify<Event>);
    for (const int numReceivers : {1, 10, 100, 10'000})
    {
        benchmark->Arg(numReceivers);
    }
    for (int numReceivers = 128; numReceivers <= 16384; numReceivers *= 2)
    {
        benchmark->Arg(numReceivers);
    }
}

template <typename Event>
void registerFillAndEmpty(const std::string& name, MakeNumbers makePriorities)
{
    constexpr std::int64_t COUNT = 10'000;
    const auto add = [&](const std::string& operation, auto function, MakeNumbers makeRemovals)
    {
        benchmark::RegisterBenchmark((operation + "/" + name).c_str(), function, makePriorities,
                                     makeRemovals)
            ->Arg(COUNT);
    };
    add("register", fillAndEmpty<Event, false>, inOrder);
    add("unregister_in_order", fillAndEmpty<Event, true>, inOrder);
    add("unregister_in_reverse", fillAndEmpty<Event, true>, inReverse);
    add("unregister_at_random", fillAndEmpty<Event, true>, atRandom);
}

[[maybe_unused]] const bool isRegistered = []
{
    registerNotify<UtilsEvent>("notify/utils_Event");
    registerNotify<SigcSignal>("notify/sigc");
    registerNotify<LockedUtilsEvent>("notify/utils_Event_locked");
    registerNotify<BoostSignal>("notify/boost");
    registerNotify<MeasuredUtilsEvent>("notify/utils_Event_measured");
    registerNotify<Loop>("notify/loop");

    registerFillAndEmpty<UtilsEvent>("utils_Event", allEqual);
    registerFillAndEmpty<SigcSignal>("sigc", allEqual);
    registerFillAndEmpty<LockedUtilsEvent>("utils_Event_locked", allEqual);
    registerFillAndEmpty<BoostSignal>("boost", allEqual);
    registerFillAndEmpty<LockedUtilsEvent>("utils_Event_locked_priorities", atRandom);
    registerFillAndEmpty<BoostGroups>("boost_groups", atRandom);
    return true;
}();

}  // namespace

}  // namespace bench
