#ifndef TESTS_STRATEGY_CLIENT_H
#define TESTS_STRATEGY_CLIENT_H

#include <functional>
#include <string>
#include <vector>

#include <utils/strategy/StrategyT.h>

namespace test
{

/// What the strategies of these tests handle; it collects who saw it.
struct Client
{
    std::vector<std::string> m_seenBy;
};

/// A strategy for clients that enters its name, and then does what it was told.
class ClientStrategy : public utils::strategy::StrategyT<Client>
{
  public:
    explicit ClientStrategy(const std::string& name, bool isDefault = false,
                            const std::string& type = "client")
        : StrategyT(type, name, isDefault)
    {
    }

    bool isInterested(const Client&) override
    {
        ++m_timesAsked;
        return m_isInterested;
    }

    void processClientObject(Client& client) override
    {
        client.m_seenBy.push_back(getName());
        if (m_action)
        {
            m_action();
        }
    }

    bool m_isInterested = true;
    int m_timesAsked = 0;
    std::function<void()> m_action;
};

/// Delivers a new client and returns who saw it.
inline std::vector<std::string> deliver(const std::string& type = "client")
{
    Client client;
    utils::strategy::StrategyT<Client>::invokeStrategies(type, client);
    return client.m_seenBy;
}

using StrategyRegistry = std::map<std::string, utils::strategy::Strategy::StrategyCollectionInfo*>;

inline StrategyRegistry& strategyRegistry()
{
    return *utils::singleton::SingletonT<StrategyRegistry>::getInstancePtr();
}

}  // namespace test

#endif
