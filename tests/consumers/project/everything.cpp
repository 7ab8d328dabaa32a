// A second source file that includes everything, the platform too.

#include <utils/utils.h>

#include <libdbg/libdbg.h>
#include <libdir/DirectoryPaths.h>
#include <libos/libos.h>
#include <libstd/libstd.h>

bool everythingIsThere()
{
    const utils::error::Error error("file", 1, "function", utils::error::Error::NULL_PTR,
                                    utils::error::Error::ERROR);
    return error.getSeverity() == utils::error::Error::ERROR && utils::task::Task::RUNNING == 1 &&
           osTaskSelf() == nullptr && !std::getUserName().empty();
}
