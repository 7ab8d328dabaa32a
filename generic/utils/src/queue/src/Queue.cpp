#include <utils/queue/Queue.h>

#include <algorithm>
#include <cstdint>
#include <ostream>

#include <utils/flag/Trace.h>
#include <utils/queue/Flags.h>
#include <utils/singleton/NeverDestroyed.h>

#include "internal/LastWords.h"
#include "internal/NamedRegistry.h"
#include "internal/Report.h"
#include "internal/TextOutput.h"
#include "queue/src/ForwardingTargets.h"

namespace utils::singleton
{
template class SingletonT<std::map<std::string, queue::Queue*>>;
}

namespace utils::queue
{

using error::Error;

// Never destroyed, like the error names of utils::error::Error.
const std::string& Queue::WRITE_ERROR = *new std::string("QueueWriteError");

namespace
{

NamedRegistry<Queue>& registry()
{
    static singleton::NeverDestroyed<NamedRegistry<Queue>> theRegistry("Queue", "queues");
    return theRegistry.get();
}

// Looks at each queue once: how full it is changes under the hands of others.
Queue* findLeastUtilized(const std::vector<Queue*>& queues)
{
    Queue* best = nullptr;
    unsigned int bestSize = 0;
    for (Queue* const candidate : queues)
    {
        const unsigned int size = candidate->size();
        if (best == nullptr || size < bestSize)
        {
            best = candidate;
            bestSize = size;
        }
        if (bestSize == 0)
        {
            break;
        }
    }
    return best;
}

std::string toHex(Queue::QueueSelectionAlgorithm algorithm)
{
    return toText(std::hex, reinterpret_cast<std::uintptr_t>(algorithm));
}

}  // namespace

Queue::Queue(const std::string& name, unsigned long maxMacros)
    : m_name(name),
      m_maxMacros(maxMacros),
      m_queueSelectionAlgorithm(&Queue::selectLeastUtilizedQueue),
      m_targets(std::make_unique<ForwardingTargets>())
{
    registry().requireUnique(GENERIC_UTILS_HERE, m_name);
    GENERIC_UTILS_TRACE_STEP(
        1, "Creating queue '" << m_name << "' - max. macros = " << m_maxMacros << ".");
    m_osQueue = osQueueCreate(static_cast<std::uint32_t>(m_maxMacros));
    try
    {
        registry().add(GENERIC_UTILS_HERE, m_name, this);
    }
    catch (...)
    {
        destroyOsQueue();
        throw;
    }
}

Queue::~Queue()
{
    GENERIC_UTILS_LAST_WORDS(GENERIC_UTILS_TRACE_STEP(1, "Destroying queue '" << m_name << "'."));
    cleanUp();
}

void Queue::cleanUp()
{
    command::Macro* macroPtr = nullptr;
    while (readRemaining(macroPtr))
    {
        if (macroPtr->isAutoDelete())
        {
            delete macroPtr;
        }
    }
    destroyOsQueue();
    registry().remove(m_name);
}

// As read() without waiting; what there is no memory to trace is read all the same.
bool Queue::readRemaining(command::Macro*& macroPtr)
{
    macroPtr = nullptr;
    try
    {
        return read(macroPtr, 0);
    }
    catch (const std::bad_alloc&)
    {
        return macroPtr != nullptr || take(macroPtr, 0);
    }
}

void Queue::destroyOsQueue()
{
    osQueueHandle_t const osQueue = m_osQueue.exchange(nullptr);
    if (osQueue != nullptr)
    {
        osQueueDestroy(osQueue);
    }
}

bool Queue::write(const command::Macro* macroPtr, int waitInMs)
{
    if (macroPtr == nullptr)
    {
        error::reportFatal(GENERIC_UTILS_HERE, Error::NULL_PTR, Error::ERROR,
                           "Null pointer (macroPtr) passed to Queue::write for queue '", m_name,
                           "'.");
    }
    GENERIC_UTILS_TRACE_STEP(
        1, "Writing macro '" << macroPtr->getName() << "' to queue '" << m_name << "'.");

    // Once the macro is in a queue it belongs to its reader: on success nothing of it is touched
    // again, nor of this queue, which the reader may destroy.
    Queue* target = nullptr;
    if (m_targets->isEmpty() || !selectTarget(macroPtr, target))
    {
        if (store(macroPtr, waitInMs))
        {
            return true;
        }
    }
    else if (target == nullptr)
    {
        error::report(GENERIC_UTILS_HERE, Error::NULL_PTR, Error::ERROR,
                      "No forwarding queue selected to write macro '", macroPtr->getName(),
                      "' to queue '", m_name, "'.");
        return false;
    }
    else
    {
        GENERIC_UTILS_TRACE_STEP(1, "Forwarding macro '"
                                        << macroPtr->getName() << "' written to queue '" << m_name
                                        << "' to queue '" << target->getName() << "'.");
        if (target->write(macroPtr, waitInMs))
        {
            return true;
        }
    }

    error::report(GENERIC_UTILS_HERE, WRITE_ERROR, Error::ERROR, "Could not write macro '",
                  macroPtr->getName(), "' to queue '", m_name, "'.");
    return false;
}

// Puts a macro into this queue itself; reports nothing.
bool Queue::store(const command::Macro* macroPtr, int waitInMs)
{
    void* const item = const_cast<command::Macro*>(macroPtr);
    osQueueHandle_t const osQueue = getOsQueue();
    return osQueue != nullptr && osQueueWrite(osQueue, item, waitInMs) != 0;
}

// Selects the queue to forward to (null: none will do). False when this queue does not forward.
bool Queue::selectTarget(const command::Macro* macroPtr, Queue*& target) const
{
    using List = ForwardingTargets::List;

    const QueueSelectionAlgorithm algorithm = m_queueSelectionAlgorithm;
    if (algorithm == &Queue::selectLeastUtilizedQueue)
    {
        // The same without copying the list.
        return m_targets->read(
            [&](const List* queues)
            {
                target = queues == nullptr ? nullptr : findLeastUtilized(*queues);
                return queues != nullptr;
            });
    }
    List queues =
        m_targets->read([](const List* list) { return list == nullptr ? List() : *list; });
    if (queues.empty())
    {
        return false;
    }
    target = algorithm == nullptr ? nullptr : algorithm(macroPtr, std::move(queues));
    return true;
}

bool Queue::read(command::Macro*& macroPtr, int waitInMs)
{
    GENERIC_UTILS_TRACE_STEP(1, "Reading macro from queue '" << m_name << "'.");
    if (!take(macroPtr, waitInMs))
    {
        return false;
    }
    GENERIC_UTILS_TRACE_STEP(
        2, "Read macro '" << macroPtr->getName() << "' from queue '" << m_name << "'.");
    return true;
}

bool Queue::take(command::Macro*& macroPtr, int waitInMs)
{
    osQueueHandle_t const osQueue = getOsQueue();
    void* item = nullptr;
    if (osQueue == nullptr || osQueueRead(osQueue, item, waitInMs) == 0)
    {
        return false;
    }
    macroPtr = static_cast<command::Macro*>(item);
    return true;
}

void Queue::startForwardingTo(const Queue* queuePtr)
{
    if (queuePtr == nullptr)
    {
        error::reportFatal(GENERIC_UTILS_HERE, Error::NULL_PTR, Error::ERROR,
                           "Null pointer (queuePtr) passed to Queue::startForwardingTo.");
    }

    unsigned long count = 0;
    {
        const lock::Lock guard(m_targets->getMutex());
        std::vector<Queue*> queues = m_queuesToForwardTo;
        if (std::find(queues.begin(), queues.end(), queuePtr) == queues.end())
        {
            queues.push_back(const_cast<Queue*>(queuePtr));
            m_targets->publish(queues);
            m_queuesToForwardTo.swap(queues);
            count = m_queuesToForwardTo.size();
        }
    }

    if (count == 0)
    {
        error::report(GENERIC_UTILS_HERE, Error::ALREADY_EXISTS, Error::WARNING,
                      "Already forwarding macros written to queue '", m_name, "' to queue '",
                      queuePtr->getName(), "'.");
        return;
    }
    GENERIC_UTILS_TRACE_STEP(1, "Forwarding macros written to queue '"
                                    << m_name << "' to queue '" << queuePtr->getName()
                                    << "'. Number of queues to forward to = " << count << ".");
}

void Queue::stopForwardingTo(const Queue* queuePtr)
{
    if (queuePtr == nullptr)
    {
        error::reportFatal(GENERIC_UTILS_HERE, Error::NULL_PTR, Error::ERROR,
                           "Null pointer (queuePtr) passed to Queue::stopForwardingTo.");
    }

    bool isRemoved = false;
    unsigned long count = 0;
    {
        const lock::Lock guard(m_targets->getMutex());
        std::vector<Queue*> queues = m_queuesToForwardTo;
        const auto found = std::find(queues.begin(), queues.end(), queuePtr);
        if (found != queues.end())
        {
            queues.erase(found);
            m_targets->publish(queues);
            m_queuesToForwardTo.swap(queues);
            isRemoved = true;
            count = m_queuesToForwardTo.size();
        }
    }

    if (!isRemoved)
    {
        error::report(GENERIC_UTILS_HERE, Error::DOES_NOT_EXIST, Error::WARNING,
                      "Not forwarding macros written to queue '", m_name, "' to queue '",
                      queuePtr->getName(), "'.");
        return;
    }
    GENERIC_UTILS_TRACE_STEP(
        1, "Removed queue '" << queuePtr->getName()
                             << "' from the list of queues to forward to for queue '" << m_name
                             << "'. Number of queues to forward to = " << count << ".");
}

// cppcheck-suppress passedByValue ; the signature of all selection functions
// NOLINTNEXTLINE(performance-unnecessary-value-param): the signature of all selection functions
Queue* Queue::selectLeastUtilizedQueue(const command::Macro*, std::vector<Queue*> queues)
{
    return findLeastUtilized(queues);
}

void Queue::setQueueSelectionAlgorithm(const QueueSelectionAlgorithm& algorithm)
{
    m_queueSelectionAlgorithm = algorithm;
}

unsigned long Queue::getNumQueuesToForwardTo() const
{
    return copyQueuesToForwardTo().size();
}

std::vector<Queue*> Queue::copyQueuesToForwardTo() const
{
    const lock::Lock guard(m_targets->getMutex());
    return m_queuesToForwardTo;
}

// With the lock held, a queue that has to be taken out before it is destroyed is still there.
std::vector<std::string> Queue::namesOfQueuesToForwardTo() const
{
    const lock::Lock guard(m_targets->getMutex());
    std::vector<std::string> names;
    for (const Queue* const queue : m_queuesToForwardTo)
    {
        names.push_back(queue->getName());
    }
    return names;
}

unsigned int Queue::size() const
{
    osQueueHandle_t const osQueue = getOsQueue();
    return osQueue == nullptr ? 0 : osQueueSize(osQueue);
}

void Queue::output(std::ostream& os) const
{
    writeLine(os, "Name                = '", m_name, "'");
    writeLine(os, "Max. macros         = ", m_maxMacros);
    writeLine(os, "Queue handle        = ", getOsQueue());
    writeLine(os, "Queue selection alg.= 0x", toHex(m_queueSelectionAlgorithm));
    os << std::dec;
    writeLine(os, "Queues to forward to:");
    for (const std::string& name : namesOfQueuesToForwardTo())
    {
        writeLine(os, "    ", name);
    }
}

Queue* Queue::getQueuePtr(const std::string& name)
{
    return registry().findOrReport(GENERIC_UTILS_HERE, name);
}

std::ostream& Queue::outputQueues(std::ostream& os)
{
    registry().output(os);
    return os;
}

std::ostream& operator<<(std::ostream& os, const Queue& queue)
{
    queue.output(os);
    return os;
}

}  // namespace utils::queue
