#ifndef TESTS_EXTERNAL_PLATFORM_SCENARIO_H
#define TESTS_EXTERNAL_PLATFORM_SCENARIO_H

#include <string>
#include <vector>

#include <utils/queue/WriteCommand.h>
#include <utils/task/Task.h>

#include "FaultyPlatform.h"
#include "support/Commands.h"

namespace test
{

/// What happened, a word each: what ran where, and the operations with their results, '+' or '-'.
///
/// Thread safety: one thread at a time; in a scenario no two have anything to do at once.
class Story
{
  public:
    void add(const std::string& word)
    {
        m_text += m_text.empty() ? "" : " ";
        m_text += word;
    }

    // Notes a result when everything has settled.
    bool addResult(const std::string& what, bool isSuccess)
    {
        faulty_platform::awaitIdle();
        add(what + (isSuccess ? "+" : "-"));
        return isSuccess;
    }

    const std::string& getText() const { return m_text; }

  private:
    std::string m_text;
};

/// Macros that delete themselves; those that nobody deleted are deleted at the end.
class Macros
{
  public:
    class TrackedMacro : public utils::command::Macro
    {
      public:
        TrackedMacro(const std::string& name, Macros& macros)
            : Macro(name, false, true), m_macros(macros)
        {
            m_macros.m_living.push_back(this);
        }
        ~TrackedMacro() override { std::erase(m_macros.m_living, this); }

      private:
        Macros& m_macros;
    };

    ~Macros()
    {
        while (!m_living.empty())
        {
            delete m_living.back();
        }
    }

    TrackedMacro* make(const std::string& name) { return new TrackedMacro(name, *this); }

    std::vector<std::string> getNames() const
    {
        std::vector<std::string> names;
        for (const utils::command::Macro* const macro : m_living)
        {
            names.push_back(macro->getName());
        }
        return names;
    }

  private:
    std::vector<utils::command::Macro*> m_living;
};

/// A task as it stands whose thread, when told to end, ends only when it is waited for. So whether
/// it is joined does not depend on who is faster.
class PatientTask : public utils::task::Task
{
  public:
    using Task::Task;
    ~PatientTask() override { cleanUp(); }
    void finalize(const int& exitStatus) override
    {
        if (exitStatus == 0)
        {
            faulty_platform::awaitJoin();
        }
    }
};

/// One life of two queues and two tasks, in the same order at every run.
class Scenario
{
  public:
    void run()
    {
        {
            utils::queue::Queue input("input", 4);
            utils::queue::Queue store("store", 4);
            PatientTask worker("worker", &input, 4);
            PatientTask helper("helper", &input, 4);
            start(worker);
            start(helper);
            feed(input, *helper.getEventQueuePtr());
            fill(store);
            empty(store);
            end(worker);
            start(worker);
            m_story.addResult("end", helper.terminate(true));
        }
        faulty_platform::awaitIdle();
        for (const std::string& name : m_macros.getNames())
        {
            m_story.add("left:" + name);
        }
    }

    const std::string& getStory() const { return m_story.getText(); }

  private:
    void start(utils::task::Task& task)
    {
        m_story.addResult("start", task.start(nullptr, nullptr, false));
    }

    // A macro that one task hands over to another.
    void feed(utils::queue::Queue& queue, utils::queue::Queue& otherQueue)
    {
        utils::command::Macro* const macro = m_macros.make("job");
        addWord(*macro, "one-half");
        macro->add(new utils::queue::WriteCommand(&otherQueue, macro, 0));
        addWord(*macro, "other-half");
        if (!m_story.addResult("feed", queue.write(macro, 0)))
        {
            delete macro;
        }
    }

    void addWord(utils::command::Macro& macro, const std::string& word)
    {
        macro.add(new FunctionCommand("word",
                                      [this, word]
                                      {
                                          faulty_platform::awaitIdle();
                                          m_story.add(word);
                                          return 0;
                                      }));
    }

    void fill(utils::queue::Queue& queue)
    {
        for (const char* const name : {"first", "second"})
        {
            utils::command::Macro* const macro = m_macros.make(name);
            if (!m_story.addResult("put", queue.write(macro, 0)))
            {
                delete macro;
            }
        }
    }

    // Takes one macro out.
    void empty(utils::queue::Queue& queue)
    {
        utils::command::Macro* macro = nullptr;
        if (m_story.addResult("take", queue.read(macro, 0)))
        {
            delete macro;
        }
    }

    void end(utils::task::Task& task)
    {
        const bool isEnding = m_story.addResult("end", task.terminate(false));
        if (isEnding ||
            task.getState() == utils::task::Task::NOT_RUNNING)  // else it would run on for ever
        {
            int exitStatus = 99;
            const bool isJoined = task.join(exitStatus);
            m_story.addResult("join" + std::to_string(exitStatus), isJoined);
        }
    }

    Macros m_macros;
    Story m_story;
};

}  // namespace test

#endif
