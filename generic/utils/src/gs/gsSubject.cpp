#include <utils/gsSubject.h>

#include <set>

#include <utils/errNullPtrError.h>
#include <utils/flagTrace.h>
#include <utils/gsFlags.h>

#include "gs/PrintTree.h"
#include "gs/SubjectTexts.h"
#include "gs/TypeName.h"
#include "gs/UpdateTracing.h"
#include "gs/findAttachment.h"
#include "internal/LastWords.h"
#include "internal/OlderReport.h"
#include "internal/TextOutput.h"

namespace utils
{

template void Gs_Subject::attach<Gs_Observer>(Gs_Observer*, void (Gs_Observer::*)(), Gs_Aspect*,
                                              unsigned int);

const Gs_DefaultAspectPtr Gs_Subject::m_defaultAspectPtr{};

namespace
{

// The lines that traces and reports have always named.
constexpr int CONSTRUCTION_LINE = 26;
constexpr int DESTRUCTION_LINE = 55;
constexpr int DETACH_NULL_OBSERVER_LINE = 197;
constexpr int DETACH_NULL_ASPECT_LINE = 203;
constexpr int DETACH_LINE = 205;
constexpr int NOTIFY_NULL_ASPECT_LINE = 501;

constexpr const char* ATTACH_FILE = "generic/utils/include/utils/gsSubjectT";
constexpr int ATTACH_NULL_OBSERVER_LINE = 34;
constexpr int ATTACH_LINE = 37;

constexpr SourceLocation at(int line, const char* function)
{
    return {__FILE__, line, function};
}

constexpr SourceLocation attachAt(int line)
{
    return {ATTACH_FILE, line, "attach"};
}

const flag::Flag_Flag<int>* traceSteps()
{
    return flag::findGsFlag(&flag::Gs_Flags::m_traceSubjectSteps);
}

void reportNull(const SourceLocation& where, const char* pointerName)
{
    err::report<err::Err_NullPtrError>(where, false, pointerName);
}

}  // namespace

Gs_Subject::Gs_Subject()
{
    GENERIC_UTILS_OLDER_TRACE_AT(at(CONSTRUCTION_LINE, "Gs_Subject"), traceSteps(), 2,
                                 "Constructing Gs_Subject");
}

Gs_Subject::Gs_Subject(const Gs_Subject& other)
{
    GENERIC_UTILS_OLDER_TRACE(traceSteps(), 2, "Copying Gs_Subject " << other.getName());
}

Gs_Subject::~Gs_Subject()
{
    m_inDestructor = true;
    for (Operation* operation = m_operationPtr; operation != nullptr;
         operation = operation->m_outerPtr)
    {
        operation->m_subjectPtr = nullptr;
    }
    if (!m_currentMethod.empty())
    {
        GENERIC_UTILS_LAST_WORDS(printLine("************* ERROR: Calling destructor for subject '",
                                           typeName(*this), "' when in method ", m_currentMethod));
    }
    GENERIC_UTILS_LAST_WORDS(
        GENERIC_UTILS_OLDER_TRACE_AT(at(DESTRUCTION_LINE, "~Gs_Subject"), traceSteps(), 2,
                                     "Destructing Gs_Subject " << typeName(*this)));
    releaseAttachments();
}

void Gs_Subject::output(std::ostream& os) const
{
    std::string text = "Subject (" + getName() + ")";
    bool isAnyAttached = false;
    findAttachment(
        [&](const Gs_Aspect* aspectPtr, unsigned int priority, const Attachment& attachment)
        {
            isAnyAttached = true;
            text += toText("    Observer (", nameOf(attachment.m_observerPtr), ") Priority (",
                           priority, ") Aspect (", nameOf(aspectPtr), ")");
            return false;
        });
    if (!isAnyAttached)
    {
        text += "    Observer --none--  ";
    }
    writeText(os, text);
}

void Gs_Subject::notify(Gs_Aspect* aspectPtr)
{
    if (isRefused("notify"))
    {
        return;
    }
    Operation operation(*this);
    if (aspectPtr == nullptr)
    {
        reportNull(at(NOTIFY_NULL_ASPECT_LINE, "notify"), "aspectPtr");
    }
    if (operation.isSubjectGone() || m_aspectTable == nullptr)
    {
        return;
    }
    operation.begin("notify");
    PriorityTable* const tablePtr = findPriorityTable(aspectPtr);
    if (tablePtr == nullptr)
    {
        return;
    }
    const UpdateTracing tracing(*this);
    for (const auto& [priority, listPtr] : *tablePtr)
    {
        if (listPtr != nullptr && !updateObservers(operation, *listPtr, aspectPtr, priority))
        {
            return;
        }
    }
}

// Returns false when an update has destroyed the subject.
bool Gs_Subject::updateObservers(Operation& operation, AttachmentList& list,
                                 const Gs_Aspect* aspectPtr, unsigned int priority)
{
    operation.m_walkedListPtr = &list;
    operation.m_next = list.begin();
    while (operation.m_next != list.end())
    {
        // Advanced first, and further by unlink(), so that updates may detach.
        const Attachment& attachment = *operation.m_next++;
        if (UpdateTracing::isOn())
        {
            printLine("***** Calling update ",
                      describe(*this, attachment.m_observerPtr, aspectPtr, priority));
        }
        if (attachment.m_updaterPtr != nullptr)
        {
            attachment.m_updaterPtr->update();
        }
        if (operation.isSubjectGone())
        {
            return false;
        }
    }
    operation.m_walkedListPtr = nullptr;
    return true;
}

const std::string& Gs_Subject::getName() const
{
    return typeName(*this);
}

unsigned int Gs_Subject::getTick() const
{
    return 0;
}

void Gs_Subject::attach(Gs_Observer* observerPtr, Gs_Aspect* aspectPtr, unsigned int priority)
{
    attach<Gs_Observer>(observerPtr, &Gs_Observer::update, aspectPtr, priority);
}

// Returns the aspect to use.
Gs_Aspect* Gs_Subject::prepareAttach(const Operation& operation, Gs_Observer* observerPtr,
                                     Gs_Aspect* aspectPtr, unsigned int priority) const
{
    Gs_Aspect* const usedAspectPtr = aspectPtr != nullptr ? aspectPtr : m_defaultAspectPtr;
    if (observerPtr == nullptr)
    {
        reportNull(attachAt(ATTACH_NULL_OBSERVER_LINE), "observerPtr");
    }
    if (!operation.isSubjectGone())
    {
        GENERIC_UTILS_OLDER_TRACE_AT(
            attachAt(ATTACH_LINE), traceSteps(), 1,
            "Attaching " << describe(*this, observerPtr, usedAspectPtr, priority));
    }
    return usedAspectPtr;
}

void Gs_Subject::detach(Gs_Observer* observerPtr, Gs_Aspect* aspectPtr, unsigned int priority)
{
    if (isRefused("detach"))
    {
        return;
    }
    const Operation operation(*this, "detach");
    if (observerPtr == nullptr)
    {
        reportNull(at(DETACH_NULL_OBSERVER_LINE, "detach"), "observerPtr");
    }
    if (aspectPtr == nullptr)
    {
        reportNull(at(DETACH_NULL_ASPECT_LINE, "detach"), "aspectPtr");
    }
    if (!operation.isSubjectGone())
    {
        GENERIC_UTILS_OLDER_TRACE_AT(
            at(DETACH_LINE, "detach"), traceSteps(), 1,
            "Detaching " << describe(*this, observerPtr, aspectPtr, priority));
    }
    if (!operation.isSubjectGone())
    {
        eraseObserver(observerPtr, aspectPtr, priority);
    }
}

void Gs_Subject::detachFirst(Gs_Observer* observerPtr)
{
    if (isRefused("detachFirst") || m_aspectTable == nullptr)
    {
        return;
    }
    const Operation operation(*this, "detachFirst");
    detachFirstIf(observerPtr, false);
}

void Gs_Subject::detachAll(Gs_Observer* observerPtr)
{
    if (isRefused("detachAll") || m_aspectTable == nullptr)
    {
        return;
    }
    const Operation operation(*this, "detachAll");
    while (!operation.isSubjectGone() && detachFirstIf(observerPtr, false))
    {
    }
}

void Gs_Subject::detachAll()
{
    if (isRefused("detachAll") || m_aspectTable == nullptr)
    {
        return;
    }
    const Operation operation(*this, "detachAll");
    while (!operation.isSubjectGone() && detachFirstIf(nullptr, true))
    {
    }
}

// Detaches the first attachment of an observer, or of anybody. Returns whether there was one. The
// walk has ended before the tables change.
bool Gs_Subject::detachFirstIf(const Gs_Observer* observerPtr, bool isAnyObserver)
{
    Gs_Observer* foundObserverPtr = nullptr;
    Gs_Aspect* foundAspectPtr = nullptr;
    unsigned int foundPriority = 0;
    const bool isFound = findAttachment(
        [&](Gs_Aspect* aspectPtr, unsigned int priority, const Attachment& attachment)
        {
            foundObserverPtr = attachment.m_observerPtr;
            foundAspectPtr = aspectPtr;
            foundPriority = priority;
            return isAnyObserver || attachment.m_observerPtr == observerPtr;
        });
    if (isFound)
    {
        detach(foundObserverPtr, foundAspectPtr, foundPriority);
    }
    return isFound;
}

// As detachFirst(), without a word: for an observer that ends while there is no memory for words.
void Gs_Subject::eraseFirst(Gs_Observer* observerPtr)
{
    if (m_inDestructor)
    {
        return;
    }
    Gs_Aspect* foundAspectPtr = nullptr;
    unsigned int foundPriority = 0;
    const bool isFound = findAttachment(
        [&](Gs_Aspect* aspectPtr, unsigned int priority, const Attachment& attachment)
        {
            foundAspectPtr = aspectPtr;
            foundPriority = priority;
            return attachment.m_observerPtr == observerPtr;
        });
    if (isFound)
    {
        eraseObserver(observerPtr, foundAspectPtr, foundPriority);
    }
}

bool Gs_Subject::isRefused(const char* operation) const
{
    if (m_inDestructor)
    {
        printLine("************* ERROR: Calling ", operation, "() for subject '", getName(),
                  "' when in destructor!!!");
    }
    return m_inDestructor;
}

void Gs_Subject::printObservers(const Gs_Subject* subjectPtr, std::ostream& os)
{
    const auto printOne = [&os](const Gs_Subject& subject)
    {
        std::set<const Gs_Subject*> below;
        std::string text;
        subject.findAttachment(
            [&](const Gs_Aspect*, unsigned int, const Attachment& attachment)
            {
                text += toText("\t", nameOf(attachment.m_observerPtr), "\n");
                if (const auto* const observedPtr =
                        dynamic_cast<const Gs_Subject*>(attachment.m_observerPtr))
                {
                    below.insert(observedPtr);
                }
                return false;
            });
        if (!text.empty())
        {
            writeText(os, "base subject: " + subject.getName() + "\nobservers:\n" + text);
        }
        return below;
    };
    printTree(subjectPtr, printOne);
}

std::ostream& operator<<(std::ostream& os, const Gs_Subject& subject)
{
    subject.output(os);
    return os;
}

}  // namespace utils
