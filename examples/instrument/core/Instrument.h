#ifndef INSTRUMENT_CORE_INSTRUMENT_H
#define INSTRUMENT_CORE_INSTRUMENT_H

#include <string>
#include <vector>

#include "core/AcquisitionPool.h"
#include "core/Channel.h"
#include "core/Configuration.h"
#include "core/Executor.h"
#include "core/Interlocks.h"
#include "core/Output.h"

namespace instrument
{

/// The device: what all clients share.
///
/// Thread safety: belongs to one thread, the executor's.
class Instrument
{
  public:
    /// @param executor not owned; must outlive the instrument
    Instrument(const Configuration& configuration, Executor& executor);

    /// Starts the tasks that acquire.
    /// @return false when the system has no thread for one of them
    bool start() { return m_pool.start(); }

    /// Ends them, after all that they were given to do.
    void finish() { m_pool.finish(); }

    /// Back to the settings of the start: ranges and output. States are facts and stay.
    void reset();

    /// In the order of the configuration; at least one.
    std::vector<Channel>& getChannels() { return m_channels; }

    /// @param name in any letter case
    /// @return null for a name that is not known
    Channel* findChannel(const std::string& name);

    Interlocks& getInterlocks() { return m_interlocks; }
    Output& getOutput() { return m_output; }
    AcquisitionPool& getPool() { return m_pool; }

  private:
    std::vector<Channel> m_channels;
    Interlocks m_interlocks;
    Output m_output;
    AcquisitionPool m_pool;
};

}  // namespace instrument

#endif
