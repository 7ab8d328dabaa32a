#ifndef UTILS_UTILS_H
#define UTILS_UTILS_H

/// @file
/// Everything.

#include <utils/SourceLocation.h>
#include <utils/command/Command.h>
#include <utils/command/Flags.h>
#include <utils/command/Macro.h>
#include <utils/command/NoOpCommand.h>
#include <utils/command/SleepCommand.h>
#include <utils/error/DefaultStrategy.h>
#include <utils/error/Error.h>
#include <utils/error/StandardOutStrategy.h>
#include <utils/error/SysLogStrategy.h>
#include <utils/export.h>
#include <utils/flag/DefaultStrategy.h>
#include <utils/flag/Flag.h>
#include <utils/flag/FlagT.h>
#include <utils/flag/Flags.h>
#include <utils/flag/InitialValues.h>
#include <utils/flag/Trace.h>
#include <utils/flag/TraceMsg.h>
#include <utils/llsCalendarTime.h>
#include <utils/llsEnvVar.h>
#include <utils/llsUser.h>
#include <utils/lock/Lock.h>
#include <utils/observer/Event.h>
#include <utils/observer/Flags.h>
#include <utils/observer/Notifier.h>
#include <utils/queue/Flags.h>
#include <utils/queue/Queue.h>
#include <utils/queue/WriteCommand.h>
#include <utils/scpi/Flags.h>
#include <utils/scpi/ScpiString.h>
#include <utils/singleton/NeverDestroyed.h>
#include <utils/singleton/SingletonT.h>
#include <utils/stdData.h>
#include <utils/stdType.h>
#include <utils/strategy/Strategy.h>
#include <utils/strategy/StrategyT.h>
#include <utils/task/Flags.h>
#include <utils/task/Task.h>
#include <utils/task/TerminateTaskMacro.h>

#endif
