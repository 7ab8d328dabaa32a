// Random names and headers against a model that takes the rules literally, step by step:
//
// - the two forms of a name
// - the result of a comparison, and every step that it traces

#include <gtest/gtest.h>

#include <cctype>
#include <random>
#include <string>
#include <vector>

#include <utils/scpi/Flags.h>
#include <utils/scpi/ScpiString.h>

#include "support/ConfigDirectory.h"
#include "support/RecordingTraceStrategy.h"

namespace
{

using utils::scpi::Flags;
using utils::scpi::ScpiString;
using utils::singleton::SingletonT;

using Steps = std::vector<std::string>;

char lower(char c)
{
    return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

char upper(char c)
{
    return static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
}

struct Model
{
    explicit Model(const std::string& name)
    {
        const std::string vowels = "aeiouAEIOU";
        int k = 1;
        for (std::size_t i = 0; i < name.size(); ++i)
        {
            const char c = name[i];
            if (c == '"')
            {
                k += 1;
            }
            else if (c == ':' || c == '?')
            {
                shortName += c;
                longName += c;
                k = 1;
            }
            else if (k < 4)
            {
                shortName += upper(c);
                longName += upper(c);
                k += 1;
            }
            else if (k == 4)
            {
                const bool isVowel = vowels.find(c) != std::string::npos;
                const bool isNextOther = i + 1 < name.size() && name[i + 1] != ':';
                if (isVowel && isNextOther)
                {
                    longName += lower(c);
                }
                else
                {
                    shortName += upper(c);
                    longName += upper(c);
                }
                k = 5;
            }
            else
            {
                longName += lower(c);
                k += 1;
            }
        }
    }

    // Characters behind the end read as NUL.
    static char at(const std::string& text, std::size_t index)
    {
        return index < text.size() ? text[index] : '\0';
    }

    bool isCompliant(const std::string& header, Steps& steps) const
    {
        if (header.empty())
        {
            return false;
        }
        std::size_t i = header[0] == '"' ? 1 : 0;
        std::size_t j = 0;
        const auto add = [&](const std::string& words)
        { steps.push_back(words + " '" + header.substr(i) + "' '" + longName.substr(j) + "'."); };

        int step = i == header.size() ? 5 : 31;
        while (step != 5)
        {
            const char h = at(header, i);
            const char l = at(longName, j);
            switch (step)
            {
                case 31:
                    step = lower(h) != lower(l) ? 4 : 32;
                    break;
                case 32:
                    if (h != '\0' && l == upper(h))
                    {
                        add("short character match");
                    }
                    while (at(header, i) != '\0' && at(longName, j) == upper(at(header, i)))
                    {
                        ++i;
                        ++j;
                    }
                    step = 33;
                    break;
                case 33:
                    if (std::islower(static_cast<unsigned char>(l)) != 0 && (h == ':' || h == '\0'))
                    {
                        add("short header match");
                        while (at(longName, j) != ':' && at(longName, j) != '\0')
                        {
                            ++j;
                        }
                    }
                    step = 34;
                    break;
                case 34:
                    step = 35;
                    if (l == lower(h) && h == ':')
                    {
                        step = 31;
                    }
                    else if (l == lower(h))
                    {
                        add("long character match");
                        while (at(header, i) != ':' && at(header, i) != '\0' &&
                               at(longName, j) == lower(at(header, i)))
                        {
                            ++i;
                            ++j;
                        }
                    }
                    break;
                case 35:
                    step = h == '\0' ? 5 : lower(h) != lower(l) ? 4 : 32;
                    break;
                default:
                    i += h == '"' ? 1 : 0;
                    step = 5;
                    break;
            }
        }
        add("compliant if following strings are both empty");
        return i == header.size() && j == longName.size();
    }

    std::string shortName;
    std::string longName;
};

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
    std::string makeHeader(const Model& model)
    {
        std::string header;
        for (std::size_t j = 0; j < model.longName.size(); ++j)
        {
            const char c = model.longName[j];
            if (lower(c) == c && std::isalpha(static_cast<unsigned char>(c)) != 0 &&
                pick("01") == '0')
            {
                j = std::min(model.longName.find(':', j), model.longName.size()) - 1;
                continue;
            }
            header += pick("01") == '0' ? lower(c) : upper(c);
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

    const test::ConfigDirectory m_emptyConfiguration;
    std::mt19937 m_random{20240517};
};

TEST_F(ScpiModel, FormsAreEqual)
{
    for (int i = 0; i < 20000; ++i)
    {
        const std::string name = makeText("aeFqX1:?\"", 12);
        const Model model(name);
        const ScpiString scpiString(name);
        ASSERT_EQ(scpiString.getShortName(), model.shortName) << name;
        ASSERT_EQ(scpiString.getLongName(), model.longName) << name;
        ASSERT_EQ(scpiString.isQuery(), name.find('?') != std::string::npos) << name;
    }
}

TEST_F(ScpiModel, ComparisonsAreEqualStepByStep)
{
    SingletonT<Flags>::getInstancePtr()->m_traceSteps.setValue(3);
    test::RecordingTraceStrategy traces;
    int numCompliant = 0;
    for (int i = 0; i < 20000; ++i)
    {
        const std::string name = makeText("aeFqX:?\"", 14);
        const Model model(name);
        const ScpiString scpiString(name);
        const std::string header = i % 4 == 0 ? makeText("aefqx:?\"", 8) : makeHeader(model);

        Steps steps;
        const bool expected = model.isCompliant(header, steps);
        traces.clear();
        ASSERT_EQ(scpiString.isCompliant(header), expected) << name << " " << header;
        ASSERT_EQ(traces.getWords(), steps) << name << " " << header;
        numCompliant += expected ? 1 : 0;
    }
    EXPECT_GT(numCompliant, 3000);
    SingletonT<Flags>::getInstancePtr()->m_traceSteps.setValue(1);
}

}  // namespace
