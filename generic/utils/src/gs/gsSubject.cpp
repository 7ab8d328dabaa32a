#include <utils/gsSubject.h>

#include <algorithm>
#include <iostream>
#include <set>
#include <utility>

#include <utils/errNullPtrError.h>
#include <utils/flagTrace.h>
#include <utils/gsAttachAlreadyExistsError.h>
#include <utils/gsAttachDoesNotExistError.h>
#include <utils/gsFlags.h>

#include "gs/PrintTree.h"
#include "gs/TypeName.h"
#include "gs/UpdateTracing.h"
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
constexpr int ATTACHED_ALREADY_LINE = 798;
constexpr int NO_ASPECT_TABLE_LINE = 838;
constexpr int NO_PRIORITY_TABLE_LINE = 850;
constexpr int NO_LIST_LINE = 862;

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

// Names are copied before the next one is asked for: objects may keep theirs in one string.
std::string nameOf(const Gs_Subject& subject)
{
    return subject.getName();
}

std::string nameOf(const Gs_Observer* observerPtr)
{
    return Gs_Observer::getNameOf(observerPtr);
}

std::string nameOf(const Gs_Aspect* aspectPtr)
{
    return aspectPtr != nullptr ? aspectPtr->getName() : "null";
}

// "Subject (...) Observer (...) Priority (...) Aspect (...)"
std::string describe(const Gs_Subject& subject, const Gs_Observer* observerPtr,
                     const Gs_Aspect* aspectPtr, unsigned int priority)
{
    return toText("Subject (", nameOf(subject), ") Observer (", nameOf(observerPtr), ") Priority (",
                  priority, ") Aspect (", nameOf(aspectPtr), ")");
}

template <typename... Words>
void printLine(const Words&... words)
{
    writeLine(std::cout, words...);
}

void reportNull(const SourceLocation& where, const char* pointerName)
{
    err::report<err::Err_NullPtrError>(where, false, pointerName);
}

// An error about an attachment, which is not recoverable.
template <typename Error>
void reportAttachment(const SourceLocation& where, const Gs_Subject& subject,
                      const Gs_Observer* observerPtr, unsigned int priority)
{
    err::report<Error>(where, false, nameOf(subject).c_str(), nameOf(observerPtr).c_str(),
                       static_cast<int>(priority));
}

}  // namespace

Gs_Subject::Operation::Operation(Gs_Subject& subject, const char* name)
    : m_subjectPtr(&subject), m_outerPtr(subject.m_operationPtr)
{
    subject.m_currentMethod = name;
    subject.m_operationPtr = this;
}

Gs_Subject::Operation::~Operation()
{
    if (m_subjectPtr != nullptr)
    {
        m_subjectPtr->m_currentMethod.clear();
        m_subjectPtr->m_operationPtr = m_outerPtr;
    }
}

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
        printLine("************* ERROR: Calling destructor for subject '", typeName(*this),
                  "' when in method ", m_currentMethod);
    }
    GENERIC_UTILS_OLDER_TRACE_AT(at(DESTRUCTION_LINE, "~Gs_Subject"), traceSteps(), 2,
                                 "Destructing Gs_Subject " << typeName(*this));
    releaseAttachments();
}

// Updaters, and the strategies that their traces reach, may run application code. It may end
// observers (see forget()), but the lists stay as they are, since every operation is refused.
void Gs_Subject::releaseAttachments()
{
    findAttachment(
        [this](Gs_Aspect*, unsigned int, Attachment& attachment)
        {
            const Attachment released = {std::exchange(attachment.m_observerPtr, nullptr),
                                         std::move(attachment.m_updaterPtr)};
            unlink(released.m_observerPtr);
            return false;
        });
}

