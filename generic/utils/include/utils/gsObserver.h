#ifndef GENERIC_UTILS_GSOBSERVER_H
#define GENERIC_UTILS_GSOBSERVER_H

#include <iosfwd>
#include <set>
#include <string>

#include <utils/export.h>

namespace utils
{

class Gs_Subject;

/// Somebody who is told about subjects; see Gs_Subject.
///
/// An observer knows the subjects that hold an attachment of it, so that either side may be
/// destroyed first.
///
/// Construction, copying and destruction are traced at level 2 with flag
/// Gs_Flags::m_traceObserverSteps.
///
/// Thread safety: an observer and its subjects belong to one thread at a time.
class GENERIC_UTILS_EXPORT Gs_Observer
{
  public:
    Gs_Observer();

    /// The copy is attached to nothing.
    Gs_Observer(const Gs_Observer& other);

    /// Takes the observer out of every subject.
    virtual ~Gs_Observer();

    /// Called by the notify() of the subjects that the observer was attached to without a function
    /// of its own. Does nothing.
    virtual void update();

    /// Writes the name and the names of the subjects, in one line without an end.
    virtual void output(std::ostream& os) const;

    /// The run-time type name of the object, as the platform's type information spells it. All
    /// observers share the string: it is only good until the next call, on any thread.
    virtual const std::string& getName() const;

    Gs_Observer& operator=(const Gs_Observer&) = delete;

    /// @name The subjects that hold an attachment of this observer. Called by subjects; null is
    /// ignored.
    /// @{

    /// Adds a subject; one that is known stays known once.
    void insertSubject(Gs_Subject* subjectPtr);

    /// Removes a subject, if it is known.
    void eraseSubject(Gs_Subject* subjectPtr);

    /// @}

    /// The name of an observer, or "null" for a null pointer.
    static const std::string& getNameOf(const Gs_Observer* observerPtr);

    /// Writes the names of an observer and its subjects, a line each, then the same for those of
    /// its subjects that are observers themselves, and so on; an observer that leads back to itself
    /// is not followed again. Nothing for null, or for an observer without subjects.
    static void printSubjects(const Gs_Observer* observerPtr, std::ostream& os);

  private:
    std::set<Gs_Subject*> m_subjects;
};

/// Writes the observer through its virtual output().
GENERIC_UTILS_EXPORT std::ostream& operator<<(std::ostream& os, const Gs_Observer& observer);

}  // namespace utils

#endif
