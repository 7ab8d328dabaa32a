#ifndef GENERIC_UTILS_FLAG_FLAGCONSTRUCTION_H
#define GENERIC_UTILS_FLAG_FLAGCONSTRUCTION_H

namespace utils::flag
{

/// Marks the stretches of a flag's constructor in which a failure may be reported, and so
/// application code (a strategy) may run on this thread.
///
/// Such code may construct flags and trace. It must not cause a flag collection to be created while
/// the outer constructor may be part of just that.
class FlagConstruction
{
  public:
    FlagConstruction();
    ~FlagConstruction();

    FlagConstruction(const FlagConstruction&) = delete;
    FlagConstruction& operator=(const FlagConstruction&) = delete;
};

}  // namespace utils::flag

#endif
