#ifndef WORKER_POOL_COUNTFILE_H
#define WORKER_POOL_COUNTFILE_H

#include <memory>

#include <utils/command/Command.h>

#include "FileJob.h"

namespace worker_pool
{

/// The first command of a macro, for a worker: counts the file.
class CountFile : public utils::command::Command
{
  public:
    explicit CountFile(std::shared_ptr<FileJob> job);

  private:
    /// @return 0 when there is something to print, be it a problem; 1, which ends the macro, when
    ///         the program was told to stop
    int myExecute() override;

    std::shared_ptr<FileJob> m_job;
};

}  // namespace worker_pool

#endif
