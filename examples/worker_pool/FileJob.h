#ifndef WORKER_POOL_FILEJOB_H
#define WORKER_POOL_FILEJOB_H

#include <string>
#include <utility>

#include "PendingMacros.h"
#include "TextCounter.h"

namespace worker_pool
{

/// What the commands of one macro share: a file, and what became of it.
///
/// Only one thread works on a macro at a time, so none of this needs a lock.
struct FileJob
{
    FileJob(PendingMacros& pending, std::string filePath)
        : ticket(pending), path(std::move(filePath))
    {
    }

    PendingMacros::Ticket ticket;
    std::string path;
    std::string worker;  ///< the task that counted
    TextCounts counts;
    std::string problem;  ///< why the file could not be read; empty when it was
};

}  // namespace worker_pool

#endif
