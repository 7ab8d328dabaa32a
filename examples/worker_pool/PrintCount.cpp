#include "PrintCount.h"

#include <utility>

namespace worker_pool
{

PrintCount::PrintCount(std::shared_ptr<const FileJob> job, Report& report)
    : Command("PrintCount"), m_job(std::move(job)), m_report(report)
{
}

int PrintCount::myExecute()
{
    if (m_job->problem.empty())
    {
        m_report.addFile(m_job->path, m_job->counts, m_job->worker);
    }
    else
    {
        m_report.addProblem(m_job->path, m_job->problem);
    }
    return 0;
}

}  // namespace worker_pool