// An observer ends while the subject is in its destructor, which still holds attachments of it.
void Gs_Subject::forget(const Gs_Observer* observerPtr)
{
    m_numAttachments.erase(observerPtr);
    findAttachment(
        [observerPtr](Gs_Aspect*, unsigned int, Attachment& attachment)
        {
            if (attachment.m_observerPtr == observerPtr)
            {
                attachment.m_observerPtr = nullptr;
                const std::unique_ptr<Gs_Observer> endedPtr = std::move(attachment.m_updaterPtr);
            }
            return false;
        });
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
    if (aspectPtr == nullptr)
    {
        reportNull(at(NOTIFY_NULL_ASPECT_LINE, "notify"), "aspectPtr");
    }
    if (m_aspectTable == nullptr)
    {
        return;
    }
    Operation operation(*this, "notify");
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
Gs_Aspect* Gs_Subject::prepareAttach(Gs_Observer* observerPtr, Gs_Aspect* aspectPtr,
                                     unsigned int priority) const
{
    Gs_Aspect* const usedAspectPtr = aspectPtr != nullptr ? aspectPtr : m_defaultAspectPtr;
    if (observerPtr == nullptr)
    {
        reportNull(attachAt(ATTACH_NULL_OBSERVER_LINE), "observerPtr");
    }
    GENERIC_UTILS_OLDER_TRACE_AT(
        attachAt(ATTACH_LINE), traceSteps(), 1,
        "Attaching " << describe(*this, observerPtr, usedAspectPtr, priority));
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
    GENERIC_UTILS_OLDER_TRACE_AT(at(DETACH_LINE, "detach"), traceSteps(), 1,
                                 "Detaching " << describe(*this, observerPtr, aspectPtr, priority));
    eraseObserver(observerPtr, aspectPtr, priority);
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

bool Gs_Subject::isObserverAttached(Gs_Observer* observerPtr, Gs_Aspect* aspectPtr,
                                    unsigned int priority) const
{
    if (isRefused("isObserverAttached"))
    {
        return false;
    }
    const AttachmentList* const listPtr = findList(aspectPtr, priority);
    return listPtr != nullptr && std::any_of(listPtr->begin(), listPtr->end(),
                                             [=](const Attachment& attachment)
                                             { return attachment.m_observerPtr == observerPtr; });
}

void Gs_Subject::insertObserver(Gs_Observer* observerPtr, Gs_Aspect* aspectPtr,
                                unsigned int priority, Gs_Observer* updaterPtr)
{
    if (isRefused("insertObserver"))
    {
        return;
    }
    const Operation operation(*this, "insertObserver");
    AttachmentList& list = findOrCreateList(aspectPtr, priority);
    if (isObserverAttached(observerPtr, aspectPtr, priority))
    {
        reportAttachment<err::Gs_AttachAlreadyExistsError>(
            at(ATTACHED_ALREADY_LINE, "insertObserver"), *this, observerPtr, priority);
    }
    AttachmentList added;
    added.push_back({observerPtr, nullptr});
    link(observerPtr);
    // From here on nothing fails, and the updater is the subject's.
    added.front().m_updaterPtr.reset(updaterPtr);
    list.splice(list.end(), added);
}

void Gs_Subject::eraseObserver(Gs_Observer* observerPtr, Gs_Aspect* aspectPtr,
                               unsigned int priority)
{
    if (isRefused("eraseObserver"))
    {
        return;
    }
    const Operation operation(*this, "eraseObserver");
    AttachmentList* const listPtr = findList(aspectPtr, priority);
    if (listPtr == nullptr)
    {
        const int line = m_aspectTable == nullptr                  ? NO_ASPECT_TABLE_LINE
                         : findPriorityTable(aspectPtr) == nullptr ? NO_PRIORITY_TABLE_LINE
                                                                   : NO_LIST_LINE;
        reportAttachment<err::Gs_AttachDoesNotExistError>(at(line, "eraseObserver"), *this,
                                                          observerPtr, priority);
        return;
    }
    const auto position = std::find_if(listPtr->begin(), listPtr->end(),
                                       [=](const Attachment& attachment)
                                       { return attachment.m_observerPtr == observerPtr; });
    if (position != listPtr->end())
    {
        // Its updater is destroyed last, since that may run application code.
        const Attachment erased = unlink(*listPtr, position);
    }
}

Gs_Subject::Attachment Gs_Subject::unlink(AttachmentList& list, AttachmentList::iterator position)
{
    for (Operation* operation = m_operationPtr; operation != nullptr;
         operation = operation->m_outerPtr)
    {
        if (operation->m_walkedListPtr == &list && operation->m_next == position)
        {
            ++operation->m_next;
        }
    }
    Attachment unlinked = std::move(*position);
    list.erase(position);
    unlink(unlinked.m_observerPtr);
    return unlinked;
}

unsigned int Gs_Subject::countAttachments(const Gs_Observer* observerPtr) const
{
    const auto found = m_numAttachments.find(observerPtr);
    return found == m_numAttachments.end() ? 0 : found->second;
}

// One more attachment of an observer.
void Gs_Subject::link(Gs_Observer* observerPtr)
{
    if (observerPtr != nullptr)
    {
        unsigned int& numAttachments = m_numAttachments[observerPtr];
        observerPtr->insertSubject(this);
        ++numAttachments;
    }
}

// One attachment of an observer less.
void Gs_Subject::unlink(Gs_Observer* observerPtr)
{
    const auto found = m_numAttachments.find(observerPtr);
    if (found != m_numAttachments.end() && --found->second == 0)
    {
        m_numAttachments.erase(found);
        observerPtr->eraseSubject(this);
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

Gs_Subject::PriorityTable* Gs_Subject::findPriorityTable(Gs_Aspect* aspectPtr) const
{
    if (aspectPtr == m_defaultAspectPtr)
    {
        return m_defaultPriorityTable;
    }
    if (m_aspectTable == nullptr)
    {
        return nullptr;
    }
    const auto found = m_aspectTable->find(aspectPtr);
    return found == m_aspectTable->end() ? nullptr : found->second.get();
}

Gs_Subject::AttachmentList* Gs_Subject::findList(Gs_Aspect* aspectPtr, unsigned int priority) const
{
    const PriorityTable* const tablePtr = findPriorityTable(aspectPtr);
    if (tablePtr == nullptr)
    {
        return nullptr;
    }
    const auto found = tablePtr->find(priority);
    return found == tablePtr->end() ? nullptr : found->second.get();
}

Gs_Subject::AttachmentList& Gs_Subject::findOrCreateList(Gs_Aspect* aspectPtr,
                                                         unsigned int priority)
{
    if (m_aspectTable == nullptr)
    {
        m_aspectTable = std::make_unique<AspectTable>();
    }
    std::unique_ptr<PriorityTable>& tablePtr = (*m_aspectTable)[aspectPtr];
    if (tablePtr == nullptr)
    {
        tablePtr = std::make_unique<PriorityTable>();
    }
    if (aspectPtr == m_defaultAspectPtr)
    {
        m_defaultPriorityTable = tablePtr.get();
    }
    std::unique_ptr<AttachmentList>& listPtr = (*tablePtr)[priority];
    if (listPtr == nullptr)
    {
        listPtr = std::make_unique<AttachmentList>();
    }
    return *listPtr;
}

template <typename Function>
bool Gs_Subject::findAttachment(Function function) const
{
    if (m_aspectTable == nullptr)
    {
        return false;
    }
    for (const auto& [aspectPtr, tablePtr] : *m_aspectTable)
    {
        if (tablePtr == nullptr)
        {
            continue;
        }
        for (const auto& [priority, listPtr] : *tablePtr)
        {
            if (listPtr == nullptr)
            {
                continue;
            }
            for (Attachment& attachment : *listPtr)
            {
                if (function(aspectPtr, priority, attachment))
                {
                    return true;
                }
            }
        }
    }
    return false;
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
