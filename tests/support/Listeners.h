#ifndef TESTS_SUPPORT_LISTENERS_H
#define TESTS_SUPPORT_LISTENERS_H

#include <functional>
#include <sstream>
#include <string>
#include <utility>

#include <utils/error/Error.h>
#include <utils/flag/TraceMsg.h>
#include <utils/strategy/StrategyT.h>

namespace test
{

/// Calls a function, on the thread that traces or reports, whenever a message holds certain words.
template <typename Message>
class Listener : public utils::strategy::StrategyT<Message>
{
  public:
    Listener(std::string words, std::function<void()> function)
        : utils::strategy::StrategyT<Message>(Message::STRATEGY_TYPE, "Listener", false),
          m_words(std::move(words)),
          m_function(std::move(function))
    {
    }

    bool isInterested(const Message& message) override
    {
        std::ostringstream text;
        text << message;
        return text.str().find(m_words) != std::string::npos;
    }

    void processClientObject(Message&) override { m_function(); }

  private:
    const std::string m_words;
    const std::function<void()> m_function;
};

using TraceListener = Listener<utils::flag::TraceMsg>;
using ErrorListener = Listener<utils::error::Error>;

}  // namespace test

#endif
