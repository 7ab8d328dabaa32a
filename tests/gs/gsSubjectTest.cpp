// Attaching, detaching and notifying.
//
// - updates come in the order of priorities, then of attachment, for one aspect at a time
// - the function that is called: the virtual update(), another one, a virtual one of a base
// - null as the aspect attaches at the default aspect
// - duplicate attachments are made, updated twice and taken back one by one
// - detach(), detachFirst(), detachAll() take back what they should, in their order
// - isObserverAttached()
// - the table operations
// - copies have no attachments; assignment is ruled out
// - ticks

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

#include <utils/gsSubject.h>
#include <utils/gsUpdateVoid.h>

#include "err/RecordingStrategy.h"
#include "gs/Actors.h"
#include "support/ConfigDirectory.h"

namespace
{

using test::Observer;
using test::Subject;
using testing::ElementsAre;
using testing::IsEmpty;
using utils::Gs_Aspect;
using utils::Gs_Observer;
using utils::Gs_Subject;
using utils::Gs_UpdateVoid;

class GsSubject : public testing::Test
{
  protected:
    // An observer that writes its name into m_order when it is updated.
    Observer makeObserver(const std::string& name)
    {
        return Observer(name, [this, name] { m_order.push_back(name); });
    }

    const test::ConfigDirectory m_config;
    const test::RecordingErrStrategy m_errors;
    std::vector<std::string> m_order;
    Gs_Aspect m_level{"Level"};
    Gs_Aspect m_phase{"Phase"};
    Subject m_subject{"mixer"};
};

TEST_F(GsSubject, LowestPriorityIsUpdatedFirst)
{
    Observer first = makeObserver("first");
    Observer second = makeObserver("second");
    Observer third = makeObserver("third");
    m_subject.attach(&second, &m_level, 2);
    m_subject.attach(&first, &m_level, 0);
    m_subject.attach(&third, &m_level, 2);
    m_subject.notify(&m_level);
    EXPECT_THAT(m_order, ElementsAre("first", "second", "third"));
}

TEST_F(GsSubject, PrioritiesAreUnsigned)
{
    Observer last = makeObserver("last");
    Observer first = makeObserver("first");
    m_subject.attach(&last, &m_level, 4294967295U);
    m_subject.attach(&first, &m_level, 2147483648U);
    m_subject.notify(&m_level);
    EXPECT_THAT(m_order, ElementsAre("first", "last"));
    EXPECT_TRUE(m_subject.isObserverAttached(&last, &m_level, 4294967295U));
}

TEST_F(GsSubject, OnlyTheAspectsObserversAreUpdated)
{
    Observer level = makeObserver("level");
    Observer phase = makeObserver("phase");
    m_subject.attach(&level, &m_level, 1);
    m_subject.attach(&phase, &m_phase, 1);
    m_subject.notify(&m_phase);
    EXPECT_THAT(m_order, ElementsAre("phase"));
}

TEST_F(GsSubject, NobodyIsUpdatedForAnUnusedAspect)
{
    Observer observer = makeObserver("level");
    m_subject.notify(&m_level);
    m_subject.attach(&observer, &m_level, 1);
    m_subject.notify(&m_phase);
    m_subject.notify(Gs_Subject::m_defaultAspectPtr);
    m_subject.notify(&m_phase);
    EXPECT_THAT(m_order, IsEmpty());
    EXPECT_THAT(m_errors.getTexts(), IsEmpty());
}

TEST_F(GsSubject, NullAspectAttachesAtTheDefaultAspect)
{
    Observer observer = makeObserver("default");
    m_subject.attach(&observer, nullptr, 1);
    EXPECT_TRUE(m_subject.isObserverAttached(&observer, Gs_Subject::m_defaultAspectPtr, 1));
    m_subject.notify(utils::Std_Singleton<utils::Gs_ChangeAspect>::getInstancePtr());
    EXPECT_THAT(m_order, ElementsAre("default"));
    EXPECT_THAT(m_errors.getTexts(), IsEmpty());
}

TEST_F(GsSubject, DefaultAspectIsAttachedByItsPointer)
{
    Observer observer = makeObserver("default");
    m_subject.attach(&observer, Gs_Subject::m_defaultAspectPtr, 1);
    m_subject.notify(Gs_Subject::m_defaultAspectPtr);
    m_subject.detach(&observer, Gs_Subject::m_defaultAspectPtr, 1);
    m_subject.notify(Gs_Subject::m_defaultAspectPtr);
    EXPECT_THAT(m_order, ElementsAre("default"));
}

TEST_F(GsSubject, AnotherFunctionIsCalledInsteadOfUpdate)
{
    Observer observer("o");
    m_subject.attach(&observer, &Observer::react, &m_level, 1);
    m_subject.notify(&m_level);
    EXPECT_EQ(observer.m_numReactions, 1);
    EXPECT_EQ(observer.m_numUpdates, 0);
}

TEST_F(GsSubject, VirtualFunctionIsCalledOnTheObserversType)
{
    Observer observer("o");
    m_subject.attach<Gs_Observer>(&observer, &Gs_Observer::update, &m_level, 1);
    m_subject.notify(&m_level);
    EXPECT_EQ(observer.m_numUpdates, 1);
}

TEST_F(GsSubject, TwoFunctionsOfOneObserver)
{
    Observer observer("o");
    m_subject.attach(&observer, &m_level, 1);
    m_subject.attach(&observer, &Observer::react, &m_level, 2);
    m_subject.notify(&m_level);
    EXPECT_EQ(observer.m_numUpdates, 1);
    EXPECT_EQ(observer.m_numReactions, 1);
}

// The observer is a second base, so that its address differs from the object's.
struct Something
{
    virtual ~Something() = default;
    int m_something = 0;
};
class Offset : public Something, public Gs_Observer
{
  public:
    void react() { ++m_numReactions; }
    int m_numReactions = 0;
};
class Virtual : public Something, public virtual Gs_Observer
{
  public:
    void react() { ++m_numReactions; }
    int m_numReactions = 0;
};

TEST_F(GsSubject, ObserverMayBeAnyBase)
{
    auto offset = std::make_unique<Offset>();
    auto derived = std::make_unique<Virtual>();
    m_subject.attach(offset.get(), &Offset::react, &m_level, 1);
    m_subject.attach(derived.get(), &Virtual::react, &m_level, 1);
    m_subject.notify(&m_level);
    EXPECT_EQ(offset->m_numReactions, 1);
    EXPECT_EQ(derived->m_numReactions, 1);
    EXPECT_TRUE(m_subject.isObserverAttached(offset.get(), &m_level, 1));
    offset.reset();
    derived.reset();
    m_subject.notify(&m_level);
}

TEST_F(GsSubject, DuplicateAttachmentIsUpdatedTwice)
{
    Observer observer("o");
    m_subject.attach(&observer, &m_level, 1);
    m_subject.attach(&observer, &m_level, 1);
    EXPECT_EQ(m_errors.getTexts().size(), 1U);
    m_subject.notify(&m_level);
    EXPECT_EQ(observer.m_numUpdates, 2);
}

TEST_F(GsSubject, DetachTakesBackTheFirstOfDuplicates)
{
    Observer observer("o");
    m_subject.attach(&observer, &m_level, 1);
    m_subject.attach(&observer, &Observer::react, &m_level, 1);
    m_subject.detach(&observer, &m_level, 1);
    m_subject.notify(&m_level);
    EXPECT_EQ(observer.m_numUpdates, 0);
    EXPECT_EQ(observer.m_numReactions, 1);
    EXPECT_TRUE(m_subject.isObserverAttached(&observer, &m_level, 1));
    m_subject.detach(&observer, &m_level, 1);
    EXPECT_FALSE(m_subject.isObserverAttached(&observer, &m_level, 1));
}

TEST_F(GsSubject, SameObserverElsewhereIsNoDuplicate)
{
    Observer observer("o");
    Subject other("other");
    m_subject.attach(&observer, &m_level, 1);
    m_subject.attach(&observer, &m_level, 2);
    m_subject.attach(&observer, &m_phase, 1);
    other.attach(&observer, &m_level, 1);
    EXPECT_THAT(m_errors.getTexts(), IsEmpty());
}

TEST_F(GsSubject, AttachmentIsFoundWhereItIs)
{
    Observer observer("o");
    Observer other("p");
    EXPECT_FALSE(m_subject.isObserverAttached(&observer, &m_level, 1));
    m_subject.attach(&observer, &m_level, 1);
    EXPECT_TRUE(m_subject.isObserverAttached(&observer, &m_level, 1));
    EXPECT_FALSE(m_subject.isObserverAttached(&observer, &m_level, 2));
    EXPECT_FALSE(m_subject.isObserverAttached(&observer, &m_phase, 1));
    EXPECT_FALSE(m_subject.isObserverAttached(&other, &m_level, 1));
    EXPECT_FALSE(m_subject.isObserverAttached(nullptr, &m_level, 1));
    EXPECT_FALSE(m_subject.isObserverAttached(&observer, nullptr, 1));
}

TEST_F(GsSubject, DetachFirstTakesBackTheLowestPriority)
{
    Observer observer("o");
    m_subject.attach(&observer, &m_level, 3);
    m_subject.attach(&observer, &m_level, 1);
    m_subject.attach(&observer, &m_level, 2);
    m_subject.detachFirst(&observer);
    EXPECT_FALSE(m_subject.isObserverAttached(&observer, &m_level, 1));
    EXPECT_TRUE(m_subject.isObserverAttached(&observer, &m_level, 2));
    EXPECT_TRUE(m_subject.isObserverAttached(&observer, &m_level, 3));
}

TEST_F(GsSubject, DetachFirstTakesBackTheLowestAspectAddress)
{
    Gs_Aspect aspects[] = {Gs_Aspect("low"), Gs_Aspect("high")};
    Observer observer("o");
    m_subject.attach(&observer, &aspects[1], 0);
    m_subject.attach(&observer, &aspects[0], 9);
    m_subject.detachFirst(&observer);
    EXPECT_FALSE(m_subject.isObserverAttached(&observer, &aspects[0], 9));
    EXPECT_TRUE(m_subject.isObserverAttached(&observer, &aspects[1], 0));
}

TEST_F(GsSubject, DetachFirstOfAStrangerDoesNothing)
{
    Observer observer("o");
    Observer stranger("p");
    m_subject.detachFirst(&stranger);
    m_subject.attach(&observer, &m_level, 1);
    m_subject.detachFirst(&stranger);
    m_subject.detachFirst(nullptr);
    EXPECT_TRUE(m_subject.isObserverAttached(&observer, &m_level, 1));
    EXPECT_THAT(m_errors.getTexts(), IsEmpty());
}

TEST_F(GsSubject, DetachAllOfOneObserver)
{
    Observer observer("o");
    Observer other("p");
    m_subject.detachAll(&observer);
    m_subject.attach(&observer, &m_level, 1);
    m_subject.attach(&other, &m_level, 1);
    m_subject.attach(&observer, &m_level, 1);
    m_subject.attach(&observer, &m_phase, 2);
    m_subject.detachAll(&observer);
    m_subject.notify(&m_level);
    m_subject.notify(&m_phase);
    EXPECT_EQ(observer.m_numUpdates, 0);
    EXPECT_EQ(other.m_numUpdates, 1);
    EXPECT_FALSE(m_subject.isObserverAttached(&observer, &m_phase, 2));
}

TEST_F(GsSubject, DetachAllOfEverybody)
{
    Observer observer("o");
    Observer other("p");
    m_subject.detachAll();
    m_subject.attach(&observer, &m_level, 1);
    m_subject.attach(&other, &m_level, 2);
    m_subject.attach(&observer, &m_phase, 1);
    m_subject.attach(&other, nullptr, 1);
    m_subject.detachAll();
    for (Gs_Aspect* const aspectPtr : {&m_level, &m_phase})
    {
        m_subject.notify(aspectPtr);
    }
    m_subject.notify(Gs_Subject::m_defaultAspectPtr);
    EXPECT_EQ(observer.m_numUpdates, 0);
    EXPECT_EQ(other.m_numUpdates, 0);
}

TEST_F(GsSubject, CanBeAttachedAgain)
{
    Observer observer("o");
    m_subject.attach(&observer, nullptr, 1);
    m_subject.detachAll();
    m_subject.attach(&observer, nullptr, 1);
    m_subject.notify(Gs_Subject::m_defaultAspectPtr);
    EXPECT_EQ(observer.m_numUpdates, 1);
}

class Updater : public Gs_Observer
{
  public:
    explicit Updater(int& numAlive) : m_numAlive(numAlive) { ++m_numAlive; }
    ~Updater() override { --m_numAlive; }
    void update() override { ++m_numUpdates; }
    int m_numUpdates = 0;

