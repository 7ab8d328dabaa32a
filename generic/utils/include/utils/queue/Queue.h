#ifndef GENERIC_UTILS_QUEUE_QUEUE_H
#define GENERIC_UTILS_QUEUE_QUEUE_H

#include <atomic>
#include <iosfwd>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <libos/osQueue.h>
#include <utils/command/Macro.h>
#include <utils/export.h>
#include <utils/singleton/SingletonT.h>

namespace utils::task
{
class Task;
}

namespace utils::queue
{

class ForwardingTargets;

/// Something that macros can be written to.
class GENERIC_UTILS_EXPORT WriteableQueue
{
  protected:
    ~WriteableQueue() = default;
};

/// A named, bounded queue of macros between threads.
///
/// Writers hand macros to a queue; a task reads and executes them. A queue can forward everything
/// that is written to it to one of several other queues, chosen for each macro by a selection
/// function; so one queue feeds a pool of tasks. A queue that forwards stores nothing itself.
///
/// A queue holds pointers and does not own the macros, with one exception: auto-delete macros that
/// are still in it when it is cleaned up are deleted.
///
/// Waits are in milliseconds: 0 = do not wait, -1 = wait without limit, a positive value bounds
/// the wait.
///
/// Thread safety: read(), write(), size() and the accessors may be called by any thread. Queues
/// are created, destroyed and rewired by a controlling thread while no other thread uses them;
/// rewiring while others write is safe as long as the queues themselves live. No lock is held
/// while a macro is written or a selection function runs.
class GENERIC_UTILS_EXPORT Queue : public WriteableQueue
{
  public:
    /// Chooses one of the queues (at least one, in the order in which forwarding to them was
    /// started) for a macro. Runs on the writing thread. Null means that none will do.
    using QueueSelectionAlgorithm = Queue* (*)(const command::Macro*, std::vector<Queue*>);

    /// "QueueWriteError": the error name of a write that failed.
    static const std::string& WRITE_ERROR;

    /// Creates the queue and enters it in the queue collection. A name that is taken is fatal: it
    /// is reported as error ALREADY_EXISTS, then the process ends with exit status 1.
    /// @param name unique among the queues
    /// @param maxMacros the capacity; the platform counts with its lower 32 bits
    Queue(const std::string& name, unsigned long maxMacros);

    /// Cleans the queue up.
    virtual ~Queue();

    /// Puts a macro into this queue, or into the one that it is forwarded to.
    /// @param macroPtr null is fatal: it is reported as error NULL_PTR, then the process ends
    /// @param waitInMs how long to wait for a free place
    /// @return true when the macro is in a queue; it may then already be executed, even deleted.
    ///        False when no place became free (reported as error WRITE_ERROR, by every queue on
    ///        the way) or no queue was selected (reported as error NULL_PTR); the macro is then
    ///        still the caller's.
    virtual bool write(const command::Macro* macroPtr, int waitInMs);

    /// Writes the settings and the names of the queues forwarded to, a line each; leaves the
    /// stream's number base at decimal.
    virtual void output(std::ostream& os) const;

    Queue(const Queue&) = delete;
    Queue& operator=(const Queue&) = delete;

    /// Takes the oldest macro of this queue itself; forwarding does not matter.
    /// @param macroPtr receives the macro; untouched on failure
    /// @param waitInMs how long to wait for a macro
    /// @return false, with nothing reported, when none came
    bool read(command::Macro*& macroPtr, int waitInMs);

    /// Empties the queue (auto-delete macros are deleted, others are their owners'), gives up the
    /// platform queue and takes the name out of the collection. Further reads and writes fail.
    void cleanUp();

    /// Adds a queue to those that macros are forwarded to. It is not owned and must not forward
    /// back here. Null is fatal (error NULL_PTR); a queue that is forwarded to already is reported
    /// as warning ALREADY_EXISTS, and nothing changes.
    void startForwardingTo(const Queue* queuePtr);

    /// Removes a queue from those that macros are forwarded to. Null is fatal (error NULL_PTR); a
    /// queue that is not forwarded to is reported as warning DOES_NOT_EXIST.
    void stopForwardingTo(const Queue* queuePtr);

    /// The default selection: the first queue that is empty when it is looked at, otherwise the
    /// earliest of those with the fewest macros. Null for no queues.
    static Queue* selectLeastUtilizedQueue(const command::Macro* macroPtr,
                                           std::vector<Queue*> queues);

    /// Replaces the selection function.
    void setQueueSelectionAlgorithm(const QueueSelectionAlgorithm& algorithm);

    /// The name, as given to the constructor.
    const std::string& getName() const { return m_name; }

    /// The capacity, as given to the constructor.
    unsigned long getMaxMacros() const { return m_maxMacros; }

    /// How many queues macros are forwarded to.
    unsigned long getNumQueuesToForwardTo() const;

    /// The number of macros in this queue itself.
    unsigned int size() const;

    /// Looks a queue up.
    /// @return the queue, or null when there is none, which is reported as warning DOES_NOT_EXIST
    static Queue* getQueuePtr(const std::string& name);

    /// Writes all queues in the byte-wise order of their names, each followed by an empty line. A
    /// queue that is destroyed meanwhile waits until it has been written.
    /// @return `os`
    static std::ostream& outputQueues(std::ostream& os);

  private:
    friend class task::Task;

    osQueueHandle_t getOsQueue() const { return m_osQueue.load(std::memory_order_acquire); }
    GENERIC_UTILS_LOCAL bool take(command::Macro*& macroPtr, int waitInMs);
    GENERIC_UTILS_LOCAL bool readRemaining(command::Macro*& macroPtr);
    GENERIC_UTILS_LOCAL void destroyOsQueue();
    GENERIC_UTILS_LOCAL bool store(const command::Macro* macroPtr, int waitInMs);
    GENERIC_UTILS_LOCAL bool selectTarget(const command::Macro* macroPtr, Queue*& target) const;
    GENERIC_UTILS_LOCAL std::vector<Queue*> copyQueuesToForwardTo() const;
    GENERIC_UTILS_LOCAL std::vector<std::string> namesOfQueuesToForwardTo() const;

    std::string m_name;
    unsigned long m_maxMacros;
    std::atomic<osQueueHandle_t> m_osQueue{nullptr};
    std::vector<Queue*> m_queuesToForwardTo;
    std::atomic<QueueSelectionAlgorithm> m_queueSelectionAlgorithm;

    // What the writers see of m_queuesToForwardTo, and its lock.
    std::unique_ptr<ForwardingTargets> m_targets;
};

/// Writes the queue through its virtual output().
GENERIC_UTILS_EXPORT std::ostream& operator<<(std::ostream& os, const Queue& queue);

}  // namespace utils::queue

namespace utils::singleton
{
extern template class SingletonT<std::map<std::string, utils::queue::Queue*>>;
}  // namespace utils::singleton

#endif
