#ifndef UTILS_OBSERVER_NOTIFIERTABLE_H
#define UTILS_OBSERVER_NOTIFIERTABLE_H

#include <iterator>
#include <map>

#include <utils/observer/Notifier.h>

namespace utils::observer
{

/// Notifiers in ascending order of priority, and in the order of their addition where it is the
/// same.
///
/// The entries are also linked with each other, so that a walk only follows pointers. As with a map,
/// an entry keeps its place in memory until it is removed, whatever else is added or removed.
class NotifierTable
{
  public:
    struct Entry
    {
        Notifier* notifierPtr;
        Entry* previousPtr = nullptr;
        Entry* nextPtr = nullptr;
    };

    /// The entry of the lowest priority; null when the table is empty.
    Entry* getFirstPtr() const { return m_firstPtr; }

    bool isEmpty() const { return m_firstPtr == nullptr; }

    void add(Notifier* notifierPtr, int priority)
    {
        const auto position = m_entries.emplace(priority, Entry{notifierPtr});
        Entry& entry = position->second;
        entry.previousPtr = position == m_entries.begin() ? nullptr : &std::prev(position)->second;
        entry.nextPtr = linkTo(entry);
        linkTo(entry) = &entry;
        if (entry.nextPtr != nullptr)
        {
            entry.nextPtr->previousPtr = &entry;
        }
    }

    /// Removes the earliest entry of a notifier at exactly this priority.
    /// @return whether there was one
    bool remove(const Notifier* notifierPtr, int priority)
    {
        const auto [begin, end] = m_entries.equal_range(priority);
        for (auto position = begin; position != end; ++position)
        {
            Entry& entry = position->second;
            if (entry.notifierPtr == notifierPtr)
            {
                linkTo(entry) = entry.nextPtr;
                if (entry.nextPtr != nullptr)
                {
                    entry.nextPtr->previousPtr = entry.previousPtr;
                }
                m_entries.erase(position);
                return true;
            }
        }
        return false;
    }

  private:
    // The pointer that leads to an entry, or will.
    Entry*& linkTo(const Entry& entry)
    {
        return entry.previousPtr == nullptr ? m_firstPtr : entry.previousPtr->nextPtr;
    }

    std::multimap<int, Entry> m_entries;
    Entry* m_firstPtr = nullptr;
};

}  // namespace utils::observer

#endif
