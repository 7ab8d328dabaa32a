// Random names and headers against a model that takes the rules literally, step by step:
//
// - the two forms of a name
// - the result of a comparison, and every step that it traces
// - the same result in another locale than the classic one, whose letters are the same

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <locale>
#include <random>
#include <string>
#include <vector>

#include <utils/scpi/Flags.h>
#include <utils/scpi/ScpiString.h>

#include "scpi/ScpiModel.h"
#include "support/ConfigDirectory.h"
#include "support/RecordingTraceStrategy.h"

namespace
{

using utils::scpi::Flags;
using utils::scpi::ScpiString;
using utils::singleton::SingletonT;

class ScpiModel : public testing::Test
{
  protected:
    char pick(const std::string& alphabet)
    {
        return alphabet[std::uniform_int_distribution<std::size_t>(0,
                                                                   alphabet.size() - 1)(m_random)];
    }

    std::string makeText(const std::string& alphabet, std::size_t maxSize)
    {
        std::string text(std::uniform_int_distribution<std::size_t>(0, maxSize)(m_random), ' ');
        for (char& c : text)
        {
            c = pick(alphabet);
        }
        return text;
    }

    // A header that has to do with the name: its nodes in either form, letter case at will, now
    // and then a character changed, added or left out.
    std::string makeHeader(const test::ScpiModel& model)
    {
        std::string header;
        for (std::size_t j = 0; j < model.longName.size(); ++j)
        {
            const char c = model.longName[j];
            if (test::lower(c) == c && std::isalpha(static_cast<unsigned char>(c)) != 0 &&
                pick("01") == '0')
            {
                j = std::min(model.longName.find(':', j), model.longName.size()) - 1;
                continue;
            }
            header += pick("01") == '0' ? test::lower(c) : test::upper(c);
        }
        if (!header.empty() && pick("0123") == '0')
        {
            const std::size_t position =
                std::uniform_int_distribution<std::size_t>(0, header.size() - 1)(m_random);
            header.replace(position, static_cast<std::size_t>(pick("01") - '0'),
                           makeText("aF:?\"", 1));
        }
        if (pick("0123") == '0')
        {
            header = "\"" + header + "\"";
        }
        return header;
    }

    void compareStepByStep()
    {
        SingletonT<Flags>::getInstancePtr()->m_traceSteps.setValue(3);
        test::RecordingTraceStrategy traces;
        int numCompliant = 0;
        for (int i = 0; i < 10000; ++i)
        {
            const std::string name = makeText("aeFqX:?\"", 14);
            const test::ScpiModel model(name);
            const ScpiString scpiString(name);
            const std::string header = i % 4 == 0 ? makeText("aefqx:?\"", 8) : makeHeader(model);

            std::vector<std::string> steps;
            const bool expected = model.isCompliant(header, steps);
            traces.clear();
            ASSERT_EQ(scpiString.isCompliant(header), expected) << name << " " << header;
            ASSERT_EQ(traces.getWords(), steps) << name << " " << header;
            numCompliant += expected ? 1 : 0;
        }
        EXPECT_GT(numCompliant, 1500);
        SingletonT<Flags>::getInstancePtr()->m_traceSteps.setValue(1);
    }

    const test::ConfigDirectory m_emptyConfiguration;
    std::mt19937 m_random{20240517};
};

TEST_F(ScpiModel, FormsAreEqual)
{
    for (int i = 0; i < 20000; ++i)
    {
        const std::string name = makeText("aeFqX1:?\"", 12);
        const test::ScpiModel model(name);
        const ScpiString scpiString(name);
        ASSERT_EQ(scpiString.getShortName(), model.shortName) << name;
        ASSERT_EQ(scpiString.getLongName(), model.longName) << name;
        ASSERT_EQ(scpiString.isQuery(), name.find('?') != std::string::npos) << name;
    }
}

TEST_F(ScpiModel, ComparisonsAreEqualStepByStep)
{
    ASSERT_NO_FATAL_FAILURE(compareStepByStep());
}

TEST_F(ScpiModel, ComparisonsAreEqualStepByStepInAnotherLocale)
{
    const std::locale original;
    std::locale::global(std::locale(std::locale::classic(), new std::ctype<char>));
    compareStepByStep();
    std::locale::global(original);
}

}  // namespace
