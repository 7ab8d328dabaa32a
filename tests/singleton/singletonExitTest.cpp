// Singletons while the process ends.
//
// - an instance is not destroyed at exit
// - static destructors may use an instance, and may be the first to ask for it
// - a thread that runs past main's end may do both

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <latch>
#include <memory>
#include <string>
#include <thread>

#include <utils/singleton/SingletonT.h>

namespace
{

using testing::ExitedWithCode;
using utils::singleton::SingletonT;

class SingletonExit : public testing::Test
{
  protected:
    void SetUp() override { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};

void say(const std::string& text)
{
    std::fprintf(stderr, "%s\n", text.c_str());
}

template <int Number>
struct Talking
{
    Talking() { say("constructed " + std::to_string(Number)); }
    ~Talking() { say("destroyed " + std::to_string(Number)); }

    // Longer than a short string, so that a destroyed one would be seen by AddressSanitizer.
    std::string m_text = "a text that does not fit into the string object itself";
};

TEST_F(SingletonExit, InstanceIsNeverDestroyed)
{
    EXPECT_EXIT(
        {
            SingletonT<Talking<1>>::getInstancePtr();
            std::exit(0);
        },
        ExitedWithCode(0), "^constructed 1\n$");
}

template <typename Action>
struct AtDestruction
{
    explicit AtDestruction(Action action) : m_action(action) {}
    ~AtDestruction() { m_action(); }

    Action m_action;
};

// The static object is complete before the singleton is asked for, so it is destroyed after
// whatever the singleton had registered for the exit.
TEST_F(SingletonExit, StaticDestructorUsesAnInstance)
{
    EXPECT_EXIT(
        {
            static const AtDestruction user(
                [] { say("still: " + SingletonT<Talking<2>>::getInstancePtr()->m_text); });
            SingletonT<Talking<2>>::getInstancePtr();
            std::exit(0);
        },
        ExitedWithCode(0),
        "^constructed 2\nstill: a text that does not fit into the string object itself\n$");
}

TEST_F(SingletonExit, StaticDestructorIsTheFirstToAsk)
{
    EXPECT_EXIT(
        {
            static const AtDestruction user([] { SingletonT<Talking<3>>::getInstancePtr(); });
            std::exit(0);
        },
        ExitedWithCode(0), "^constructed 3\n$");
}

// Two singletons: one created before main ends, one created by the thread while static
// destructors run. The latches make sure that the thread works during teardown.
TEST_F(SingletonExit, ThreadRunningPastMainsEndUsesInstances)
{
    EXPECT_EXIT(
        {
            static std::latch teardownBegan(1);
            static std::latch threadIsDone(1);
            static const AtDestruction teardown(
                []
                {
                    teardownBegan.count_down();
                    threadIsDone.wait();
                });
            SingletonT<Talking<4>>::getInstancePtr();
            std::thread(
                []
                {
                    teardownBegan.wait();
                    say(SingletonT<Talking<4>>::getInstancePtr()->m_text);
                    SingletonT<Talking<5>>::getInstancePtr();
                    threadIsDone.count_down();
                })
                .detach();
            std::exit(0);
        },
        ExitedWithCode(0),
        "^constructed 4\na text that does not fit into the string object itself\n"
        "constructed 5\n$");
}

}  // namespace
