#ifndef GENERIC_UTILS_INTERNAL_NAMEDREGISTRY_H
#define GENERIC_UTILS_INTERNAL_NAMEDREGISTRY_H

#include <list>
#include <map>
#include <ostream>
#include <string>
#include <thread>
#include <vector>

#include <libos/COsMutex.h>
#include <libos/osTask.h>
#include <utils/SourceLocation.h>
#include <utils/lock/Lock.h>
#include <utils/singleton/SingletonT.h>

#include "internal/Report.h"
#include "internal/TextOutput.h"

namespace utils
{

/// The objects of one kind (flags, queues, tasks) by their unique names.
///
/// The map itself is the singleton of its type; this class adds the rules: duplicate names are
/// fatal, a miss is reported, objects are listed in the byte-wise order of their names. Objects
/// are not owned.
///
/// Thread safety: every operation may be called by any thread. The lock beside the map is never
/// held while strategies or an object's output() run. An object that is just being written by
/// another thread leaves the registry, and so its life, when that is done.
template <typename Object>
class NamedRegistry
{
    struct BeingWritten
    {
        const Object* object;
        std::thread::id thread;
    };

  public:
    using Map = std::map<std::string, Object*>;

    /// @param kind as texts name it, such as "Flag"
    /// @param kindPlural as the listing's banner names it, such as "flags"
    NamedRegistry(const char* kind, const char* kindPlural) : m_kind(kind), m_kindPlural(kindPlural)
    {
    }

    /// Fatal when the name is taken.
    void requireUnique(const SourceLocation& where, const std::string& name) const
    {
        if (find(name) != nullptr)
        {
            reportDuplicate(where, name);
        }
    }

    /// Enters an object; fatal when the name is taken.
    void add(const SourceLocation& where, const std::string& name, Object* object)
    {
        if (!insert(name, object))
        {
            reportDuplicate(where, name);
        }
    }

    /// The object of that name, or null.
    Object* find(const std::string& name) const
    {
        const lock::Lock guard(m_mutex);
        const auto found = map().find(name);
        return found == map().end() ? nullptr : found->second;
    }

    /// As find(); null is reported as a warning.
    Object* findOrReport(const SourceLocation& where, const std::string& name) const
    {
        Object* const object = find(name);
        if (object == nullptr)
        {
            error::report(where, error::Error::DOES_NOT_EXIST, error::Error::WARNING, m_kind, " '",
                          name, "' does not exist.");
        }
        return object;
    }

    /// Takes a name out, whatever object it stands for.
    void remove(const std::string& name)
    {
        while (!tryRemove(name))
        {
            osTaskSleep(nullptr, 1);
        }
    }

    /// Writes a banner and every object, each followed by an end of line.
    void output(std::ostream& os) const
    {
        writeLine(os, "*** Current ", m_kindPlural, " are:");
        for (const std::string& name : listNames())
        {
            const Writing writing(*this, name);
            if (writing.getObject() != nullptr)
            {
                os << *writing.getObject();
                writeLine(os);
            }
        }
    }

  private:
    // Keeps an object in the registry for as long as it is being written.
    class Writing
    {
      public:
        Writing(const NamedRegistry& registry, const std::string& name)
            : m_registry(registry), m_entry(m_registry.beginWriting(name))
        {
        }
        ~Writing() { m_registry.endWriting(m_entry); }

        Writing(const Writing&) = delete;
        Writing& operator=(const Writing&) = delete;

        const Object* getObject() const { return m_entry->object; }

      private:
        const NamedRegistry& m_registry;
        const typename std::list<BeingWritten>::iterator m_entry;
    };

    typename std::list<BeingWritten>::iterator beginWriting(const std::string& name) const
    {
        const lock::Lock guard(m_mutex);
        const auto found = map().find(name);
        const Object* const object = found == map().end() ? nullptr : found->second;
        return m_beingWritten.insert(m_beingWritten.end(), {object, std::this_thread::get_id()});
    }

    void endWriting(typename std::list<BeingWritten>::iterator entry) const
    {
        const lock::Lock guard(m_mutex);
        m_beingWritten.erase(entry);
    }

    // False while another thread writes the object.
    bool tryRemove(const std::string& name)
    {
        const lock::Lock guard(m_mutex);
        const auto found = map().find(name);
        if (found == map().end())
        {
            return true;
        }
        for (const BeingWritten& entry : m_beingWritten)
        {
            if (entry.object == found->second && entry.thread != std::this_thread::get_id())
            {
                return false;
            }
        }
        map().erase(found);
        return true;
    }

    static Map& map() { return *singleton::SingletonT<Map>::getInstancePtr(); }

    bool insert(const std::string& name, Object* object)
    {
        const lock::Lock guard(m_mutex);
        return map().emplace(name, object).second;
    }

    std::vector<std::string> listNames() const
    {
        const lock::Lock guard(m_mutex);
        std::vector<std::string> names;
        names.reserve(map().size());
        for (const auto& entry : map())
        {
            names.push_back(entry.first);
        }
        return names;
    }

    [[noreturn]] void reportDuplicate(const SourceLocation& where, const std::string& name) const
    {
        error::reportFatal(where, error::Error::ALREADY_EXISTS, error::Error::ERROR, m_kind, " '",
                           name, "' is already in the ", m_kind,
                           " Collection (i.e., name is not unique).");
    }

    const char* m_kind;
    const char* m_kindPlural;
    mutable COsMutex m_mutex;
    mutable std::list<BeingWritten> m_beingWritten;
};

}  // namespace utils

#endif
