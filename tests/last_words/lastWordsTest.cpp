// Destructors that trace while memory runs out.
//
// - whichever allocation fails, the object is gone and the process goes on; what there was no memory
//   for stays unsaid

#include <gtest/gtest.h>

#include <memory>
#include <sstream>

#include <utils/utils.h>

#include "support/AllocationStandIn.h"
#include "support/ClogCapture.h"
#include "support/ConfigDirectory.h"

namespace
{

// More than a destructor under test asks for.
constexpr long NUM_ALLOCATIONS = 60;

constexpr int EVERYTHING = 9;

template <typename Flags>
void traceAll()
{
    utils::singleton::SingletonT<Flags>::getInstancePtr()->m_traceSteps.setValue(EVERYTHING);
}

class LastWords : public testing::Test
{
  protected:
    void SetUp() override
    {
        traceAll<utils::command::Flags>();
        traceAll<utils::queue::Flags>();
        traceAll<utils::task::Flags>();
        traceAll<utils::observer::Flags>();
        traceAll<utils::xml::Flags>();
        traceAll<utils::scpi::Flags>();
        auto& older = *utils::Std_Singleton<utils::flag::Gs_Flags>::getInstancePtr();
        older.m_traceSubjectSteps.setValue(EVERYTHING);
        older.m_traceObserverSteps.setValue(EVERYTHING);
        older.m_traceUpdateSteps.setValue(EVERYTHING);
    }

    // Ends what make() gives, each time with another allocation failing.
    template <typename Make>
    void endEachWithAnAllocationFailing(Make make)
    {
        for (long numToSucceed = 0; numToSucceed < NUM_ALLOCATIONS; ++numToSucceed)
        {
            auto object = make();
            test::setAllocationFailing(numToSucceed);
            object.reset();
            test::setAllocationFailing(-1);
        }
        const long numBefore = test::countAllocations();
        make().reset();
        EXPECT_GT(test::countAllocations(), numBefore);  // there was something to say
    }

    const test::ConfigDirectory m_config;
    const test::ClogCapture m_log;
};

TEST_F(LastWords, OfAMacroWithItsCommands)
{
    utils::queue::Queue queue("q", 1);
    endEachWithAnAllocationFailing(
        [&]
        {
            auto macro = std::make_unique<utils::command::Macro>("macro");
            macro->add(new utils::command::NoOpCommand);
            macro->add(new utils::queue::WriteCommand(&queue, macro.get(), 0));
            return macro;
        });
}

TEST_F(LastWords, OfAQueue)
{
    endEachWithAnAllocationFailing([] { return std::make_unique<utils::queue::Queue>("q", 1); });
}

// Not to be lost for want of a trace: AddressSanitizer reports the leak.
TEST_F(LastWords, OfAQueueWithAMacroThatDeletesItself)
{
    endEachWithAnAllocationFailing(
        []
        {
            auto queue = std::make_unique<utils::queue::Queue>("q", 1);
            queue->write(new utils::command::Macro("macro", false, true), 0);
            return queue;
        });
}

TEST_F(LastWords, OfATaskThatWasNotStarted)
{
    endEachWithAnAllocationFailing(
        [] { return std::make_unique<utils::task::Task>("t", nullptr, 1); });
}

TEST_F(LastWords, OfATerminateMacro)
{
    utils::queue::Queue queue("q", 1);
    endEachWithAnAllocationFailing(
        [&] { return std::make_unique<utils::task::TerminateTaskMacro>(&queue); });
}

TEST_F(LastWords, OfAnEvent)
{
    endEachWithAnAllocationFailing([] { return std::make_unique<utils::observer::Event>(); });
}

TEST_F(LastWords, OfAnXmlDocument)
{
    endEachWithAnAllocationFailing(
        [] { return std::make_unique<utils::xml::DocumentForParsing>("<a/>"); });
}

TEST_F(LastWords, OfAnXmlParser)
{
    const utils::xml::DocumentForParsing document("<a/>");
    endEachWithAnAllocationFailing([&] { return std::make_unique<utils::xml::Parser>(&document); });
}

TEST_F(LastWords, OfAScpiString)
{
    endEachWithAnAllocationFailing(
        [] { return std::make_unique<utils::scpi::ScpiString>("MEASure:VOLTage"); });
}

TEST_F(LastWords, OfASubjectThatIsObserved)
{
    utils::Gs_Observer observer;
    endEachWithAnAllocationFailing(
        [&]
        {
            auto subject = std::make_unique<utils::Gs_Subject>();
            subject->attach(&observer, nullptr, 1);
            return subject;
        });
}

// The attachment goes with the observer, also when that can not be traced.
TEST_F(LastWords, OfAnObserver)
{
    utils::Gs_Subject subject;
    endEachWithAnAllocationFailing(
        [&]
        {
            auto observer = std::make_unique<utils::Gs_Observer>();
            subject.attach(observer.get(), nullptr, 1);
            return observer;
        });
    std::ostringstream text;
    text << subject;
    EXPECT_EQ(text.str(), "Subject (N5utils10Gs_SubjectE)    Observer --none--  ");
}

}  // namespace
