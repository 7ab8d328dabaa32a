#ifndef TESTS_SUPPORT_RECORDINGERRORSTRATEGY_H
#define TESTS_SUPPORT_RECORDINGERRORSTRATEGY_H

#include <mutex>
#include <sstream>
#include <string>
#include <vector>

#include <utils/error/Error.h>
#include <utils/strategy/StrategyT.h>

#include "support/Header.h"

namespace test
{

/// One error as a strategy got to see it.
struct ErrorReport
{
    std::string name;
    utils::error::Error::Severity severity;
    std::string text;  ///< whole, header included

    /// The text without its header.
    std::string getWords() const { return behindTwoLines(text); }

    /// "file/line/function" of the header.
    std::string getLocation() const { return generatedFrom(text); }
};

/// Keeps every error while it lives; being listed, it silences the default strategy.
///
///     test::RecordingErrorStrategy errors;
///     ...
///     ASSERT_EQ(errors.getReports().size(), 1U);
///     EXPECT_EQ(errors.getReports()[0].getWords(), "Flag 'a' does not exist.");
///
/// Thread safety: errors of any thread are kept, in the order in which they arrive.
class RecordingErrorStrategy : public utils::strategy::StrategyT<utils::error::Error>
{
  public:
    RecordingErrorStrategy() : StrategyT("Error", "Recording", false) {}

    bool isInterested(const utils::error::Error&) override { return true; }

    void processClientObject(utils::error::Error& error) override
    {
        std::ostringstream text;
        error.output(text);
        const std::lock_guard guard(m_mutex);
        m_reports.push_back({error.getName(), error.getSeverity(), text.str()});
    }

    std::vector<ErrorReport> getReports() const
    {
        const std::lock_guard guard(m_mutex);
        return m_reports;
    }

    /// The texts without their headers.
    std::vector<std::string> getWords() const
    {
        std::vector<std::string> words;
        for (const ErrorReport& report : getReports())
        {
            words.push_back(report.getWords());
        }
        return words;
    }

    void clear()
    {
        const std::lock_guard guard(m_mutex);
        m_reports.clear();
    }

  private:
    mutable std::mutex m_mutex;
    std::vector<ErrorReport> m_reports;
};

}  // namespace test

#endif
