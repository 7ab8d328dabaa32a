#ifndef TESTS_XML_PARSERMODEL_H
#define TESTS_XML_PARSERMODEL_H

#include <cstddef>
#include <string>
#include <vector>

namespace test
{

/// The rules of the XML parser taken literally, without regard to speed. It writes all that a
/// parser traces at level 2, raises and reports into a journal: traces as they are, events as
/// EventJournal has them, warnings as "name: words".
class ParserModel
{
  public:
    explicit ParserModel(std::string text) : m_text(std::move(text)) {}

    bool parse()
    {
        add("Starting parsing of:\n" + m_text);
        m_names.emplace_back("xml_root_node");
        while (m_offset < m_text.size())
        {
            if (!getNextTag())
            {
                return false;
            }
            if (m_name.empty())
            {
                continue;
            }
            add("Processing tag '" + m_name + "'.");
            if (!(m_isEndTag ? processEndTag() : processNonEndTag()))
            {
                return false;
            }
        }
        return m_names.size() == 1 ||
               warn("Tag Mismatch", "Missing one or more end tags in XML document near offset:" +
                                        std::to_string(m_offset));
    }

    std::vector<std::string> m_journal;

  private:
    static constexpr std::size_t NONE = std::string::npos;
    const std::string m_white = " \t\r\n";

    void add(const std::string& line) { m_journal.push_back(line); }

    bool warn(const std::string& name, const std::string& words)
    {
        add(name + ": " + words);
        return false;
    }

    std::string level() const { return std::to_string(m_names.size() - 1); }

    bool skip(std::size_t left, const std::string& open, const std::string& close)
    {
        if (m_text.compare(left, open.size(), open) != 0)
        {
            return false;
        }
        const std::size_t found = m_text.find(close, left + open.size());
        m_offset = found == NONE ? m_text.size() : found + 1;
        return true;
    }

    bool getNextTag()
    {
        m_name.clear();
        m_attributes.clear();
        m_isLeaf = m_isEndTag = m_isEmpty = false;
        std::size_t left = m_text.find('<', m_offset);
        while (left != NONE && (skip(left, "<?", "?>") || skip(left, "<!--", "-->") ||
                                skip(left, "<!DOCTYPE", ">")))
        {
            left = m_text.find('<', m_offset);
        }
        if (left == NONE)
        {
            m_offset = m_text.size();
            return true;
        }
        const std::size_t right = m_text.find('>', left + 1);
        const std::size_t next = m_text.find('<', left + 1);
        if (right == NONE || (next != NONE && next < right))
        {
            std::string words = "Can not find right tag delimiter for left tag delimiter\n";
            words += "starting offset " + std::to_string(left);
            words += " ending offset " + std::to_string(right) + "\n";
            words += m_text.substr(left, right == NONE ? NONE : right - left + 1) + "\n";
            return warn("Malformed Tag", words);
        }
        const std::string tag = m_text.substr(left, right - left + 1);
        m_offset = right + 1;
        m_isEndTag = tag[1] == '/';
        m_isEmpty = tag[tag.size() - 2] == '/';

        const std::size_t start = tag.find_first_not_of(m_white, m_isEndTag ? 2 : 1);
        const std::size_t end = start == NONE ? NONE : tag.find_first_of(m_white + ">/", start);
        if (start == NONE || end == NONE || end <= start)
        {
            return warn("Malformed Tag",
                        "No element name specified in tag '" + tag +
                            "' in XML document near offset:" + std::to_string(start) + "\n");
        }
        m_name = tag.substr(start, end - start);
        const std::size_t from = tag.find_first_not_of(m_white, end);
        if (from != NONE && tag[from] != '>' && tag[from] != '/')
        {
            const std::size_t to = tag.find_last_not_of(m_white, tag.size() - (m_isEmpty ? 3 : 2));
            m_attributes = tag.substr(from, to - from + 1);
        }
        m_isLeaf = isLeaf();
        add("Found next tag: name = '" + m_name + "', attributes = '" + m_attributes +
            "', leaf? = " + (m_isLeaf ? "1" : "0") + ", end tag? = " + (m_isEndTag ? "1" : "0") +
            ", empty element? = " + (m_isEmpty ? "1" : "0") + ".");
        return true;
    }

