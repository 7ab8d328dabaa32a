#include "observer/src/NotifierTable.h"

#include <bit>
#include <cstdint>
#include <iterator>
#include <memory>

namespace utils::observer
{

namespace
{

// Up to so many entries are searched one by one.
constexpr std::size_t LARGEST_WITHOUT_INDEX = 16;

}  // namespace

NotifierTable::~NotifierTable()
{
    while (m_firstPtr != nullptr)
    {
        const std::unique_ptr<Entry> removed(firstEntry());
        m_firstPtr = removed->nextPtr;
    }
}

void NotifierTable::add(Notifier* notifierPtr, int priority)
{
    // All that needs memory comes first.
    auto entry = std::make_unique<Entry>();
    growIndex();
    const auto [group, isNew] = m_groups.try_emplace(priority, nullptr);

    Entry* previousPtr = group->second;
    if (isNew && group != m_groups.begin())
    {
        previousPtr = std::prev(group)->second;
    }
    entry->notifierPtr = notifierPtr;
    entry->group = group;
    group->second = entry.get();
    link(*entry, previousPtr);
    addToIndex(*entry);
    ++m_size;
    static_cast<void>(entry.release());  // it belongs to the links now
}

bool NotifierTable::remove(const Notifier* notifierPtr, int priority)
{
    const std::unique_ptr<Entry> entry(m_index.empty() ? find(notifierPtr, priority)
                                                       : takeFromIndex(notifierPtr, priority));
    if (entry == nullptr)
    {
        return false;
    }
    leaveGroup(*entry);
    unlink(*entry);
    --m_size;
    return true;
}

void NotifierTable::link(Entry& entry, Entry* previousPtr)
{
    entry.previousPtr = previousPtr;
    entry.nextPtr = previousPtr == nullptr ? m_firstPtr : previousPtr->nextPtr;
    if (Entry* const nextPtr = nextOf(entry))
    {
        nextPtr->previousPtr = &entry;
    }
    (previousPtr == nullptr ? m_firstPtr : previousPtr->nextPtr) = &entry;
}

void NotifierTable::unlink(Entry& entry)
{
    Entry* const nextPtr = nextOf(entry);
    if (nextPtr != nullptr)
    {
        nextPtr->previousPtr = entry.previousPtr;
    }
    if (entry.previousPtr == nullptr)
    {
        m_firstPtr = nextPtr;
    }
    else
    {
        entry.previousPtr->nextPtr = nextPtr;
    }
}

// To be called while the entry is still linked.
void NotifierTable::leaveGroup(const Entry& entry)
{
    const auto group = entry.group;
    if (group->second != &entry)
    {
        return;
    }
    if (entry.previousPtr != nullptr && entry.previousPtr->group == group)
    {
        group->second = entry.previousPtr;
    }
    else
    {
        m_groups.erase(group);
    }
}

NotifierTable::Entry* NotifierTable::find(const Notifier* notifierPtr, int priority) const
{
    Entry* entryPtr = firstEntry();
    while (entryPtr != nullptr && !entryPtr->isOf(notifierPtr, priority))
    {
        entryPtr = nextOf(*entryPtr);
    }
    return entryPtr;
}

// Makes room for another entry.
void NotifierTable::growIndex()
{
    if (m_size < LARGEST_WITHOUT_INDEX || m_size < 2 * m_index.size())
    {
        return;
    }
    m_index = std::vector<Bucket>(std::bit_ceil(m_size + 1));
    for (Entry* entryPtr = firstEntry(); entryPtr != nullptr; entryPtr = nextOf(*entryPtr))
    {
        addToIndex(*entryPtr);
    }
}

void NotifierTable::addToIndex(Entry& entry)
{
    if (m_index.empty())
    {
        return;
    }
    Bucket& bucket = bucketOf(entry.notifierPtr, entry.group->first);
    (bucket.firstPtr == nullptr ? bucket.firstPtr : bucket.lastPtr->nextInBucketPtr) = &entry;
    bucket.lastPtr = &entry;
    entry.nextInBucketPtr = nullptr;
}

NotifierTable::Entry* NotifierTable::takeFromIndex(const Notifier* notifierPtr, int priority)
{
    Bucket& bucket = bucketOf(notifierPtr, priority);
    Entry* beforePtr = nullptr;
    Entry* entryPtr = bucket.firstPtr;
    while (entryPtr != nullptr && !entryPtr->isOf(notifierPtr, priority))
    {
        beforePtr = entryPtr;
        entryPtr = entryPtr->nextInBucketPtr;
    }
    if (entryPtr == nullptr)
    {
        return nullptr;
    }
    (beforePtr == nullptr ? bucket.firstPtr : beforePtr->nextInBucketPtr) =
        entryPtr->nextInBucketPtr;
    if (bucket.lastPtr == entryPtr)
    {
        bucket.lastPtr = beforePtr;
    }
    return entryPtr;
}

// Multiplication by 2^64 / golden ratio spreads neighbours over the high bits.
NotifierTable::Bucket& NotifierTable::bucketOf(const Notifier* notifierPtr, int priority)
{
    constexpr std::uint64_t spread = 0x9e3779b97f4a7c15;
    const auto address = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(notifierPtr));
    const std::uint64_t hash = (address + static_cast<std::uint64_t>(priority) * spread) * spread;
    return m_index[hash >> (64 - std::countr_zero(m_index.size()))];
}

}  // namespace utils::observer
