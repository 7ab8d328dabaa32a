#ifndef TESTS_FLAG_LEGACY_RECORDINGOLDERTRACES_H
#define TESTS_FLAG_LEGACY_RECORDINGOLDERTRACES_H

#include <mutex>
#include <regex>
#include <string>
#include <vector>

#include <utils/flagTraceStrategy.h>

namespace test
{

/// Replaces the time of a header, which is that of the test's run, with "TIME".
inline std::string withoutTraceTime(const std::string& text)
{
    static const std::regex time(
        "[A-Z][a-z]{2} [A-Z][a-z]{2} [ 0-9][0-9] [0-9]{2}:[0-9]{2}:[0-9]{2} [0-9]{4}");
    return std::regex_replace(text, time, "TIME", std::regex_constants::format_first_only);
}

/// Keeps every older trace while it lives; being registered, it silences the default.
///
/// Thread safety: traces of any thread are kept, in the order in which they arrive.
class RecordingOlderTraces : public utils::flag::Flag_TraceStrategy
{
  public:
    explicit RecordingOlderTraces(const std::string& name = "Recording") : Flag_TraceStrategy(name)
    {
    }

    bool isInterested(const utils::flag::Flag_TraceMsg&) override { return true; }

    void processTrace(const utils::flag::Flag_TraceMsg& traceMsg) override
    {
        const std::string text = withoutTraceTime(traceMsg.getString());
        const std::lock_guard guard(m_mutex);
        m_texts.push_back(text);
    }

    /// Whole messages, with "TIME" for the time.
    std::vector<std::string> getTexts() const
    {
        const std::lock_guard guard(m_mutex);
        return m_texts;
    }

    void clear()
    {
        const std::lock_guard guard(m_mutex);
        m_texts.clear();
    }

  private:
    mutable std::mutex m_mutex;
    std::vector<std::string> m_texts;
};

}  // namespace test

#endif
