#ifndef GENERIC_UTILS_GSUPDATEVOID_H
#define GENERIC_UTILS_GSUPDATEVOID_H

#include <new>
#include <string>

#include <utils/SourceLocation.h>
#include <utils/export.h>
#include <utils/flagTrace.h>
#include <utils/gsFlags.h>
#include <utils/gsObserver.h>

namespace utils
{

/// What an adapter calls.
///
/// The observer is also kept under its base class, to be asked for its name: where Gs_Observer is a
/// virtual base of T, the way from T to it is gone when its destructor detaches the observer.
template <typename T>
class UpdateTarget
{
  public:
    /// @param observer may be null; then only getObserver() may be called
    /// @param function may be virtual
    UpdateTarget(T* observer, void (T::*function)())
        : m_observer(observer), m_function(function), m_base(observer)
    {
    }

    /// Calls the function on the observer.
    void call() const { (m_observer->*m_function)(); }

    /// The observer, or null.
    const Gs_Observer* getObserver() const { return m_base; }

  private:
    T* m_observer;
    void (T::*m_function)();
    Gs_Observer* m_base;
};

/// Without a second pointer to the same.
template <>
class UpdateTarget<Gs_Observer>
{
  public:
    /// As above.
    UpdateTarget(Gs_Observer* observer, void (Gs_Observer::*function)())
        : m_observer(observer), m_function(function)
    {
    }

    /// Calls the function on the observer.
    void call() const { (m_observer->*m_function)(); }

    /// The observer, or null.
    const Gs_Observer* getObserver() const { return m_observer; }

  private:
    Gs_Observer* m_observer;
    void (Gs_Observer::*m_function)();
};

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
    Gs_UpdateVoid(T* observer, void (T::*function)()) : m_target(observer, function)
    {
        GENERIC_UTILS_OLDER_TRACE_AT(
            CONSTRUCTION, flag::findGsFlag(&flag::Gs_Flags::m_traceUpdateSteps), 2,
            "Constructing Gs_UpdateVoid (" << Gs_UpdateVoid::getName() << ")");
    }

    ~Gs_UpdateVoid() override
    {
        try
        {
            GENERIC_UTILS_OLDER_TRACE_AT(
                DESTRUCTION, flag::findGsFlag(&flag::Gs_Flags::m_traceUpdateSteps), 2,
                "Destructing Gs_UpdateVoid (" << Gs_UpdateVoid::getName() << ")");
        }
        catch (const std::bad_alloc&)
        {
            // Destructors do not throw: what there is no memory for stays unsaid.
        }
    }

    Gs_UpdateVoid(const Gs_UpdateVoid&) = delete;
    Gs_UpdateVoid& operator=(const Gs_UpdateVoid&) = delete;

    /// Calls the function on the observer, which may end this adapter.
    void update() override
    {
        if (m_target.getObserver() != nullptr)
        {
            m_target.call();
        }
    }

    /// The observer's name, or "null".
    const std::string& getName() const override { return getNameOf(m_target.getObserver()); }

  private:
    // The places that the traces have always named.
    static constexpr SourceLocation CONSTRUCTION = {"generic/utils/include/utils/gsUpdateVoid", 21,
                                                    "Gs_UpdateVoid"};
    static constexpr SourceLocation DESTRUCTION = {"generic/utils/include/utils/gsUpdateVoid", 28,
                                                   "~Gs_UpdateVoid"};

    UpdateTarget<T> m_target;
};

extern template class Gs_UpdateVoid<Gs_Observer>;

}  // namespace utils

#endif
