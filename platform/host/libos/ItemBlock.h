#ifndef HOST_LIBOS_ITEMBLOCK_H
#define HOST_LIBOS_ITEMBLOCK_H

#include <array>
#include <cstddef>

namespace host
{

/// A piece of a queue: places for items, and the piece that follows.
struct ItemBlock
{
    static constexpr size_t slotCount = 63;  // with the link, 512 bytes where pointers have 64 bits

    ItemBlock* next = nullptr;
    std::array<void*, slotCount> items;
};

}  // namespace host

#endif
