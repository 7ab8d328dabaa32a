// The tracing and the reports of the front panel example, before and after they are migrated.
//
// - traces by hand and by the macro are the same, but for the place
// - the newer traces say the same words
// - newer reports say what the older ones do; misuse ends the process, whatever is registered
// - the traces of both generations reach one strategy, in their order
// - both generations' flags start from one file

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include <utils/errObjectDoesNotExistError.h>
#include <utils/flagTrace.h>
#include <utils/gsFlags.h>
#include <utils/singleton/SingletonT.h>
#include <utils/stdSingleton.h>

#include "err/RecordingStrategy.h"
#include "flag_legacy/RecordingOlderTraces.h"
#include "migration.h"
#include "support/ConfigDirectory.h"
#include "support/RecordingErrorStrategy.h"
#include "support/RecordingTraceStrategy.h"

using test::RecordingOlderTraces;
using testing::ElementsAre;
using utils::flag::findGsFlag;
using utils::flag::Gs_Flags;

namespace
{

// What the example does.
void traceLeavingByMacro(const std::string& from, const std::string& to)
{
    GENERIC_UTILS_OLDER_TRACE(findGsFlag(&Gs_Flags::m_traceStateMachineSteps), 1,
                              "Leaving state '" << from << "' for '" << to << "'.");
}

class LegacyPanelMigration : public testing::Test
{
  protected:
    const test::ConfigDirectory m_config{
        "Gs_Flags::m_traceStateMachineSteps\n1\nlegacy_panel::m_traceSteps\n1\n"};
};

}  // namespace

TEST_F(LegacyPanelMigration, MacroTracesWhatWasTracedByHand)
{
    const RecordingOlderTraces traces;
    by_hand::traceLeaving("off", "searching");
    traceLeavingByMacro("off", "searching");
    EXPECT_THAT(traces.getTexts(), ElementsAre("TIME: Leaving state 'off' for 'searching'.\n",
                                               "TIME: Leaving state 'off' for 'searching'.\n"));
}

TEST_F(LegacyPanelMigration, NothingIsTracedWithTheLevelsAtZero)
{
    const RecordingOlderTraces olderTraces;
    const test::RecordingTraceStrategy newerTraces;
    utils::Std_Singleton<Gs_Flags>::getInstancePtr()->m_traceStateMachineSteps.setValue(0);
    utils::singleton::SingletonT<newer::Flags>::getInstancePtr()->m_traceSteps.setValue(0);
    by_hand::traceLeaving("off", "searching");
    traceLeavingByMacro("off", "searching");
    newer::traceLeaving("off", "searching");
    EXPECT_THAT(olderTraces.getTexts(), testing::IsEmpty());
    EXPECT_THAT(newerTraces.getWords(), testing::IsEmpty());
}

TEST_F(LegacyPanelMigration, NewerTraceSaysTheSameWords)
{
    const test::RecordingTraceStrategy traces;
    newer::traceLeaving("off", "searching");
    EXPECT_THAT(traces.getWords(), ElementsAre("Leaving state 'off' for 'searching'."));
}

TEST_F(LegacyPanelMigration, NewerReportHasTheCommandInItsWords)
{
    const test::RecordingErrorStrategy errors;
    newer::reportUnknown("dance");
    EXPECT_THAT(errors.getWords(), ElementsAre("Command 'dance' does not exist."));
}

// The older strategies would have kept the process.
TEST_F(LegacyPanelMigration, NewerMisuseEndsTheProcessWithStrategiesToo)
{
    const test::RecordingErrorStrategy errors;
    EXPECT_EXIT(newer::refuseNullReceiver(), testing::ExitedWithCode(1), "");
}

TEST_F(LegacyPanelMigration, OneLogTakesTheTracesOfBothGenerations)
{
    std::ostringstream text;
    const side_by_side::OneLog log(text);
    traceLeavingByMacro("off", "searching");
    newer::traceLeaving("searching", "measuring");
    traceLeavingByMacro("measuring", "off");
    EXPECT_THAT(text.str(), testing::MatchesRegex(
                                "[^\n]*: Leaving state 'off' for 'searching'.\n"
                                "[0-9-]+ [0-9:]+: Leaving state 'searching' for 'measuring'.\n"
                                "[^\n]*: Leaving state 'measuring' for 'off'.\n"));
}