    bool isLeaf()
    {
        if (m_isEmpty)
        {
            return true;
        }
        if (m_isEndTag)
        {
            return false;
        }
        m_offset = m_text.find_first_not_of(m_white, m_offset);
        if (m_offset == NONE)
        {
            return false;
        }
        if (m_text[m_offset] != '<')
        {
            return true;
        }
        return m_offset != m_text.size() - 1 && m_text[m_offset + 1] == '/';
    }

    bool processNonEndTag()
    {
        m_names.push_back(m_name);
        add("Notifying observers of start of element '" + m_name + "'- current level = " + level() +
            ".");
        add("start " + level() + " " + m_name);
        if (!m_attributes.empty() && !parseAttributes())
        {
            return false;
        }
        std::string value;
        if (m_isLeaf && !m_isEmpty)
        {
            const std::size_t start = m_text.find_first_not_of(m_white, m_offset);
            const std::size_t end = start == NONE ? NONE : m_text.find('<', start);
            if (end == NONE)
            {
                return warn("Malformed Element",
                            "Can not determine value for leaf element '" + m_names.back() + "\n");
            }
            const std::size_t last = m_text.find_last_not_of(m_white, end - 1);
            value = last != NONE && start <= last ? m_text.substr(start, last - start + 1) : "";
        }
        add("Notifying observers of leaf element '" + m_name + "' with value '" + value +
            "' - current level = " + level() + ".");
        add("leaf " + level() + " " + m_name + "='" + value + "'");
        if (m_isEmpty)
        {
            endElement();
        }
        return true;
    }

    bool parseAttributes()
    {
        const std::string& text = m_attributes;
        add("Parsing '" + text + "' for attribute names/values.");
        std::size_t start = 0;
        do
        {
            const std::size_t end = text.find_first_of(m_white + "=", start);
            if (end == NONE || end <= start)
            {
                return warn("Malformed Attribute",
                            "No attribute name specified in '" + text + "\n");
            }
            const std::string name = text.substr(start, end - start);
            const std::size_t separator = text.find_first_not_of(m_white, end);
            if (separator == NONE || text[separator] != '=')
            {
                return warn("Malformed Attribute",
                            "Missing attribute name/value separator for attribute '" + name + "\n");
            }
            const std::size_t open = text.find_first_of("\"'", start);
            if (open == NONE)
            {
                return warn("Malformed Attribute",
                            "Can not find value delimiter for attribute '" + name + "\n");
            }
            const std::size_t close = text.find(text[open], open + 1);
            if (close == NONE)
            {
                return warn("Malformed Attribute",
                            "Missing proper right value delimiter for attribute '" + name + "\n");
            }
            const std::string value = text.substr(open + 1, close - open - 1);
            add("Notifying observers of attribute: element name = '" + m_names.back() +
                "', attribute name = '" + name + "', attribute value = '" + value + "'.");
            add("attribute " + level() + " " + name + "='" + value + "'");
            start = text.find_first_not_of(m_white, close + 1);
        } while (start != NONE);
        return true;
    }

    bool processEndTag()
    {
        if (m_names.size() == 1)
        {
            return warn("Tag Mismatch", "No beginning tag specified for end tag '" + m_name + "\n");
        }
        if (m_names.back() != m_name)
        {
            return warn("Tag Mismatch", "End tag '" + m_name + "' does not match begin tag '" +
                                            m_names.back() + "\n");
        }
        endElement();
        return true;
    }

    void endElement()
    {
        add("Notifying observers of end of element '" + m_name + "'- current level = " + level() +
            ".");
        add("end " + level() + " " + m_name);
        m_names.pop_back();
    }

    std::string m_text;
    std::size_t m_offset = 0;
    std::vector<std::string> m_names;
    std::string m_name;
    std::string m_attributes;
    bool m_isLeaf = false;
    bool m_isEndTag = false;
    bool m_isEmpty = false;
};

}  // namespace test

#endif
