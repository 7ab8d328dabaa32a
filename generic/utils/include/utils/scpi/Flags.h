#ifndef GENERIC_UTILS_SCPI_FLAGS_H
#define GENERIC_UTILS_SCPI_FLAGS_H

#include <utils/export.h>
#include <utils/flag/FlagT.h>
#include <utils/singleton/SingletonT.h>

namespace utils::scpi
{

/// The flags of SCPI strings; reached through SingletonT<Flags>.
class GENERIC_UTILS_EXPORT Flags
{
  public:
    Flags();
    virtual ~Flags();

    /// "utils::scpi::m_traceSteps", default 1. Every SCPI trace is at level 3, so that nothing is
    /// traced by default.
    flag::FlagT<int> m_traceSteps;
};

}  // namespace utils::scpi

namespace utils::singleton
{
extern template class SingletonT<utils::scpi::Flags>;
}  // namespace utils::singleton

#endif
