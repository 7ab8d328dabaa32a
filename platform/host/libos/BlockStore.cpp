#include <libos/BlockStore.h>

#include <new>

namespace host
{
namespace
{

void deleteChain(ItemBlock* first)
{
    while (first != nullptr)
    {
        ItemBlock* const next = first->next;
        delete first;
        first = next;
    }
}

ItemBlock* allocate()
{
    return new (std::nothrow) ItemBlock;
}

}  // namespace

bool BlockStore::reserve(size_t itemCount)
{
    // One more than the items fill, as they may begin with the last slot of a block.
    const size_t blockCount = (itemCount + ItemBlock::slotCount - 1) / ItemBlock::slotCount + 1;
    for (size_t i = 0; i < blockCount; ++i)
    {
        ItemBlock* const block = allocate();
        if (block == nullptr)
        {
            return false;
        }
        put(block);
    }
    return true;
}

ItemBlock* BlockStore::get()
{
    ItemBlock* const spare = takeSpare();
    return spare != nullptr ? spare : allocate();
}

ItemBlock* BlockStore::takeSpare()
{
    if (m_taken == nullptr)
    {
        m_taken = m_returned.exchange(nullptr, std::memory_order_acquire);
    }
    ItemBlock* const spare = m_taken;
    if (spare != nullptr)
    {
        m_spareCount.fetch_sub(1, std::memory_order_relaxed);
        m_taken = spare->next;
        spare->next = nullptr;
    }
    return spare;
}

void BlockStore::put(ItemBlock* block)
{
    if (m_spareCount.load(std::memory_order_relaxed) >= maxSpareCount)
    {
        delete block;
        return;
    }
    m_spareCount.fetch_add(1, std::memory_order_relaxed);
    block->next = m_returned.load(std::memory_order_relaxed);
    while (!m_returned.compare_exchange_weak(block->next, block, std::memory_order_release,
                                             std::memory_order_relaxed))
    {
    }
}

void BlockStore::clear(ItemBlock* first)
{
    deleteChain(first);
    deleteChain(m_taken);
    deleteChain(m_returned.exchange(nullptr, std::memory_order_acquire));
    m_taken = nullptr;
    m_spareCount.store(0, std::memory_order_relaxed);
}

}  // namespace host
