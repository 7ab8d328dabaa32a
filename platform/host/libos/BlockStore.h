#ifndef HOST_LIBOS_BLOCKSTORE_H
#define HOST_LIBOS_BLOCKSTORE_H

#include <libos/ItemBlock.h>

#include <atomic>
#include <cstddef>

namespace host
{

/// Where a queue gets its blocks from, and leaves those that have been read to their end.
///
/// Some are kept for the next writes, so that a queue in steady use allocates nothing; what is beyond a
/// fixed amount is freed.
///
/// get() is called by one thread at a time, and put() by one thread at a time.
class BlockStore
{
  public:
    /// Makes sure of spare blocks for so many items, wherever in a block the first of them lies.
    /// Nobody else may use the object. @return false when there is not enough memory
    bool reserve(size_t itemCount);

    /// An unlinked block, spare or new; null when there is not enough memory.
    ItemBlock* get();

    /// Keeps a block or frees it.
    void put(ItemBlock* block);

    /// Frees a chain of blocks and all spare ones. Nobody else may use the object.
    void clear(ItemBlock* first);

  private:
    /// 32 KiB where pointers have 64 bits.
    static constexpr size_t maxSpareCount = 64;

    ItemBlock* takeSpare();

    std::atomic<size_t> m_spareCount{0};
    std::atomic<ItemBlock*> m_returned{nullptr};
    /// Taken over from m_returned by get(), always the whole chain: nobody ever removes a single block from
    /// a chain that others change.
    ItemBlock* m_taken = nullptr;
};

}  // namespace host

#endif
