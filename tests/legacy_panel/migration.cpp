#include "migration.h"

#include <utils/error/Error.h>
#include <utils/flag/Trace.h>
#include <utils/flagFlags.h>
#include <utils/gsFlags.h>

namespace by_hand
{

using utils::Std_Singleton;
using utils::flag::Flag_Flags;
using utils::flag::Flag_TraceMsg;
using utils::flag::Gs_Flags;

void traceLeaving(const std::string& from, const std::string& to)
{
    const Gs_Flags& flags = *Std_Singleton<Gs_Flags>::getInstancePtr();
    const Flag_Flags& switches = *Std_Singleton<Flag_Flags>::getInstancePtr();
    if (flags.m_traceStateMachineSteps() >= 1 && switches.m_traceMsgActive())
    {
        static Flag_TraceMsg msg(flags.m_traceStateMachineSteps, 1);
        if (msg.isAnyInterested())
        {
            msg.getStream().str("");
            msg.addHeader("examples/legacy_panel/StateMachine", 80, "enter");
            msg.getStream() << "Leaving state '" << from << "' for '" << to << "'." << std::endl;
            msg.notifyStrategies();
        }
    }
}

}  // namespace by_hand

namespace newer
{

using utils::error::Error;
using utils::strategy::StrategyT;

void traceLeaving(const std::string& from, const std::string& to)
{
    GENERIC_UTILS_TRACE_STEP(1, "Leaving state '" << from << "' for '" << to << "'.");
}

void reportUnknown(const std::string& command)
{
    Error error(__FILE__, __LINE__, __func__, Error::DOES_NOT_EXIST, Error::ERROR);
    error.getStream() << "Command '" << command << "' does not exist.";
    StrategyT<Error>::invokeStrategies(Error::STRATEGY_TYPE, error);
}

void refuseNullReceiver()
{
    Error error(__FILE__, __LINE__, __func__, Error::NULL_PTR, Error::ERROR);
    error.getStream() << "Invalid null pointer 'receiverPtr' encountered.";
    StrategyT<Error>::invokeStrategies(Error::STRATEGY_TYPE, error);
    error.throwError();
}

}  // namespace newer

namespace side_by_side
{

using utils::flag::Flag_TraceMsg;
using utils::flag::TraceMsg;

OneLog::OneLog(std::ostream& os)
    : Flag_TraceStrategy("One log"), StrategyT(TraceMsg::STRATEGY_TYPE, "One log", false), m_os(os)
{
}

void OneLog::processTrace(const Flag_TraceMsg& traceMsg)
{
    m_os << traceMsg.getString();  // its text ends with a new-line
}

bool OneLog::isInterested(const Flag_TraceMsg&)
{
    return true;
}

void OneLog::processClientObject(TraceMsg& traceMsg)
{
    m_os << traceMsg << "\n";
}

bool OneLog::isInterested(const TraceMsg&)
{
    return true;
}

}  // namespace side_by_side
