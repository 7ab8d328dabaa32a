#ifndef GENERIC_UTILS_GSSUBJECT_H
#define GENERIC_UTILS_GSSUBJECT_H

#include <iosfwd>
#include <list>
#include <map>
#include <memory>
#include <string>

#include <utils/export.h>
#include <utils/gsAspect.h>
#include <utils/gsChangeAspect.h>
#include <utils/gsObserver.h>

namespace utils
{

/// Something that observers are told about.
///
/// Observers are attached under an aspect and a priority, each time with a member function to call.
/// notify() calls those of one aspect, the lowest priority first, and those of one priority in the
/// order of their attachment. Observers are not owned; either side may be destroyed first.
///
///     class Display : public utils::Gs_Observer
///     {
///       public:
///         void showLevel();
///     };
///
///     Display display;
///     mixer.attach(&display, &Display::showLevel, &levelAspect, 1);
///     mixer.notify(&levelAspect);
///
/// Misuse is reported to the older error strategies as not recoverable, so it ends the process
/// while none is registered; otherwise the operation goes on as its description says. While a
/// subject is being destroyed, its operations only write a line to standard output.
///
/// An update may detach its own attachment, end its observer, attach, and destroy the subject; so
/// may a strategy that is told of an operation.
/// Updates may throw: notify() then passes the exception on, and the subject can be used further.
///
/// Operations are traced with flag Gs_Flags::m_traceSubjectSteps: attaching and detaching at level
/// 1, construction, copying and destruction at level 2. Besides, flags
/// Gs_Flags::m_enableSubjectName and m_traceSubjectName make notify() print every update to
/// standard output.
///
/// Thread safety: a subject and its observers belong to one thread at a time.
class GENERIC_UTILS_EXPORT Gs_Subject
{
  public:
    Gs_Subject();

    /// The copy has no attachments.
    Gs_Subject(const Gs_Subject& other);

    /// Detaches every observer. Inside one of the subject's own operations, typically an update,
    /// that is said in a line on standard output, and the operation ends without touching the
    /// subject again.
    virtual ~Gs_Subject();

    /// Writes the name and every attachment, in one line without an end.
    virtual void output(std::ostream& os) const;

    /// Calls the function of every attachment of an aspect. Attachments that an update makes at
    /// the same priority are called if they come before the end of the walk; detached ones are not.
    /// @param aspectPtr null is reported
    virtual void notify(Gs_Aspect* aspectPtr);

    /// The run-time type name of the object, as the platform's type information spells it. All
    /// subjects share the string: it is only good until the next call, on any thread.
    virtual const std::string& getName() const;

    /// A count of time for derived subjects that keep one; 0 here.
    virtual unsigned int getTick() const;

    Gs_Subject& operator=(const Gs_Subject&) = delete;

    /// Attaches an observer, whose virtual update() will be called; see below.
    void attach(Gs_Observer* observerPtr, Gs_Aspect* aspectPtr, unsigned int priority);

    /// Attaches an observer. A second attachment at the same aspect and priority is reported as
    /// Gs_AttachAlreadyExistsError and then made: the observer will be updated twice.
    /// @param observerPtr null is reported, and attached: nothing will be called
    /// @param function what to call; may be virtual
    /// @param aspectPtr null: the default aspect
    /// @param priority any; the lowest is called first
    template <typename T>
    void attach(T* observerPtr, void (T::*function)(), Gs_Aspect* aspectPtr, unsigned int priority);

    /// Takes back the first attachment of an observer at an aspect and priority. That nobody was
    /// ever attached there is reported as Gs_AttachDoesNotExistError, that the observer is not is
    /// not.
    /// @param observerPtr,aspectPtr null is reported
    /// @param priority that of the attachment
    void detach(Gs_Observer* observerPtr, Gs_Aspect* aspectPtr, unsigned int priority);

    /// Takes back the first attachment of an observer: in the order of the aspects' addresses, then
    /// of priorities, then of attachment. Nothing happens when there is none.
    void detachFirst(Gs_Observer* observerPtr);

    /// Takes back all attachments of an observer, in that order.
    void detachAll(Gs_Observer* observerPtr);

    /// Takes back all attachments, in that order.
    void detachAll();

    /// Whether there is such an attachment.
    bool isObserverAttached(Gs_Observer* observerPtr, Gs_Aspect* aspectPtr,
                            unsigned int priority) const;

    /// @name What attach() and detach() do to the tables, without their tests and traces.
    /// @{

    /// Adds an attachment behind those of its aspect and priority.
    /// @param observerPtr,priority as for attach()
    /// @param aspectPtr not replaced when null
    /// @param updaterPtr its update() will be called; owned by the subject when the operation has
    ///        succeeded, not when it throws or the subject is being destroyed
    void insertObserver(Gs_Observer* observerPtr, Gs_Aspect* aspectPtr, unsigned int priority,
                        Gs_Observer* updaterPtr);

