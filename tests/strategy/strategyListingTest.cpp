// Texts of strategies and of the whole registry.
//
// - output: type and name, a line each; the stream operator calls the virtual output
// - listing: banner; per type in byte-wise order a headline, the default or "None", an empty line,
//   the listed strategies each followed by an empty line, and a closing line; "... Done."
// - a type that has become empty is still listed
// - each line is flushed
// - formatting of the target stream is neither used nor changed

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iomanip>
#include <ostream>
#include <sstream>
#include <string>

#include "strategy/Client.h"
#include "support/FlushedPieces.h"

namespace
{

using test::ClientStrategy;
using utils::strategy::Strategy;

std::string listing()
{
    std::ostringstream os;
    Strategy::outputStrategyTypes(os);
    return os.str();
}

TEST(StrategyOutput, WritesTypeAndName)
{
    const ClientStrategy strategy("a name", false, "a type");
    std::ostringstream os;
    strategy.output(os);
    EXPECT_EQ(os.str(),
              "Type = 'a type'\n"
              "Name = 'a name'\n");
}

class Verbose : public ClientStrategy
{
  public:
    using ClientStrategy::ClientStrategy;

    void output(std::ostream& os) const override
    {
        ClientStrategy::output(os);
        os << "Verbose\n";
    }
};

TEST(StrategyOutput, StreamOperatorCallsTheVirtualOutput)
{
    const Verbose strategy("name");
    const Strategy& base = strategy;
    std::ostringstream os;
    std::ostream& result = os << base;
    EXPECT_EQ(&result, &os);
    EXPECT_EQ(os.str(),
              "Type = 'client'\n"
              "Name = 'name'\n"
              "Verbose\n");
}

TEST(StrategyOutput, IgnoresAndKeepsTheFormatOfTheStream)
{
    const ClientStrategy strategy("n", false, "t");
    std::ostringstream os;
    os << std::hex << std::setfill('*') << std::setw(40) << std::left;
    os << strategy;
    EXPECT_EQ(os.str(), "Type = 't'\nName = 'n'\n");
    EXPECT_EQ(os.width(), 40);
    EXPECT_EQ(os.fill(), '*');
    EXPECT_EQ(os.flags() & std::ios_base::basefield, std::ios_base::hex);
    EXPECT_EQ(os.flags() & std::ios_base::adjustfield, std::ios_base::left);
}

TEST(StrategyListing, ShowsTheLibrarysDefaults)
{
    EXPECT_EQ(listing(),
              "*** Current strategies are:\n"
              "---------------- Error ...\n"
              "Default strategy: \n"
              "Type = 'Error'\n"
              "Name = 'Default Error Strategy'\n"
              "\n"
              ".. end of Error\n"
              "---------------- Trace ...\n"
              "Default strategy: \n"
              "Type = 'Trace'\n"
              "Name = 'Default Trace Message Strategy'\n"
              "\n"
              ".. end of Trace\n"
              "... Done.\n");
}

TEST(StrategyListing, ShowsTypesInByteOrderAndStrategiesInOrderOfRegistration)
{
    const ClientStrategy small("small", true, "a");
    const Verbose second("second", false, "B");
    const ClientStrategy first("first", false, "B");
    EXPECT_EQ(listing(),
              "*** Current strategies are:\n"
              "---------------- B ...\n"
              "Default strategy: \n"
              "None\n"
              "\n"
              "Type = 'B'\n"
              "Name = 'second'\n"
              "Verbose\n"
              "\n"
              "Type = 'B'\n"
              "Name = 'first'\n"
              "\n"
              ".. end of B\n"
              "---------------- Error ...\n"
              "Default strategy: \n"
              "Type = 'Error'\n"
              "Name = 'Default Error Strategy'\n"
              "\n"
              ".. end of Error\n"
              "---------------- Trace ...\n"
              "Default strategy: \n"
              "Type = 'Trace'\n"
              "Name = 'Default Trace Message Strategy'\n"
              "\n"
              ".. end of Trace\n"
              "---------------- a ...\n"
              "Default strategy: \n"
              "Type = 'a'\n"
              "Name = 'small'\n"
              "\n"
              ".. end of a\n"
              "... Done.\n");
}

TEST(StrategyListing, ShowsATypeThatHasBecomeEmpty)
{
    {
        const ClientStrategy theDefault("default", true, "Gone");
        const ClientStrategy listed("listed", false, "Gone");
    }
    EXPECT_NE(listing().find("---------------- Gone ...\n"
                             "Default strategy: \n"
                             "None\n"
                             "\n"
                             ".. end of Gone\n"),
              std::string::npos);
}

TEST(StrategyListing, ShowsTheDefaultThroughItsVirtualOutput)
{
    const Verbose theDefault("default", true, "V");
    EXPECT_NE(listing().find("Default strategy: \n"
                             "Type = 'V'\n"
                             "Name = 'default'\n"
                             "Verbose\n"
                             "\n"
                             ".. end of V\n"),
              std::string::npos);
}

TEST(StrategyListing, FlushesEachLine)
{
    const ClientStrategy listed("listed", false, "A");
    test::FlushedPieces os;
    Strategy::outputStrategyTypes(os.getStream());
    EXPECT_THAT(
        os.getPieces(),
        testing::ElementsAre(
            "*** Current strategies are:\n", "---------------- A ...\n", "Default strategy: \n",
            "None\n", "\n", "Type = 'A'\n", "Name = 'listed'\n", "\n", ".. end of A\n",
            "---------------- Error ...\n", "Default strategy: \n", "Type = 'Error'\n",
            "Name = 'Default Error Strategy'\n", "\n", ".. end of Error\n",
            "---------------- Trace ...\n", "Default strategy: \n", "Type = 'Trace'\n",
            "Name = 'Default Trace Message Strategy'\n", "\n", ".. end of Trace\n", "... Done.\n"));
}

TEST(StrategyListing, IgnoresAndKeepsTheFormatOfTheStream)
{
    const std::string expected = listing();
    std::ostringstream os;
    os << std::setfill('*') << std::setw(40);
    Strategy::outputStrategyTypes(os);
    EXPECT_EQ(os.str(), expected);
    EXPECT_EQ(os.width(), 40);
    EXPECT_EQ(os.fill(), '*');
}

}  // namespace
