#ifndef TESTS_SUPPORT_STEPRECORDER_H
#define TESTS_SUPPORT_STEPRECORDER_H

#include <map>
#include <mutex>
#include <regex>
#include <sstream>
#include <string>
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

    static std::string shorten(const std::string& text)
    {
        static const std::string when = " by [^ ]+ on \\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\\.";
        static const std::regex trace(
            "!TRACE \\(utils::(\\w+)::m_traceSteps = \\d+; trace level = (\\d+)\\)" + when);
        static const std::regex error("!([A-Z]+: \\w+)" + when);
        static const std::regex place(
            "Generated from generic/utils/src/(\\w+)/src/((\\w+)/)\\d+/(~?\\w+:)");

        std::istringstream lines(text);
        std::string header;
        std::string location;
        std::getline(lines, header);
        std::getline(lines, location);
        if (!lines)
        {
            return text;
        }
        const std::string words = text.substr(header.size() + location.size() + 2);

        std::smatch from;
        std::smatch what;
        if (!std::regex_match(location, from, place) || folderOf(from[3]) != from[1])
        {
            return text;
        }
        if (std::regex_match(header, what, trace) && what[1] == from[1])
        {
            return what[2].str() + " " + from[2].str() + from[4].str() + " " + words;
        }
        if (std::regex_match(header, what, error))
        {
            return what[1].str() + " " + from[2].str() + from[4].str() + " " + words;
        }
        return text;
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
