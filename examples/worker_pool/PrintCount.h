#ifndef WORKER_POOL_PRINTCOUNT_H
#define WORKER_POOL_PRINTCOUNT_H

#include <memory>

#include <utils/command/Command.h>

#include "FileJob.h"
#include "Report.h"

namespace worker_pool
{

/// The last command of a macro, for the reporter: prints what the worker found out.
class PrintCount : public utils::command::Command
{
  public:
    /// @param report not owned; outlives the command
    PrintCount(std::shared_ptr<const FileJob> job, Report& report);

  private:
    /// @return 0
    int myExecute() override;

    std::shared_ptr<const FileJob> m_job;
    Report& m_report;
};

}  // namespace worker_pool

#endif
