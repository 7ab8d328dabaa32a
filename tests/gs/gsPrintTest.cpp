// Printing of subjects and observers.
//
// - output() and the stream operators
// - trees of observers, and of subjects
// - objects that are both are followed; circles end
// - depth costs no stack

#include <gtest/gtest.h>

#include <iomanip>
#include <memory>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <utils/gsSubject.h>

#include "err/RecordingStrategy.h"
#include "gs/Actors.h"
#include "support/ConfigDirectory.h"

namespace
{

using test::Observer;
using test::Subject;
using utils::Gs_Aspect;
using utils::Gs_Observer;
using utils::Gs_Subject;

class GsPrint : public testing::Test
{
  protected:
    static std::string treeOf(const Gs_Subject* subjectPtr)
    {
        std::ostringstream os;
        Gs_Subject::printObservers(subjectPtr, os);
        return os.str();
    }

    static std::string treeOf(const Gs_Observer* observerPtr)
    {
        std::ostringstream os;
        Gs_Observer::printSubjects(observerPtr, os);
        return os.str();
    }

    const test::ConfigDirectory m_config;
    const test::RecordingErrStrategy m_errors;
    Gs_Aspect m_level{"Level"};
    Gs_Aspect m_phase{"Phase"};
};

// Both a subject and an observer.
class Node : public Gs_Subject, public Gs_Observer
{
  public:
    explicit Node(std::string name) : m_name(std::move(name)) {}
    void output(std::ostream& os) const override { Gs_Subject::output(os); }
    const std::string& getName() const override { return m_name; }

