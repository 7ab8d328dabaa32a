#ifndef WORKER_POOL_PROGRESSLINE_H
#define WORKER_POOL_PROGRESSLINE_H

#include <string>

namespace worker_pool
{

/// A line on a terminal (standard error) that is written over again and again. Does nothing when
/// there is no terminal.
///
/// Thread safety: used by one thread at a time.
class ProgressLine
{
  public:
    explicit ProgressLine(bool isWanted);

    /// Shows a text instead of the last one.
    void show(const std::string& text);

    /// Makes room for other output.
    void clear();

  private:
    bool m_isActive;
    bool m_isShown = false;
};

}  // namespace worker_pool

#endif
