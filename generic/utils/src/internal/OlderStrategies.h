#ifndef GENERIC_UTILS_INTERNAL_OLDERSTRATEGIES_H
#define GENERIC_UTILS_INTERNAL_OLDERSTRATEGIES_H

#include <algorithm>
#include <list>

#include <utils/stdSingleton.h>

namespace utils
{

/// The registered strategies of the older errors or traces, in the order of registration: the list
/// is the Std_Singleton of its type.
template <typename Strategy>
class OlderStrategies
{
  public:
    OlderStrategies() : m_list(*Std_Singleton<std::list<Strategy*>>::getInstancePtr()) {}

    bool isEmpty() const { return m_list.empty(); }

    void add(Strategy* strategy) { m_list.push_back(strategy); }

    /// Takes a strategy out, however often it is listed.
    void remove(Strategy* strategy) { m_list.remove(strategy); }

    /// Whether predicate(strategy) holds for one of them; none after that one is asked.
    ///
    /// The predicate may register and end strategies, the one at hand included. One that has ended
    /// is passed over.
    template <typename Predicate>
    bool any(Predicate predicate) const
    {
        const std::list<Strategy*> listed = m_list;
        return std::any_of(listed.begin(), listed.end(),
                           [&](Strategy* strategy)
                           { return isRegistered(strategy) && predicate(*strategy); });
    }

    /// Calls function(strategy) for each of them; see any().
    template <typename Function>
    void forEach(Function function) const
    {
        any(
            [&](Strategy& strategy)
            {
                function(strategy);
                return false;
            });
    }

  private:
    bool isRegistered(const Strategy* strategy) const
    {
        return std::find(m_list.begin(), m_list.end(), strategy) != m_list.end();
    }

    std::list<Strategy*>& m_list;
};

}  // namespace utils

#endif