  private:
    std::string m_name;
};

TEST_F(GsPrint, SubjectWithoutObservers)
{
    Subject subject("mixer");
    std::ostringstream os;
    subject.output(os);
    EXPECT_EQ(os.str(), "Subject (mixer)    Observer --none--  ");
}

TEST_F(GsPrint, SubjectThatHasNoObserversLeft)
{
    Subject subject("mixer");
    Observer observer("panel");
    subject.attach(&observer, &m_level, 1);
    subject.detachAll();
    std::ostringstream os;
    subject.output(os);
    EXPECT_EQ(os.str(), "Subject (mixer)    Observer --none--  ");
}

TEST_F(GsPrint, SubjectWithObservers)
{
    Gs_Aspect aspects[] = {Gs_Aspect("Low"), Gs_Aspect("High")};
    Subject subject("mixer");
    Observer panel("panel");
    Observer log("log");
    subject.attach(&panel, &aspects[1], 0);
    subject.attach(&panel, &aspects[0], 4294967295U);
    subject.attach(&log, &aspects[0], 2);
    subject.attach(&panel, &aspects[0], 2);
    std::ostringstream os;
    EXPECT_EQ(&(os << subject), &os);
    EXPECT_EQ(os.str(),
              "Subject (mixer)"
              "    Observer (log) Priority (2) Aspect (Low)"
              "    Observer (panel) Priority (2) Aspect (Low)"
              "    Observer (panel) Priority (4294967295) Aspect (Low)"
              "    Observer (panel) Priority (0) Aspect (High)");
}

TEST_F(GsPrint, NullPointersHaveNames)
{
    Subject subject("mixer");
    subject.insertObserver(nullptr, nullptr, 1, new Gs_Observer);
    std::ostringstream os;
    os << subject;
    EXPECT_EQ(os.str(), "Subject (mixer)    Observer (null) Priority (1) Aspect (null)");
    EXPECT_EQ(treeOf(&subject), "base subject: mixer\nobservers:\n\tnull\n");
}

TEST_F(GsPrint, ObserverWithoutSubjects)
{
    const Observer observer("panel");
    std::ostringstream os;
    observer.output(os);
    EXPECT_EQ(os.str(), "Observer (panel)    Subject --none-- ");
}

TEST_F(GsPrint, ObserverWithSubjects)
{
    Subject subjects[] = {Subject("low"), Subject("high")};
    Observer observer("panel");
    subjects[1].attach(&observer, &m_level, 1);
    subjects[0].attach(&observer, &m_level, 1);
    subjects[0].attach(&observer, &m_level, 2);
    std::ostringstream os;
    EXPECT_EQ(&(os << observer), &os);
    EXPECT_EQ(os.str(), "Observer (panel)    Subject (low)    Subject (high)");
}

TEST_F(GsPrint, OutputIgnoresTheTargetsFormat)
{
    Subject subject("mixer");
    Observer observer("panel");
    subject.attach(&observer, &m_level, 16);
    std::ostringstream os;
    os << std::hex << std::showbase << std::setfill('*') << std::setw(99);
    os << subject << observer;
    EXPECT_EQ(os.str(),
              "Subject (mixer)    Observer (panel) Priority (16) Aspect (Level)"
              "Observer (panel)    Subject (mixer)");
}

TEST_F(GsPrint, NothingForNull)
{
    EXPECT_EQ(treeOf(static_cast<const Gs_Subject*>(nullptr)), "");
    EXPECT_EQ(treeOf(static_cast<const Gs_Observer*>(nullptr)), "");
}

TEST_F(GsPrint, NothingWithoutAttachments)
{
    Subject subject("mixer");
    Observer observer("panel");
    EXPECT_EQ(treeOf(&subject), "");
    EXPECT_EQ(treeOf(&observer), "");
    subject.attach(&observer, &m_level, 1);
    subject.detachAll();
    EXPECT_EQ(treeOf(&subject), "");
    EXPECT_EQ(treeOf(&observer), "");
}

TEST_F(GsPrint, ListOfObservers)
{
    Subject subject("mixer");
    Observer panel("panel");
    Observer log("log");
    subject.attach(&log, &m_level, 2);
    subject.attach(&panel, &m_level, 1);
    subject.attach(&panel, &m_level, 3);
    EXPECT_EQ(treeOf(&subject), "base subject: mixer\nobservers:\n\tpanel\n\tlog\n\tpanel\n");
}

TEST_F(GsPrint, ListOfSubjects)
{
    Subject subjects[] = {Subject("low"), Subject("high")};
    Observer panel("panel");
    subjects[1].attach(&panel, &m_level, 1);
    subjects[0].attach(&panel, &m_level, 1);
    EXPECT_EQ(treeOf(&panel), "base observer: panel\nsubjects:\n\tlow\n\thigh\n");
}

TEST_F(GsPrint, ObserversThatAreSubjectsFollowInTheOrderOfAddresses)
{
    Node nodes[] = {Node("a"), Node("b"), Node("c")};
    Observer panel("panel");
    Subject subject("mixer");
    subject.attach(&nodes[2], &m_level, 1);
    subject.attach(&nodes[0], &m_level, 2);
    subject.attach(&nodes[2], &m_level, 3);
    subject.attach(&nodes[1], &m_level, 4);
    nodes[0].attach(&panel, &m_level, 1);
    nodes[2].attach(&nodes[1], &m_level, 1);
    EXPECT_EQ(treeOf(&subject),
              "base subject: mixer\nobservers:\n\tc\n\ta\n\tc\n\tb\n"
              "base subject: a\nobservers:\n\tpanel\n"
              "base subject: c\nobservers:\n\tb\n");
}

TEST_F(GsPrint, SubjectsThatAreObserversFollow)
{
    Node node("node");
    Observer panel("panel");
    Subject subject("mixer");
    subject.attach(&node, &m_level, 1);
    node.attach(&panel, &m_level, 1);
    EXPECT_EQ(treeOf(&panel),
              "base observer: panel\nsubjects:\n\tnode\n"
              "base observer: node\nsubjects:\n\tmixer\n");
}

TEST_F(GsPrint, WhatIsReachedTwiceIsPrintedTwice)
{
    Node nodes[] = {Node("left"), Node("right"), Node("bottom")};
    Observer panel("panel");
    Subject subject("mixer");
    subject.attach(&nodes[0], &m_level, 1);
    subject.attach(&nodes[1], &m_level, 1);
    nodes[0].attach(&nodes[2], &m_level, 1);
    nodes[1].attach(&nodes[2], &m_level, 1);
    nodes[2].attach(&panel, &m_level, 1);
    EXPECT_EQ(treeOf(&subject),
              "base subject: mixer\nobservers:\n\tleft\n\tright\n"
              "base subject: left\nobservers:\n\tbottom\n"
              "base subject: bottom\nobservers:\n\tpanel\n"
              "base subject: right\nobservers:\n\tbottom\n"
              "base subject: bottom\nobservers:\n\tpanel\n");
}

TEST_F(GsPrint, SubjectsThatObserveEachOther)
{
    Node first("first");
    Node second("second");
    first.attach(&second, &m_level, 1);
    second.attach(&first, &m_level, 1);
    const Gs_Subject* const subjectPtr = &first;
    EXPECT_EQ(treeOf(subjectPtr),
              "base subject: first\nobservers:\n\tsecond\n"
              "base subject: second\nobservers:\n\tfirst\n");
    const Gs_Observer* const observerPtr = &first;
    EXPECT_EQ(treeOf(observerPtr),
              "base observer: first\nsubjects:\n\tsecond\n"
              "base observer: second\nsubjects:\n\tfirst\n");
}

TEST_F(GsPrint, SubjectThatObservesItself)
{
    Node node("node");
    node.attach(&node, &m_level, 1);
    const Gs_Subject* const subjectPtr = &node;
    EXPECT_EQ(treeOf(subjectPtr), "base subject: node\nobservers:\n\tnode\n");
}

// Recursion would need some hundred bytes of stack for each.
TEST_F(GsPrint, LongChain)
{
    constexpr std::size_t LENGTH = 200000;
    std::vector<std::unique_ptr<Node>> nodes;
    for (std::size_t i = 0; i < LENGTH; ++i)
    {
        nodes.push_back(std::make_unique<Node>("n"));
        if (i > 0)
        {
            nodes[i - 1]->attach(nodes[i].get(), &m_level, 1);
        }
    }
    const Gs_Subject* const subjectPtr = nodes[0].get();
    const std::string text = treeOf(subjectPtr);
    EXPECT_EQ(text.size(), (LENGTH - 1) * std::string("base subject: n\nobservers:\n\tn\n").size());
}

}  // namespace
