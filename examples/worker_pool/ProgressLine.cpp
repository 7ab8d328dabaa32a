#include "ProgressLine.h"

#include <unistd.h>

#include <iostream>

namespace worker_pool
{

namespace
{
// To the first column, then erase to the end of the line.
constexpr const char* BEGIN_AGAIN = "\r\033[K";
}  // namespace

ProgressLine::ProgressLine(bool isWanted) : m_isActive(isWanted && isatty(STDERR_FILENO) != 0) {}

void ProgressLine::show(const std::string& text)
{
    if (m_isActive)
    {
        std::cerr << BEGIN_AGAIN + text;
        m_isShown = true;
    }
}

void ProgressLine::clear()
{
    if (m_isShown)
    {
        std::cerr << BEGIN_AGAIN;
        m_isShown = false;
    }
}

}  // namespace worker_pool
