#ifndef INSTRUMENT_CORE_FLAGS_H
#define INSTRUMENT_CORE_FLAGS_H

#include <utils/flag/FlagT.h>

namespace instrument
{

/// The flags of this program; reached through utils::singleton::SingletonT<Flags>.
class Flags
{
  public:
    Flags();
    virtual ~Flags() = default;

    Flags(const Flags&) = delete;
    Flags& operator=(const Flags&) = delete;

    /// "instrument::m_traceSteps", default 0: level 1 traces clients, acquisitions, outputs and
    /// errors, level 2 also every message and every answer.
    utils::flag::FlagT<int> m_traceSteps;
};

}  // namespace instrument

#endif
