#ifndef TESTS_SUPPORT_RECORDINGTRACESTRATEGY_H
#define TESTS_SUPPORT_RECORDINGTRACESTRATEGY_H

#include <cstddef>
#include <mutex>
#include <sstream>
#include <string>
#include <vector>

#include <utils/flag/TraceMsg.h>
#include <utils/strategy/StrategyT.h>

#include "support/Header.h"

namespace test
{

/// Keeps every trace while it lives; being listed, it silences the default strategy.
///
///     test::RecordingTraceStrategy traces;
///     ...
///     EXPECT_THAT(traces.getWords(), ElementsAre("Creating command 'a'."));
///
/// Thread safety: traces of any thread are kept, in the order in which they arrive.
class RecordingTraceStrategy : public utils::strategy::StrategyT<utils::flag::TraceMsg>
{
  public:
    RecordingTraceStrategy() : StrategyT("Trace", "Recording", false) {}

    bool isInterested(const utils::flag::TraceMsg&) override { return true; }

    void processClientObject(utils::flag::TraceMsg& traceMsg) override
    {
        std::ostringstream text;
        traceMsg.output(text);
        const std::lock_guard guard(m_mutex);
        m_texts.push_back(text.str());
    }

    /// Whole messages, headers included.
    std::vector<std::string> getTexts() const
    {
        const std::lock_guard guard(m_mutex);
        return m_texts;
    }

    /// The messages without their headers.
    std::vector<std::string> getWords() const
    {
        std::vector<std::string> words;
        for (const std::string& text : getTexts())
        {
            words.push_back(withoutHeader(text));
        }
        return words;
    }

    void clear()
    {
        const std::lock_guard guard(m_mutex);
        m_texts.clear();
    }

    /// Cuts a short header ("YYYY-MM-DD HH:MM:SS: ") or a full one off.
    static std::string withoutHeader(const std::string& text)
    {
        if (text.rfind("!TRACE (", 0) == 0)
        {
            return behindTwoLines(text);
        }
        const std::size_t end = text.find(": ");
        return end == std::string::npos ? std::string() : text.substr(end + 2);
    }

  private:
    mutable std::mutex m_mutex;
    std::vector<std::string> m_texts;
};

}  // namespace test

#endif
