#ifndef TESTS_SUPPORT_STEPRECORDER_H
#define TESTS_SUPPORT_STEPRECORDER_H

#include <algorithm>
#include <cstddef>
#include <map>
#include <mutex>
#include <sstream>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include <utils/command/Flags.h>
#include <utils/error/Error.h>
#include <utils/flag/Flags.h>
#include <utils/flag/TraceMsg.h>
#include <utils/queue/Flags.h>
#include <utils/singleton/SingletonT.h>
#include <utils/strategy/StrategyT.h>
#include <utils/task/Flags.h>

#include "support/ConfigDirectory.h"

namespace test
{

/// Records what commands, queues and tasks trace and report while it lives, in one order, a line
/// each:
///
///     1 Command/execute: Executing command 'a'.
///     ERROR: NullPtr Queue/write: Null pointer (macroPtr) passed to Queue::write for queue 'q'.
///
/// that is: level (or severity and error name), source file, function, words. The source file's
/// whole path and the flag that the header names are checked; a message that is not as it should
/// be is recorded whole.
///
/// Thread safety: messages may come from any thread.
class StepRecorder
{
  public:
    StepRecorder() { m_flags.m_enableTraceMsgHeaders.setValue(0); }

    /// Sets the trace level of commands, queues and tasks.
    void setLevel(int level)
    {
        setCommandLevel(level);
        setQueueLevel(level);
        setTaskLevel(level);
    }
    void setCommandLevel(int level) { setLevel<utils::command::Flags>(level); }
    void setQueueLevel(int level) { setLevel<utils::queue::Flags>(level); }
    void setTaskLevel(int level) { setLevel<utils::task::Flags>(level); }

    /// What was recorded since it was last taken.
    std::vector<std::string> take()
    {
        return takeIf([](std::thread::id) { return true; });
    }

    /// Of that, what came from the calling thread.
    std::vector<std::string> takeOwn()
    {
        return takeIf([](std::thread::id thread) { return thread == std::this_thread::get_id(); });
    }

    /// Of that, what came from other threads.
    std::vector<std::string> takeOthers()
    {
        return takeIf([](std::thread::id thread) { return thread != std::this_thread::get_id(); });
    }

  private:
    struct Line
    {
        std::thread::id thread;
        std::string text;
    };

    template <typename Message>
    class Listener : public utils::strategy::StrategyT<Message>
    {
      public:
        explicit Listener(StepRecorder& recorder)
            : utils::strategy::StrategyT<Message>(Message::STRATEGY_TYPE, "StepRecorder", false),
              m_recorder(recorder)
        {
        }
        bool isInterested(const Message&) override { return true; }
        void processClientObject(Message& message) override
        {
            std::ostringstream text;
            message.output(text);
            m_recorder.record(text.str());
        }

      private:
        StepRecorder& m_recorder;
    };

    template <typename T>
    static T& singleton()
    {
        return *utils::singleton::SingletonT<T>::getInstancePtr();
    }

    template <typename Flags>
    void setLevel(int level)
    {
        singleton<Flags>().m_traceSteps.setValue(level);
    }

    void record(const std::string& text)
    {
        Line line{std::this_thread::get_id(), shorten(text)};
        const std::lock_guard guard(m_mutex);
        m_lines.push_back(std::move(line));
    }

    template <typename Condition>
    std::vector<std::string> takeIf(Condition isWanted)
    {
        const std::lock_guard guard(m_mutex);
        std::vector<std::string> taken;
        std::vector<Line> left;
        for (Line& line : m_lines)
        {
            if (isWanted(line.thread))
            {
                taken.push_back(std::move(line.text));
            }
            else
            {
                left.push_back(std::move(line));
            }
        }
        m_lines = std::move(left);
        return taken;
    }

    // Takes a text apart from left to right.
    class Scanner
    {
      public:
        explicit Scanner(std::string_view text) : m_rest(text) {}

        // Skips a text if it stands here.
        bool skip(std::string_view text)
        {
            const bool isHere = m_rest.substr(0, text.size()) == text;
            m_rest.remove_prefix(isHere ? text.size() : 0);
            return isHere;
        }

        // What stands before a delimiter, which is skipped; nothing from a missing one on.
        std::string takeUntil(std::string_view delimiter)
        {
            const std::size_t end = m_rest.find(delimiter);
            m_isGood = m_isGood && end != std::string_view::npos;
            if (!m_isGood)
            {
                return {};
            }
            std::string taken(m_rest.substr(0, end));
            m_rest.remove_prefix(end + delimiter.size());
            return taken;
        }

        bool isGood() const { return m_isGood; }
        std::string getRest() const { return std::string(m_rest); }

      private:
        std::string_view m_rest;
        bool m_isGood = true;
    };

    static std::string shorten(const std::string& text)
    {
        Scanner scanner(text);
        const bool isTrace = scanner.skip("!TRACE (utils::");
        const bool isReport = scanner.skip("!");
        const std::string subsystem = isTrace ? scanner.takeUntil("::m_traceSteps = ") : "";
        const std::string value = isTrace ? scanner.takeUntil("; trace level = ") : "";
        const std::string what = scanner.takeUntil(isTrace ? ") by " : " by ");
        const std::string user = scanner.takeUntil(" on ");
        const std::string time = scanner.takeUntil(".\nGenerated from generic/utils/src/");
        const std::string folder = scanner.takeUntil("/src/");
        const std::string file = scanner.takeUntil("/");
        const std::string line = scanner.takeUntil("/");
        const std::string function = scanner.takeUntil(":\n");

        const bool isComplete = scanner.isGood() && isTrace != isReport && !user.empty() &&
                                !line.empty() && hasForm(line, std::string(line.size(), '0')) &&
                                hasForm(value, std::string(value.size(), '0')) &&
                                hasForm(time, "0000-00-00 00:00:00");
        const bool isRight = folderOf(file) == folder && (isReport || subsystem == folder);
        return isComplete && isRight ? what + " " + file + "/" + function + ": " + scanner.getRest()
                                     : text;
    }

    // Whether a text has digits where its form has zeroes, and is the same elsewhere.
    static bool hasForm(const std::string& text, const std::string& form)
    {
        return std::equal(text.begin(), text.end(), form.begin(), form.end(),
                          [](char character, char pattern) {
                              return pattern == '0' ? character >= '0' && character <= '9'
                                                    : character == pattern;
                          });
    }

    static std::string folderOf(const std::string& file)
    {
        static const std::map<std::string, std::string> folders = {
            {"Command", "command"},        {"NoOpCommand", "command"},
            {"Macro", "command"},          {"Queue", "queue"},
            {"WriteCommand", "queue"},     {"Task", "task"},
            {"TerminateTaskMacro", "task"}};
        const auto found = folders.find(file);
        return found == folders.end() ? std::string() : found->second;
    }

    const ConfigDirectory m_emptyConfiguration;  // before the first flag
    utils::flag::Flags& m_flags = singleton<utils::flag::Flags>();

    std::mutex m_mutex;
    std::vector<Line> m_lines;
    Listener<utils::flag::TraceMsg> m_traces{*this};
    Listener<utils::error::Error> m_errors{*this};
};

}  // namespace test

#endif
