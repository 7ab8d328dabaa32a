#ifndef GENERIC_UTILS_OBSERVER_NOTIFIERTABLE_H
#define GENERIC_UTILS_OBSERVER_NOTIFIERTABLE_H

#include <cstddef>
#include <map>
#include <vector>

#include <utils/observer/Event.h>

namespace utils::observer
{

/// Notifiers in ascending order of priority, and in the order of their addition where it is the
/// same.
///
/// The entries are linked in that order, so that a walk only follows pointers. An entry keeps its
/// place in memory until it is removed, whatever else is added or removed. Adding takes the time of
/// finding the priority among those there are, and removing hardly depends on their number.
class NotifierTable
{
  public:
    NotifierTable() = default;
    ~NotifierTable();

    NotifierTable(const NotifierTable&) = delete;
    NotifierTable& operator=(const NotifierTable&) = delete;

    /// The entry of the lowest priority; null when the table is empty.
    const NotifierEntry* getFirstPtr() const { return m_firstPtr; }

    bool isEmpty() const { return m_firstPtr == nullptr; }

    /// Adds an entry, or nothing when memory runs out.
    void add(Notifier* notifierPtr, int priority);

    /// Removes the earliest entry of a notifier at exactly this priority.
    /// @return whether there was one
    bool remove(const Notifier* notifierPtr, int priority);

  private:
    struct Entry;

    /// The last entry of each priority.
    using Groups = std::map<int, Entry*>;

    struct Entry : NotifierEntry
    {
        Entry* previousPtr = nullptr;
        Groups::iterator group;
        Entry* nextInBucketPtr = nullptr;

        bool isOf(const Notifier* notifier, int priority) const
        {
            return notifierPtr == notifier && group->first == priority;
        }
    };

    /// Entries of some notifiers and priorities, in the order of their addition.
    struct Bucket
    {
        Entry* firstPtr = nullptr;
        Entry* lastPtr = nullptr;
    };

    /// @name What the links lead to: entries of this table.
    /// @{
    Entry* firstEntry() const { return static_cast<Entry*>(m_firstPtr); }
    static Entry* nextOf(const Entry& entry) { return static_cast<Entry*>(entry.nextPtr); }
    /// @}

    void link(Entry& entry, Entry* previousPtr);
    void unlink(Entry& entry);
    void leaveGroup(const Entry& entry);

    Entry* find(const Notifier* notifierPtr, int priority) const;
    void growIndex();
    void addToIndex(Entry& entry);
    Entry* takeFromIndex(const Notifier* notifierPtr, int priority);
    Bucket& bucketOf(const Notifier* notifierPtr, int priority);

    NotifierEntry* m_firstPtr = nullptr;
    std::size_t m_size = 0;
    Groups m_groups;
    std::vector<Bucket> m_index;  // empty while the table is small; else a power of two
};

}  // namespace utils::observer

#endif
