#ifndef TESTS_PLUGINS_PLUGIN_H
#define TESTS_PLUGINS_PLUGIN_H

#include <list>
#include <map>
#include <stdexcept>
#include <string>
#include <typeinfo>
#include <vector>

#include <utils/utils.h>

namespace plugins
{

/// What is found under the name of its owner: the program or a plug-in.
struct Found
{
    utils::flag::Flag* flag;
    utils::flag::Flag_FlagBase* olderFlag;
    utils::queue::Queue* queue;
    utils::task::Task* task;
    utils::Gs_Aspect* aspect;
};

inline bool operator==(const Found& left, const Found& right)
{
    return left.flag == right.flag && left.olderFlag == right.olderFlag &&
           left.queue == right.queue && left.task == right.task && left.aspect == right.aspect;
}

/// The objects that an owner, the program or a plug-in, registers under its name.
struct Objects
{
    explicit Objects(const std::string& owner)
        : flag(owner + ".flag", 7),
          olderFlag(owner + ".olderFlag", 7),
          queue(owner + ".queue", 8),
          task(owner + ".task", nullptr, 8),
          aspect(owner + ".aspect")
    {
    }

    Found found() { return {&flag, &olderFlag, &queue, &task, &aspect}; }

    utils::flag::FlagT<int> flag;
    utils::flag::Flag_Flag<int> olderFlag;
    utils::queue::Queue queue;
    utils::task::Task task;
    utils::Gs_Aspect aspect;
};

/// Looks them up, in the registries as whoever calls this sees them.
inline Found find(const std::string& owner)
{
    using OlderFlags = std::map<std::string, utils::flag::Flag_FlagBase*>;
    using Aspects = std::map<std::string, utils::Gs_Aspect*>;
    const auto& olderFlags = *utils::Std_Singleton<OlderFlags>::getInstancePtr();
    const auto& aspects = *utils::Gs_Singleton<Aspects>::getInstancePtr();
    const auto olderFlag = olderFlags.find(owner + ".olderFlag");
    const auto aspect = aspects.find(owner + ".aspect");
    return {utils::flag::Flag::getFlagPtr(owner + ".flag"),
            olderFlag == olderFlags.end() ? nullptr : olderFlag->second,
            utils::queue::Queue::getQueuePtr(owner + ".queue"),
            utils::task::Task::getTaskPtr(owner + ".task"),
            aspect == aspects.end() ? nullptr : aspect->second};
}

/// What a plug-in offers to the program that loads it, and to other plug-ins.
struct Plugin
{
    /// Makes the objects and the strategies of the plug-in; they stay until stop().
    void (*start)();
    void (*stop)();

    /// The instance of every singleton that the library has.
    std::vector<const void*> (*instances)();

    /// The type information of some of the library's classes and templates.
    std::vector<const std::type_info*> (*types)();

    /// plugins::find(), inside the plug-in.
    Found (*find)(const std::string& owner);

    /// Reports a failure, or traces, to the strategies of either generation.
    void (*report)(const std::string& text);
    void (*reportOlder)(const std::string& text);
    void (*trace)(const std::string& text);
    void (*traceOlder)(const std::string& text);

    /// Throws an exception of the kind.
    void (*raise)(int kind);

    /// Calls the other one's raise(), and tells by which type the exception was caught.
    std::string (*catchFrom)(const Plugin& other, int kind);

    Objects* objects = nullptr;                          // of the plug-in
    utils::strategy::Strategy* errorStrategy = nullptr;  // a StrategyT<Error>

    /// What the strategies of the plug-in were given, one text a report or trace.
    std::vector<std::string> reports = {};
};

/// An exception that two plug-ins know from a header of their own.
class GENERIC_UTILS_EXPORT Refusal : public std::runtime_error
{
  public:
    using std::runtime_error::runtime_error;
};

enum Kind
{
    OLDER_ERROR,
    NEWER_ERROR,
    OUT_OF_RANGE,
    REFUSAL,
    NUM_KINDS
};

inline void raise(int kind)
{
    switch (kind)
    {
        case OLDER_ERROR:
            throw utils::err::Err_NullPtrError("file", 1, "raise", "pointer");
        case NEWER_ERROR:
            throw utils::error::Error("file", 1, "raise", "Name", utils::error::Error::ERROR);
        case OUT_OF_RANGE:
            utils::logexp::LogExp::evaluate("()", {});
            break;
        default:
            throw Refusal("no");
    }
}

/// The most derived type that is named here, of what other.raise() throws.
inline std::string catchFrom(const Plugin& other, int kind)
{
    try
    {
        other.raise(kind);
    }
    catch (const utils::err::Err_GeneralError& error)
    {
        return "Err_GeneralError " + error.getName();
    }
    catch (const utils::error::Error& error)
    {
        return "Error " + error.getName();
    }
    catch (const std::out_of_range&)
    {
        return "out_of_range";
    }
    catch (const Refusal& refusal)
    {
        return std::string("Refusal ") + refusal.what();
    }
    catch (...)
    {
        return "something unknown";
    }
    return "nothing";
}

template <typename... T>
std::vector<const void*> instancesOf()
{
    return {static_cast<const void*>(T::getInstancePtr())...};
}

inline std::vector<const void*> instances()
{
    using utils::Gs_Singleton;
    using utils::Std_Singleton;
    using utils::singleton::SingletonT;
    using Name = std::string;

    return instancesOf<
        SingletonT<utils::flag::Flags>, SingletonT<utils::flag::InitialValues>,
        SingletonT<utils::flag::DefaultStrategy>, SingletonT<utils::error::DefaultStrategy>,
        SingletonT<utils::command::Flags>, SingletonT<utils::logexp::Flags>,
        SingletonT<utils::observer::Flags>, SingletonT<utils::queue::Flags>,
        SingletonT<utils::scpi::Flags>, SingletonT<utils::task::Flags>,
        SingletonT<utils::xml::Flags>, SingletonT<std::map<Name, utils::flag::Flag*>>,
        SingletonT<std::map<Name, utils::strategy::Strategy::StrategyCollectionInfo*>>,
        SingletonT<std::map<Name, utils::queue::Queue*>>,
        SingletonT<std::map<Name, utils::task::Task*>>, Std_Singleton<utils::flag::Flag_Flags>,
        Std_Singleton<utils::flag::Gs_Flags>, Std_Singleton<utils::Gs_ChangeAspect>,
        Std_Singleton<utils::Gs_Locks>, Std_Singleton<std::list<utils::err::Err_Strategy*>>,
        Std_Singleton<std::list<utils::flag::Flag_TraceStrategy*>>,
        Std_Singleton<std::map<Name, utils::flag::Flag_FlagBase*>>,
        Gs_Singleton<std::map<Name, utils::Gs_Aspect*>>>();
}

inline std::vector<const std::type_info*> types()
{
    using utils::strategy::StrategyT;
    return {&typeid(utils::queue::Queue),
            &typeid(utils::err::Err_NullPtrError),
            &typeid(utils::error::Error),
            &typeid(StrategyT<utils::error::Error>),
            &typeid(StrategyT<utils::flag::TraceMsg>),
            &typeid(utils::flag::FlagT<bool>),
            &typeid(utils::flag::FlagT<std::string>),
            &typeid(utils::flag::Flag_Flag<unsigned short>),
            &typeid(utils::Gs_UpdateVoid<utils::Gs_Observer>)};
}

}  // namespace plugins

#endif
