#ifndef GENERIC_UTILS_ERRSTRATEGY_H
#define GENERIC_UTILS_ERRSTRATEGY_H

#include <cstdint>
#include <list>
#include <string>

#include <utils/errError.h>
#include <utils/export.h>
#include <utils/stdSingleton.h>

namespace utils::err
{

/// A handler of the older errors.
///
/// A strategy is registered while it lives, behind those registered before it. The list is
/// Std_Singleton<std::list<Err_Strategy*>>; strategies are not owned.
///
/// The operations run on the calling thread of Err_Error::notifyStrategies(), with no lock held.
/// They may use the whole library, and may end or register strategies; one that is registered
/// during a delivery gets to see the next error.
///
/// Thread safety: strategies are constructed and destroyed by one controlling thread while no
/// other thread reports. Delivery itself may run on any number of threads.
class GENERIC_UTILS_EXPORT Err_Strategy
{
  public:
    /// Registers the strategy. @param name for people
    explicit Err_Strategy(const std::string& name);

    /// Unregisters the strategy.
    virtual ~Err_Strategy();

    /// Handles one error.
    /// @param error lives for the time of the call
    /// @param recoverable as passed to notifyStrategies(); strategies leave it to the caller to
    ///        end the process
    /// @return whether it was handled; not used by the library
    virtual bool processError(const Err_Error& error, bool recoverable) = 0;

    /// Whether processError() is to be called.
    virtual bool isInterested(const Err_Error& error, bool recoverable) const = 0;

    /// Unregisters the strategy, however often it is listed; nothing happens when it is not.
    virtual void cleanUp();

    Err_Strategy(const Err_Strategy&) = delete;
    Err_Strategy& operator=(const Err_Strategy&) = delete;

    /// The name, as given to the constructor.
    const std::string& getName() const { return m_name; }

    /// What happens to errors while no strategy is registered: the platform's last error becomes
    /// the error's code, the error and an end of line are written to std::clog, and an error that
    /// is not recoverable ends the process through its exitOnError().
    static void defaultProcessError(const Err_Error& error, bool recoverable);

    /// @name The platform's last error, one value a thread, 0 when there is none.
    /// @{

    /// The value of the calling thread.
    static std::uint32_t getLastError();

    /// Whether it is not 0.
    static bool isError();

    /// Replaces it; 0 stands for none.
    static void setLastError(std::uint32_t error);
    /// @}

  private:
    std::string m_name;
};

}  // namespace utils::err

namespace utils
{
extern template class Std_Singleton<std::list<err::Err_Strategy*>>;
}  // namespace utils

#endif
