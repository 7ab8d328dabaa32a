#ifndef GENERIC_UTILS_STRATEGY_STRATEGY_H
#define GENERIC_UTILS_STRATEGY_STRATEGY_H

#include <iosfwd>
#include <list>
#include <map>
#include <string>

#include <utils/export.h>
#include <utils/singleton/SingletonT.h>

namespace utils::strategy
{

/// A handler for one type of client object, such as trace messages or errors.
///
/// A strategy registers itself under its type when it is constructed and leaves when it is
/// destroyed. A type has any number of listed strategies, and at most one default that speaks
/// while none is listed. Derive from StrategyT, which adds the operations that get the client
/// object.
///
/// Thread safety: strategies are constructed and destroyed by one controlling thread while no
/// other thread delivers. Delivery itself may run on any number of threads.
class GENERIC_UTILS_EXPORT Strategy
{
  public:
    /// The strategies of one type. Owned by the registry, never freed; the strategies are not
    /// owned.
    struct StrategyCollectionInfo
    {
        Strategy* m_defaultStrategy = nullptr;  ///< speaks while m_strategies is empty; may be null
        std::list<Strategy*> m_strategies;      ///< in the order of registration
    };

    /// Registers the strategy.
    /// @param type what it handles, such as TraceMsg::STRATEGY_TYPE or Error::STRATEGY_TYPE
    /// @param name for people
    /// @param isDefault true: it replaces the type's default, silently; false: it is appended to
    ///        the list
    Strategy(const std::string& type, const std::string& name, bool isDefault);

    /// Unregisters the strategy.
    virtual ~Strategy() = 0;

    /// Writes the type and the name, a line each.
    virtual void output(std::ostream& os) const;

    Strategy(const Strategy&) = delete;
    Strategy& operator=(const Strategy&) = delete;

    /// What the strategy handles, as given to the constructor.
    const std::string& getType() const { return m_type; }

    /// The name, as given to the constructor.
    const std::string& getName() const { return m_name; }

    /// Unregisters the strategy; nothing happens when it is not registered.
    void cleanUp();

    /// Writes every type with its default and its listed strategies.
    static void outputStrategyTypes(std::ostream& os);

  protected:
    /// A walk along the listed strategies of a type, on the stack of the thread that delivers. What it
    /// calls may register strategies and end any, those still to come and the current one included.
    class GENERIC_UTILS_EXPORT Walk
    {
      public:
        /// Begins before the first strategy. @param info outlives the walk
        explicit Walk(const StrategyCollectionInfo& info);
        ~Walk();

        Walk(const Walk&) = delete;
        Walk& operator=(const Walk&) = delete;

        /// Goes to the next strategy. @return null when there is none
        Strategy* next();

        /// Whether the current strategy is still listed.
        bool isCurrentListed() const { return m_currentPtr != nullptr; }

      private:
        friend class Strategy;

        GENERIC_UTILS_LOCAL void leaveOut(const Strategy* strategyPtr);

        const std::list<Strategy*>& m_strategies;
        std::list<Strategy*>::const_iterator m_next;
        Strategy* m_currentPtr = nullptr;
        Walk* m_outerPtr;  // of the same thread
    };

    /// The strategies of a type, or null when none was ever registered.
    static const StrategyCollectionInfo* findCollectionInfo(const std::string& type);

  private:
    GENERIC_UTILS_LOCAL static thread_local Walk* theInnermostWalk;

    std::string m_type;
    std::string m_name;
};

/// Writes the strategy through its virtual output().
GENERIC_UTILS_EXPORT std::ostream& operator<<(std::ostream& os, const Strategy& strategy);

}  // namespace utils::strategy

namespace utils::singleton
{
extern template class SingletonT<
    std::map<std::string, utils::strategy::Strategy::StrategyCollectionInfo*>>;
}  // namespace utils::singleton

#endif
