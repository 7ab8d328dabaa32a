#include <utils/gsObserver.h>

#include <ostream>

#include <utils/flagTrace.h>
#include <utils/gsFlags.h>
#include <utils/gsSubject.h>
#include <utils/singleton/NeverDestroyed.h>

#include "gs/PrintTree.h"
#include "gs/TypeName.h"
#include "internal/LastWords.h"
#include "internal/TextOutput.h"

namespace utils
{

namespace
{

const flag::Flag_Flag<int>* traceSteps()
{
    return flag::findGsFlag(&flag::Gs_Flags::m_traceObserverSteps);
}

}  // namespace

Gs_Observer::Gs_Observer()
{
    GENERIC_UTILS_OLDER_TRACE(traceSteps(), 2, "Constructing Gs_Observer");
}

Gs_Observer::Gs_Observer(const Gs_Observer& other)
{
    GENERIC_UTILS_OLDER_TRACE(traceSteps(), 2, "Copying Gs_Observer " << other.getName());
}

Gs_Observer::~Gs_Observer()
{
    GENERIC_UTILS_LAST_WORDS(
        GENERIC_UTILS_OLDER_TRACE(traceSteps(), 2, "Destructing Gs_Observer " << typeName(*this)));
    // The set is read anew each time, since detaching changes it.
    while (!m_subjects.empty())
    {
        Gs_Subject* const subjectPtr = *m_subjects.begin();
        const unsigned int numBefore = subjectPtr->countAttachments(this);
        try
        {
            subjectPtr->detachFirst(this);
        }
        catch (const std::bad_alloc&)
        {
            subjectPtr->eraseFirst(this);
        }
        const bool isStillKnown = m_subjects.contains(subjectPtr);
        if (isStillKnown && subjectPtr->countAttachments(this) == numBefore)
        {
            // The subject refuses, because it is in its destructor, or had no attachment.
            subjectPtr->forget(this);
            m_subjects.erase(subjectPtr);
        }
    }
}

void Gs_Observer::update() {}

void Gs_Observer::output(std::ostream& os) const
{
    std::string text = "Observer (" + getName() + ")";
    for (const Gs_Subject* const subjectPtr : m_subjects)
    {
        text += "    Subject (" + subjectPtr->getName() + ")";
    }
    if (m_subjects.empty())
    {
        text += "    Subject --none-- ";
    }
    writeText(os, text);
}

const std::string& Gs_Observer::getName() const
{
    return typeName(*this);
}

void Gs_Observer::insertSubject(Gs_Subject* subjectPtr)
{
    if (subjectPtr != nullptr)
    {
        m_subjects.insert(subjectPtr);
    }
}

void Gs_Observer::eraseSubject(Gs_Subject* subjectPtr)
{
    m_subjects.erase(subjectPtr);
}

const std::string& Gs_Observer::getNameOf(const Gs_Observer* observerPtr)
{
    static singleton::NeverDestroyed<std::string> nameOfNull("null");
    return observerPtr != nullptr ? observerPtr->getName() : nameOfNull.get();
}

void Gs_Observer::printSubjects(const Gs_Observer* observerPtr, std::ostream& os)
{
    const auto printOne = [&os](const Gs_Observer& observer)
    {
        std::set<const Gs_Observer*> below;
        if (observer.m_subjects.empty())
        {
            return below;
        }
        std::string text = "base observer: " + observer.getName() + "\nsubjects:\n";
        for (const Gs_Subject* const subjectPtr : observer.m_subjects)
        {
            text += toText("\t", subjectPtr->getName(), "\n");
            if (const auto* const observingPtr = dynamic_cast<const Gs_Observer*>(subjectPtr))
            {
                below.insert(observingPtr);
            }
        }
        writeText(os, text);
        return below;
    };
    printTree(observerPtr, printOne);
}

std::ostream& operator<<(std::ostream& os, const Gs_Observer& observer)
{
    observer.output(os);
    return os;
}

}  // namespace utils
