#ifndef GENERIC_UTILS_STRATEGY_STRATEGYT_H
#define GENERIC_UTILS_STRATEGY_STRATEGYT_H

#include <string>

#include <utils/export.h>
#include <utils/strategy/Strategy.h>

namespace utils::strategy
{

/// A handler for client objects of type T; see Strategy.
///
/// The operations run on the thread that delivers, with no lock of the library held. They may
/// trace, report errors and use the whole library, also when they were called because of a trace
/// or an error. They may register strategies and end any, themselves included; what ends before its
/// turn is not called.
template <typename T>
class GENERIC_UTILS_EXPORT StrategyT : public Strategy
{
  public:
    /// See Strategy::Strategy().
    StrategyT(const std::string& type, const std::string& name, bool isDefault)
        : Strategy(type, name, isDefault)
    {
    }

    /// Whether processClientObject() is to be called. Not asked of a default strategy.
    virtual bool isInterested(const T& clientObject) = 0;

    /// Handles one object, which lives for the time of the call.
    virtual void processClientObject(T& clientObject) = 0;

    /// Delivers an object to the strategies of a type: to every listed one that is interested, in
    /// the order of registration; when none is listed, to the default, without asking. Strategies
    /// of that type that are not a StrategyT<T> are passed over, and without any strategy the
    /// object is dropped.
    static void invokeStrategies(const std::string& type, T& clientObject)
    {
        const StrategyCollectionInfo* const info = findCollectionInfo(type);
        if (info == nullptr)
        {
            return;
        }
        if (info->m_strategies.empty())
        {
            if (auto* const strategy = dynamic_cast<StrategyT*>(info->m_defaultStrategy))
            {
                strategy->processClientObject(clientObject);
            }
            return;
        }
        Walk walk(*info);
        while (Strategy* const listed = walk.next())
        {
            auto* const strategy = dynamic_cast<StrategyT*>(listed);
            if (strategy != nullptr && strategy->isInterested(clientObject) &&
                walk.isCurrentListed())
            {
                strategy->processClientObject(clientObject);
            }
        }
    }
};

}  // namespace utils::strategy

#endif
