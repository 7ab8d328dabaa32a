#ifndef TESTS_SCPI_SCPIMODEL_H
#define TESTS_SCPI_SCPIMODEL_H

#include <cctype>
#include <cstddef>
#include <string>
#include <vector>

namespace test
{

inline char lower(char c)
{
    return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

inline char upper(char c)
{
    return static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
}

/// The rules of SCPI strings taken literally, step by step, in the locale "C".
struct ScpiModel
{
    explicit ScpiModel(const std::string& name)
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

    bool isCompliant(const std::string& header, std::vector<std::string>& steps) const
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

}  // namespace test

#endif
