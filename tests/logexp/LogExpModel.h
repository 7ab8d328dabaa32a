#ifndef TESTS_LOGEXP_LOGEXPMODEL_H
#define TESTS_LOGEXP_LOGEXPMODEL_H

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace test
{

/// The rules of logical expressions taken literally: the text is rewritten, each time from the
/// start.
class LogExpModel
{
  public:
    explicit LogExpModel(std::map<std::string, bool> table) : m_table(std::move(table)) {}

    bool evaluate(const std::string& expression)
    {
        return expression.empty() ? true : calculate(parse(expression));
    }

    std::string parse(const std::string& expression)
    {
        m_steps.push_back("    parse " + expression);
        std::string output;
        std::string pending;
        for (const char c : expression)
        {
            if (c == ' ')
            {
                continue;
            }
            if (std::string("!&|()^@").find(c) == std::string::npos)
            {
                pending += c;
                continue;
            }
            flush(pending, output);
            output += c;
        }
        flush(pending, output);
        replaceAll(output, "^", "!");
        replaceAll(output, "@", "&");
        return output;
    }

    bool calculate(std::string text)
    {
        m_steps.push_back("    calculate " + text);
        for (;;)
        {
            const std::size_t close = text.find(')');
            if (close == std::string::npos)
            {
                return calculateSection(text);
            }
            std::size_t open = 0;
            for (std::size_t i = 0; i < close; ++i)
            {
                open = text[i] == '(' ? i : open;
            }
            std::string section;
            for (std::size_t i = open + 1; i < close; ++i)
            {
                section += text[i];
            }
            text.replace(open, close - open + 1, 1, calculateSection(section) ? '1' : '0');
        }
    }

    std::vector<std::string> m_steps;

  private:
    void flush(std::string& pending, std::string& output)
    {
        if (pending.empty())
        {
            return;
        }
        m_steps.push_back("    getIdValue " + pending);
        const auto found = m_table.find(pending);
        const bool value = found == m_table.end() ? false : found->second;
        m_steps.push_back("      " + pending + (found == m_table.end() ? " not found" : " found"));
        m_steps.push_back("      " + pending + " = " + (value ? "1" : "0"));
        output += value ? '1' : '0';
        pending.clear();
    }

    bool calculateSection(std::string section)
    {
        m_steps.push_back("    calculateSection.0 " + section);
        replaceAll(section, "!0", "1");
        replaceAll(section, "!1", "0");
        bool result = section.at(0) == '1';
        for (std::size_t i = 1; i + 1 < section.size(); ++i)
        {
            if (section[i] == '&' && section[i + 1] == '0')
            {
                result = false;
            }
            if (section[i] == '|' && section[i + 1] == '1')
            {
                result = true;
            }
        }
        m_steps.push_back(std::string("      result = ") + (result ? "1" : "0"));
        return result;
    }

    // Always from the start.
    static void replaceAll(std::string& text, const std::string& what, const std::string& with)
    {
        for (std::size_t found = text.find(what); found != std::string::npos;
             found = text.find(what))
        {
            text.replace(found, what.size(), with);
        }
    }

    std::map<std::string, bool> m_table;
};

}  // namespace test

#endif