  private:
    int& m_numAlive;
};

TEST_F(GsSubject, InsertedUpdaterIsUpdatedAndOwned)
{
    int numAlive = 0;
    Observer observer("o");
    auto* const updaterPtr = new Updater(numAlive);
    m_subject.insertObserver(&observer, &m_level, 1, updaterPtr);
    EXPECT_TRUE(m_subject.isObserverAttached(&observer, &m_level, 1));
    m_subject.notify(&m_level);
    EXPECT_EQ(updaterPtr->m_numUpdates, 1);
    EXPECT_EQ(observer.m_numUpdates, 0);
    m_subject.eraseObserver(&observer, &m_level, 1);
    EXPECT_EQ(numAlive, 0);
    EXPECT_FALSE(m_subject.isObserverAttached(&observer, &m_level, 1));
}

TEST_F(GsSubject, InsertedNullAspectIsAnAspectOfItsOwn)
{
    int numAlive = 0;
    Observer observer("o");
    auto* const updaterPtr = new Updater(numAlive);
    m_subject.insertObserver(&observer, nullptr, 1, updaterPtr);
    EXPECT_TRUE(m_subject.isObserverAttached(&observer, nullptr, 1));
    EXPECT_FALSE(m_subject.isObserverAttached(&observer, Gs_Subject::m_defaultAspectPtr, 1));
    m_subject.notify(nullptr);
    EXPECT_EQ(updaterPtr->m_numUpdates, 1);
    m_subject.eraseObserver(&observer, nullptr, 1);
    EXPECT_EQ(numAlive, 0);
}

TEST_F(GsSubject, UpdatersEndWithTheSubject)
{
    int numAlive = 0;
    Observer observer("o");
    {
        Gs_Subject subject;
        subject.insertObserver(&observer, &m_level, 1, new Updater(numAlive));
        subject.insertObserver(&observer, &m_level, 1, new Updater(numAlive));
        EXPECT_EQ(numAlive, 2);
    }
    EXPECT_EQ(numAlive, 0);
}

TEST_F(GsSubject, CopyHasNoAttachments)
{
    Observer observer("o");
    m_subject.attach(&observer, &m_level, 1);
    Subject copy(m_subject);
    EXPECT_FALSE(copy.isObserverAttached(&observer, &m_level, 1));
    copy.notify(&m_level);
    EXPECT_EQ(observer.m_numUpdates, 0);
    m_subject.notify(&m_level);
    EXPECT_EQ(observer.m_numUpdates, 1);
}

TEST_F(GsSubject, CopyOfAnObserverIsAttachedToNothing)
{
    Observer observer("o");
    m_subject.attach(&observer, &m_level, 1);
    {
        Observer copy(observer);
        EXPECT_FALSE(m_subject.isObserverAttached(&copy, &m_level, 1));
        std::ostringstream os;
        copy.output(os);
        EXPECT_EQ(os.str(), "Observer (o)    Subject --none-- ");
    }
    m_subject.notify(&m_level);
    EXPECT_EQ(observer.m_numUpdates, 1);
}

TEST_F(GsSubject, CannotBeAssigned)
{
    static_assert(!std::is_copy_assignable_v<Gs_Subject>);
    static_assert(!std::is_copy_assignable_v<Gs_Observer>);
    static_assert(!std::is_move_assignable_v<Gs_Subject>);
    static_assert(!std::is_copy_assignable_v<Subject>);
    static_assert(!std::is_copy_assignable_v<Observer>);
    static_assert(!std::is_copy_constructible_v<Gs_UpdateVoid<Gs_Observer>>);
    static_assert(std::is_copy_constructible_v<Gs_Subject>);
    static_assert(std::is_copy_constructible_v<Gs_Observer>);
}

TEST_F(GsSubject, TickIsZeroUnlessOverridden)
{
    class Clock : public Gs_Subject
    {
      public:
        unsigned int getTick() const override { return 42; }
    };
    EXPECT_EQ(Gs_Subject().getTick(), 0U);
    const Clock clock;
    const Gs_Subject& subject = clock;
    EXPECT_EQ(subject.getTick(), 42U);
}

TEST_F(GsSubject, PlainUpdateDoesNothing)
{
    Gs_Observer observer;
    observer.update();
    m_subject.attach(&observer, &m_level, 1);
    m_subject.notify(&m_level);
}

}  // namespace
