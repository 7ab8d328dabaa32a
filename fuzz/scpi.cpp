// SCPI strings. An input is a name, a line feed, and a header that a client may send:
//
// - both forms of the name, whether the header is compliant, and every traced step are those of
//   the literal model
// - the letter case of a header does not matter
// - of names that consist of letters only, every node is accepted in its short and in its long
//   form, and in no other

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

#include <utils/scpi/Flags.h>
#include <utils/scpi/ScpiString.h>

#include "scpi/ScpiModel.h"
#include "support/ConfigDirectory.h"
#include "support/RecordingTraceStrategy.h"
#include "target.h"

namespace
{

using utils::scpi::ScpiString;
using utils::singleton::SingletonT;

struct Setting
{
    Setting() { SingletonT<utils::scpi::Flags>::getInstancePtr()->m_traceSteps.setValue(3); }

    const test::ConfigDirectory emptyConfiguration;
    test::RecordingTraceStrategy traces;
};

std::string changeCase(std::string text, char (*change)(char))
{
    std::transform(text.begin(), text.end(), text.begin(), change);
    return text;
}

std::vector<std::string> splitNodes(const std::string& text)
{
    std::vector<std::string> nodes(1);
    for (const char c : text)
    {
        if (c == ':')
        {
            nodes.emplace_back();
            continue;
        }
        nodes.back() += c;
    }
    return nodes;
}

bool isOfLettersOnly(const std::string& name)
{
    const std::vector<std::string> nodes = splitNodes(name);
    return std::all_of(nodes.begin(), nodes.end(),
                       [](const std::string& node)
                       {
                           return !node.empty() &&
                                  std::all_of(node.begin(), node.end(),
                                              [](unsigned char c) { return std::isalpha(c) != 0; });
                       });
}

// The rule as a manual states it.
bool isAnyForm(const ScpiString& scpiString, const std::string& header)
{
    const std::vector<std::string> sent = splitNodes(changeCase(header, test::upper));
    const std::vector<std::string> shortNodes = splitNodes(scpiString.getShortName());
    const std::vector<std::string> longNodes =
        splitNodes(changeCase(scpiString.getLongName(), test::upper));
    if (sent.size() != longNodes.size())
    {
        return false;
    }
    for (std::size_t i = 0; i < sent.size(); ++i)
    {
        if (sent[i] != shortNodes[i] && sent[i] != longNodes[i])
        {
            return false;
        }
    }
    return true;
}

}  // namespace

void fuzz::run(std::string_view input)
{
    static auto* const setting = new Setting;
    // Names and headers end at a NUL character.
    std::string text(input);
    text.erase(std::remove(text.begin(), text.end(), '\0'), text.end());
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string name = text.substr(0, end);
    const std::string header = end < text.size() ? text.substr(end + 1) : std::string();

    const test::ScpiModel model(name);
    const ScpiString scpiString(name);
    require(scpiString.getName() == name, "the name is kept");
    require(scpiString.getShortName() == model.shortName, "the short form is the model's");
    require(scpiString.getLongName() == model.longName, "the long form is the model's");
    require(scpiString.isQuery() == (name.find('?') != std::string::npos), "a query has a '?'");

    std::vector<std::string> steps;
    const bool expected = model.isCompliant(header, steps);
    setting->traces.clear();
    require(scpiString.isCompliant(header) == expected, "the result is the model's");
    require(setting->traces.getWords() == steps, "the steps are the model's");
    require(scpiString.isCompliant(changeCase(header, test::lower)) == expected,
            "a header in lower case means the same");
    require(scpiString.isCompliant(changeCase(header, test::upper)) == expected,
            "a header in upper case means the same");
    setting->traces.clear();

    if (isOfLettersOnly(name) && header.find('"') == std::string::npos)
    {
        require(expected == isAnyForm(scpiString, header), "each node has exactly its two forms");
    }
}
