#ifndef UTILS_FLAG_FLAGCONSTRUCTION_H
#define UTILS_FLAG_FLAGCONSTRUCTION_H

namespace utils::flag
{

/// Marks the stretches of a flag's constructor in which a failure may be reported, and so
/// application code (a strategy) may run on this thread.
///
/// Such code may construct flags and trace. It must not cause the initial values to be read, nor a
/// flag collection to be created, while the outer constructor is about to finish just that.
class FlagConstruction
{
  public:
    FlagConstruction();
    ~FlagConstruction();

    FlagConstruction(const FlagConstruction&) = delete;
    FlagConstruction& operator=(const FlagConstruction&) = delete;

    /// Whether another flag's constructor is under way further up on this thread's stack.
    bool isNested() const;
};

}  // namespace utils::flag

#endif