    /// Takes back the first attachment of an observer at an aspect and priority, if there is one.
    void eraseObserver(Gs_Observer* observerPtr, Gs_Aspect* aspectPtr, unsigned int priority);
    /// @}

    /// Writes the names of a subject and its observers, a line each, then the same for those of its
    /// observers that are subjects themselves, and so on; a subject that leads back to itself is
    /// not followed again. Nothing for null, or for a subject without attachments.
    static void printObservers(const Gs_Subject* subjectPtr, std::ostream& os);

    /// The default aspect, usable as a Gs_Aspect* at any time.
    static const Gs_DefaultAspectPtr m_defaultAspectPtr;

  private:
    friend class Gs_Observer;

    struct Attachment
    {
        Gs_Observer* m_observerPtr;
        std::unique_ptr<Gs_Observer> m_updaterPtr;
    };
    using AttachmentList = std::list<Attachment>;
    using PriorityTable = std::map<unsigned int, std::unique_ptr<AttachmentList>>;
    using AspectTable = std::map<Gs_Aspect*, std::unique_ptr<PriorityTable>>;

    // A running operation: from begin() on it is the current method, until it ends. It lives on the
    // stack, and is told when the subject is destroyed before it ends: by an update, an updater's
    // end or a strategy. After each of these, the operation asks before it touches the subject.
    class GENERIC_UTILS_EXPORT Operation
    {
      public:
        GENERIC_UTILS_LOCAL explicit Operation(Gs_Subject& subject);
        Operation(Gs_Subject& subject, const char* name);
        ~Operation();

        Operation(const Operation&) = delete;
        Operation& operator=(const Operation&) = delete;

        GENERIC_UTILS_LOCAL void begin(const char* name);
        bool isSubjectGone() const { return m_subjectPtr == nullptr; }

        Gs_Subject* m_subjectPtr;
        Operation* m_outerPtr;
        bool m_hasBegun = false;

        // The walk of a notification; null when there is none.
        AttachmentList* m_walkedListPtr = nullptr;
        AttachmentList::iterator m_next;
    };

    bool isRefused(const char* operation) const;
    Gs_Aspect* prepareAttach(const Operation& operation, Gs_Observer* observerPtr,
                             Gs_Aspect* aspectPtr, unsigned int priority) const;

    GENERIC_UTILS_LOCAL PriorityTable* findPriorityTable(Gs_Aspect* aspectPtr) const;
    GENERIC_UTILS_LOCAL AttachmentList* findList(Gs_Aspect* aspectPtr, unsigned int priority) const;
    GENERIC_UTILS_LOCAL AttachmentList& findOrCreateList(Gs_Aspect* aspectPtr,
                                                         unsigned int priority);

    // Calls function(aspectPtr, priority, attachment) for every attachment, in the order of the
    // tables, until one call returns true. Returns whether one did.
    template <typename Function>
    bool findAttachment(Function function) const;

    GENERIC_UTILS_LOCAL void eraseFirst(Gs_Observer* observerPtr);
    GENERIC_UTILS_LOCAL bool detachFirstIf(const Gs_Observer* observerPtr, bool isAnyObserver);
    GENERIC_UTILS_LOCAL bool updateObservers(Operation& operation, AttachmentList& list,
                                             const Gs_Aspect* aspectPtr, unsigned int priority);

    GENERIC_UTILS_LOCAL Attachment unlink(AttachmentList& list, AttachmentList::iterator position);
    GENERIC_UTILS_LOCAL unsigned int countAttachments(const Gs_Observer* observerPtr) const;
    GENERIC_UTILS_LOCAL void link(Gs_Observer* observerPtr);
    GENERIC_UTILS_LOCAL void unlink(Gs_Observer* observerPtr);
    GENERIC_UTILS_LOCAL void forget(const Gs_Observer* observerPtr);
    GENERIC_UTILS_LOCAL void releaseAttachments();

    bool m_inDestructor = false;
    std::string m_currentMethod;
    std::unique_ptr<AspectTable> m_aspectTable;
    PriorityTable* m_defaultPriorityTable = nullptr;

    std::map<const Gs_Observer*, unsigned int> m_numAttachments;  // null observers left out
    Operation* m_operationPtr = nullptr;                          // the innermost
};

/// Writes the subject through its virtual output().
GENERIC_UTILS_EXPORT std::ostream& operator<<(std::ostream& os, const Gs_Subject& subject);

}  // namespace utils

#include <utils/gsSubjectT.h>

#endif
