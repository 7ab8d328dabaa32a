#include "xml/src/copyText.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <memory>

namespace utils::xml
{

namespace
{

// From here on the C library takes memory from the system for each allocation by itself, and gives
// it back; advice for smaller ones would stay with what uses that memory next.
constexpr std::size_t OWN_PAGES_SIZE = std::size_t{32} * 1024 * 1024;

// An advice: without huge pages nothing changes.
void adviseHugePages(void* begin, std::size_t size)
{
    const auto pageSize = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    if (std::align(pageSize, pageSize, begin, size) != nullptr)
    {
        madvise(begin, size / pageSize * pageSize, MADV_HUGEPAGE);
    }
}

}  // namespace

std::string copyText(const std::string& text)
{
    if (text.size() < OWN_PAGES_SIZE)
    {
        return text;
    }
    std::string copy;
    copy.reserve(text.size());
    adviseHugePages(copy.data(), text.size());
    copy = text;
    return copy;
}

}  // namespace utils::xml
