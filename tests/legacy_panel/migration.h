#ifndef TESTS_LEGACY_PANEL_MIGRATION_H
#define TESTS_LEGACY_PANEL_MIGRATION_H

#include <ostream>
#include <string>

#include <utils/flag/FlagT.h>
#include <utils/flag/TraceMsg.h>
#include <utils/flagTraceMsg.h>
#include <utils/flagTraceStrategy.h>
#include <utils/strategy/StrategyT.h>

/// @file
/// The tracing and the reports of the front panel example, as they looked before the library had a
/// macro for older traces, and as they look with the newer classes; docs/older-generation.md
/// explains both.

namespace by_hand
{

/// Traces a change of the state with the older classes, step by step.
void traceLeaving(const std::string& from, const std::string& to);

}  // namespace by_hand

namespace newer
{

struct Flags
{
    utils::flag::FlagT<int> m_traceSteps{"legacy_panel::m_traceSteps", 0};
};

/// Traces a change of the state with the newer classes.
void traceLeaving(const std::string& from, const std::string& to);

/// Reports a command that does not exist with the newer classes.
void reportUnknown(const std::string& command);

/// Reports an operation that has no receiver, and ends the process, with the newer classes.
[[noreturn]] void refuseNullReceiver();

}  // namespace newer

namespace side_by_side
{

/// Writes the traces of both generations to one stream while it lives.
class OneLog : public utils::flag::Flag_TraceStrategy,
               public utils::strategy::StrategyT<utils::flag::TraceMsg>
{
  public:
    explicit OneLog(std::ostream& os);

    void processTrace(const utils::flag::Flag_TraceMsg& traceMsg) override;
    bool isInterested(const utils::flag::Flag_TraceMsg& traceMsg) override;

    void processClientObject(utils::flag::TraceMsg& traceMsg) override;
    bool isInterested(const utils::flag::TraceMsg& traceMsg) override;

  private:
    std::ostream& m_os;
};

}  // namespace side_by_side

#endif
