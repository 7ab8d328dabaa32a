#include <utils/gsSubject.h>

#include <algorithm>
#include <utility>

#include <utils/gsAttachAlreadyExistsError.h>
#include <utils/gsAttachDoesNotExistError.h>

#include "gs/SubjectTexts.h"
#include "gs/findAttachment.h"
#include "internal/OlderReport.h"

namespace utils
{

namespace
{

// The place that reports about the tables have always named.
constexpr const char* SOURCE_FILE = "generic/utils/src/gs/gsSubject";
constexpr int ATTACHED_ALREADY_LINE = 798;
constexpr int NO_ASPECT_TABLE_LINE = 838;
constexpr int NO_PRIORITY_TABLE_LINE = 850;
constexpr int NO_LIST_LINE = 862;

// An error about an attachment, which is not recoverable.
template <typename Error>
void reportAttachment(const SourceLocation& where, const Gs_Subject& subject,
                      const Gs_Observer* observerPtr, unsigned int priority)
{
    err::report<Error>(where, false, nameOf(subject).c_str(), nameOf(observerPtr).c_str(),
                       static_cast<int>(priority));
}

}  // namespace

Gs_Subject::Operation::Operation(Gs_Subject& subject)
    : m_subjectPtr(&subject), m_outerPtr(subject.m_operationPtr)
{
    subject.m_operationPtr = this;
}

Gs_Subject::Operation::Operation(Gs_Subject& subject, const char* name) : Operation(subject)
{
    begin(name);
}

Gs_Subject::Operation::~Operation()
{
    if (isSubjectGone())
    {
        return;
    }
    m_subjectPtr->m_operationPtr = m_outerPtr;
    if (m_hasBegun)
    {
        m_subjectPtr->m_currentMethod.clear();
    }
}

void Gs_Subject::Operation::begin(const char* name)
{
    m_subjectPtr->m_currentMethod = name;
    m_hasBegun = true;
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
            {SOURCE_FILE, ATTACHED_ALREADY_LINE, "insertObserver"}, *this, observerPtr, priority);
    }
    if (operation.isSubjectGone())
    {
        return;
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
        reportAttachment<err::Gs_AttachDoesNotExistError>({SOURCE_FILE, line, "eraseObserver"},
                                                          *this, observerPtr, priority);
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

}  // namespace utils
