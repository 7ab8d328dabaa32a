// In steady state, with traces off, executing and resetting commands and macros allocates nothing.

#include <gtest/gtest.h>

#include "support/AllocationCounter.h"
#include "support/ConfigDirectory.h"
#include "utils/command/Macro.h"
#include "utils/command/NoOpCommand.h"

namespace
{

using test::ConfigDirectory;
using test::countAllocations;
using utils::command::Macro;
using utils::command::NoOpCommand;

TEST(CommandAllocation, CounterCountsTheAllocationsOfTheLibrary)
{
    const ConfigDirectory configuration;
    const unsigned long before = countAllocations();
    Macro macro(std::string(50, 'n'));
    macro.add(new NoOpCommand);
    EXPECT_GE(countAllocations() - before, 3U);
}

TEST(CommandAllocation, ExecutingAMacroAllocatesNothing)
{
    const ConfigDirectory configuration;
    Macro macro("a macro with a name of more than sixteen characters");
    for (int i = 0; i < 10; ++i)
    {
        macro.add(new NoOpCommand);
    }
    macro.execute();  // the flags exist from here on

    const unsigned long before = countAllocations();
    for (int i = 0; i < 1000; ++i)
    {
        macro.reset();
        macro.execute();
    }
    EXPECT_EQ(countAllocations() - before, 0U);
}

TEST(CommandAllocation, ExecutingAnAutoDeleteMacroAllocatesNothing)
{
    const ConfigDirectory configuration;
    auto* const macro = new Macro("macro", false, true);
    macro->add(new NoOpCommand);

    const unsigned long before = countAllocations();
    macro->execute();
    EXPECT_EQ(countAllocations() - before, 0U);
}

}  // namespace
