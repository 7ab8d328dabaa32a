#ifndef UTILS_GSUPDATEVOID_H
#define UTILS_GSUPDATEVOID_H

#include <string>

#include <utils/SourceLocation.h>
#include <utils/export.h>
#include <utils/flagTrace.h>
#include <utils/gsFlags.h>
#include <utils/gsObserver.h>

namespace utils
{

/// Turns an attachment into the call of a member function; made by Gs_Subject::attach().
///
/// Construction and destruction are traced at level 2 with flag Gs_Flags::m_traceUpdateSteps.
///
/// Thread safety: as for the observer.
template <typename T>
class GENERIC_UTILS_EXPORT Gs_UpdateVoid : public Gs_Observer
{
  public:
    /// @param observer not owned; may be null, then update() does nothing
    /// @param function may be virtual
    Gs_UpdateVoid(T* observer, void (T::*function)()) : m_observer(observer), m_function(function)
    {
        GENERIC_UTILS_OLDER_TRACE_AT(
            CONSTRUCTION, flag::findGsFlag(&flag::Gs_Flags::m_traceUpdateSteps), 2,
            "Constructing Gs_UpdateVoid (" << getNameOf(m_observer) << ")");
    }

    ~Gs_UpdateVoid() override
    {
        GENERIC_UTILS_OLDER_TRACE_AT(DESTRUCTION,
                                     flag::findGsFlag(&flag::Gs_Flags::m_traceUpdateSteps), 2,
                                     "Destructing Gs_UpdateVoid (" << getNameOf(m_observer) << ")");
    }

    Gs_UpdateVoid(const Gs_UpdateVoid&) = delete;
    Gs_UpdateVoid& operator=(const Gs_UpdateVoid&) = delete;

    /// Calls the function on the observer, which may end this adapter.
    void update() override
    {
        if (m_observer != nullptr)
        {
            (m_observer->*m_function)();
        }
    }

    /// The observer's name, or "null".
    const std::string& getName() const override { return getNameOf(m_observer); }

  private:
    // The places that the traces have always named.
    static constexpr SourceLocation CONSTRUCTION = {"generic/utils/include/utils/gsUpdateVoid", 21,
                                                    "Gs_UpdateVoid"};
    static constexpr SourceLocation DESTRUCTION = {"generic/utils/include/utils/gsUpdateVoid", 28,
                                                   "~Gs_UpdateVoid"};

    T* m_observer;
    void (T::*m_function)();
};

extern template class Gs_UpdateVoid<Gs_Observer>;

}  // namespace utils

#endif
