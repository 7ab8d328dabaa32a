#include <utils/strategy/Strategy.h>

#include <memory>
#include <ostream>

#include "internal/TextOutput.h"

namespace utils::singleton
{
template class SingletonT<std::map<std::string, strategy::Strategy::StrategyCollectionInfo*>>;
}

namespace utils::strategy
{

namespace
{

using CollectionInfo = Strategy::StrategyCollectionInfo;
using Registry = std::map<std::string, CollectionInfo*>;

Registry& registry()
{
    return *singleton::SingletonT<Registry>::getInstancePtr();
}

CollectionInfo& findOrCreate(const std::string& type)
{
    const auto found = registry().find(type);
    if (found != registry().end())
    {
        return *found->second;
    }
    auto info = std::make_unique<CollectionInfo>();
    registry().emplace(type, info.get());
    return *info.release();
}

void outputType(std::ostream& os, const std::string& type, const CollectionInfo& info)
{
    writeLine(os, "---------------- ", type, " ...");
    writeLine(os, "Default strategy: ");
    if (info.m_defaultStrategy != nullptr)
    {
        info.m_defaultStrategy->output(os);
    }
    else
    {
        writeLine(os, "None");
    }
    writeLine(os);
    for (const Strategy* const strategy : info.m_strategies)
    {
        strategy->output(os);
        writeLine(os);
    }
    writeLine(os, ".. end of ", type);
}

}  // namespace

thread_local Strategy::Walk* Strategy::theInnermostWalk = nullptr;

Strategy::Strategy(const std::string& type, const std::string& name, bool isDefault)
    : m_type(type), m_name(name)
{
    CollectionInfo& info = findOrCreate(m_type);
    if (isDefault)
    {
        info.m_defaultStrategy = this;
    }
    else
    {
        info.m_strategies.push_back(this);
    }
}

Strategy::~Strategy()
{
    cleanUp();
}

void Strategy::cleanUp()
{
    const auto found = registry().find(m_type);
    if (found == registry().end())
    {
        return;
    }
    CollectionInfo& info = *found->second;
    if (info.m_defaultStrategy == this)
    {
        info.m_defaultStrategy = nullptr;
        return;
    }
    for (Walk* walkPtr = theInnermostWalk; walkPtr != nullptr; walkPtr = walkPtr->m_outerPtr)
    {
        walkPtr->leaveOut(this);
    }
    info.m_strategies.remove(this);
}

Strategy::Walk::Walk(const StrategyCollectionInfo& info)
    : m_strategies(info.m_strategies), m_next(m_strategies.begin()), m_outerPtr(theInnermostWalk)
{
    theInnermostWalk = this;
}

Strategy::Walk::~Walk()
{
    theInnermostWalk = m_outerPtr;
}

Strategy* Strategy::Walk::next()
{
    m_currentPtr = m_next == m_strategies.end() ? nullptr : *m_next++;
    return m_currentPtr;
}

void Strategy::Walk::leaveOut(const Strategy* strategyPtr)
{
    while (m_next != m_strategies.end() && *m_next == strategyPtr)
    {
        ++m_next;
    }
    if (m_currentPtr == strategyPtr)
    {
        m_currentPtr = nullptr;
    }
}

void Strategy::output(std::ostream& os) const
{
    writeLine(os, "Type = '", m_type, "'");
    writeLine(os, "Name = '", m_name, "'");
}

void Strategy::outputStrategyTypes(std::ostream& os)
{
    writeLine(os, "*** Current strategies are:");
    for (const auto& [type, info] : registry())
    {
        outputType(os, type, *info);
    }
    writeLine(os, "... Done.");
}

const CollectionInfo* Strategy::findCollectionInfo(const std::string& type)
{
    const Registry& types = registry();
    const auto found = types.find(type);
    return found == types.end() ? nullptr : found->second;
}

std::ostream& operator<<(std::ostream& os, const Strategy& strategy)
{
    strategy.output(os);
    return os;
}

}  // namespace utils::strategy
