// Reading XML with trivial handlers of the starts and ends of elements, of attributes and of texts.

#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <utility>

#include <expat.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include <pugixml.hpp>

#include <utils/xml/Parser.h>

#include "XmlDocuments.h"

namespace bench
{

namespace
{

// What handlers gather. The number of texts is nobody else's: some parsers hand texts over in
// pieces, and hand over the white space between elements.
struct Tally
{
    std::size_t numStarts = 0;
    std::size_t numEnds = 0;
    std::size_t numAttributes = 0;
    std::size_t firstCharacters = 0;  // the sum of those of names and of values of attributes
    std::size_t numTexts = 0;

    void start(char first)
    {
        ++numStarts;
        firstCharacters += static_cast<unsigned char>(first);
    }
    void end(char first)
    {
        ++numEnds;
        firstCharacters += static_cast<unsigned char>(first);
    }
    void attribute(char firstOfName, char firstOfValue)
    {
        ++numAttributes;
        firstCharacters += static_cast<unsigned char>(firstOfName);
        firstCharacters += static_cast<unsigned char>(firstOfValue);
    }
    void text(char first) { numTexts += first != '\0' ? 1 : 0; }

    bool isSameMarkup(const Tally& other) const
    {
        return numStarts == other.numStarts && numEnds == other.numEnds &&
               numAttributes == other.numAttributes && firstCharacters == other.firstCharacters;
    }
};

class GenericUtils
{
  public:
    static bool parse(const std::string& xml, Tally& tally)
    {
        Start start(tally);
        Attribute attribute(tally);
        Leaf leaf(tally);
        End end(tally);
        const utils::xml::DocumentForParsing document(xml);
        document.m_startOfElementEvent.registerInterest(&start, 0);
        document.m_attributeEvent.registerInterest(&attribute, 0);
        document.m_leafElementEvent.registerInterest(&leaf, 0);
        document.m_endOfElementEvent.registerInterest(&end, 0);
        return utils::xml::Parser(&document).parse();
    }

  private:
    class TallyNotifier : public utils::observer::Notifier
    {
      public:
        explicit TallyNotifier(Tally& tally) : m_tally(tally) {}

      protected:
        static const utils::xml::ElementData& toElement(void* data)
        {
            return *static_cast<const utils::xml::ElementData*>(data);
        }

        Tally& m_tally;
    };

    class Start : public TallyNotifier
    {
      public:
        using TallyNotifier::TallyNotifier;
        void notify(void* data) override { m_tally.start(toElement(data).name[0]); }
    };

    class Attribute : public TallyNotifier
    {
      public:
        using TallyNotifier::TallyNotifier;
        void notify(void* data) override
        {
            m_tally.attribute(toElement(data).name[0], toElement(data).value[0]);
        }
    };

    class Leaf : public TallyNotifier
    {
      public:
        using TallyNotifier::TallyNotifier;
        void notify(void* data) override { m_tally.text(toElement(data).value[0]); }
    };

    class End : public TallyNotifier
    {
      public:
        using TallyNotifier::TallyNotifier;
        void notify(void* data) override { m_tally.end(toElement(data).name[0]); }
    };
};

class Expat
{
  public:
    static bool parse(const std::string& xml, Tally& tally)
    {
        const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(
            XML_ParserCreate(nullptr), &XML_ParserFree);
        XML_SetUserData(parser.get(), &tally);
        XML_SetElementHandler(parser.get(), start, end);
        XML_SetCharacterDataHandler(parser.get(), text);
        return XML_Parse(parser.get(), xml.data(), static_cast<int>(xml.size()), XML_TRUE) ==
               XML_STATUS_OK;
    }

  private:
    static void start(void* data, const XML_Char* name, const XML_Char** attributes)
    {
        Tally& tally = *static_cast<Tally*>(data);
        tally.start(*name);
        for (; *attributes != nullptr; attributes += 2)
        {
            tally.attribute(*attributes[0], *attributes[1]);
        }
    }

    static void end(void* data, const XML_Char* name) { static_cast<Tally*>(data)->end(*name); }

    static void text(void* data, const XML_Char* text, int)
    {
        static_cast<Tally*>(data)->text(*text);
    }
};

class Libxml2
{
  public:
    static bool parse(const std::string& xml, Tally& tally)
    {
        const std::unique_ptr<xmlParserCtxt, decltype(&xmlFreeParserCtxt)> context(
            xmlCreateMemoryParserCtxt(xml.data(), static_cast<int>(xml.size())),
            &xmlFreeParserCtxt);
        xmlCtxtUseOptions(context.get(), XML_PARSE_HUGE);
        xmlSAXHandler& handler = *context->sax;
        handler = {};
        handler.initialized = XML_SAX2_MAGIC;
        handler.startElementNs = start;
        handler.endElementNs = end;
        handler.characters = text;
        handler.ignorableWhitespace = text;  // the same one: saves a search for its kind
        context->userData = &tally;
        xmlParseDocument(context.get());
        return context->wellFormed == 1;
    }

  private:
    static char toChar(const xmlChar* text) { return static_cast<char>(*text); }

    static void start(void* data, const xmlChar* name, const xmlChar*, const xmlChar*, int,
                      const xmlChar**, int numAttributes, int, const xmlChar** attributes)
    {
        Tally& tally = *static_cast<Tally*>(data);
        tally.start(toChar(name));
        for (; numAttributes > 0; --numAttributes)
        {
            // Name, prefix, URI, begin of the value, its end.
            tally.attribute(toChar(attributes[0]), toChar(attributes[3]));
            attributes += 5;
        }
    }

    static void end(void* data, const xmlChar* name, const xmlChar*, const xmlChar*)
    {
        static_cast<Tally*>(data)->end(toChar(name));
    }

    static void text(void* data, const xmlChar* text, int)
    {
        static_cast<Tally*>(data)->text(toChar(text));
    }
};

class Pugixml
{
  public:
    static bool parse(const std::string& xml, Tally& tally)
    {
        pugi::xml_document document;
        if (!document.load_buffer(xml.data(), xml.size()))
        {
            return false;
        }
        walk(document, tally);
        return true;
    }

  private:
    static void walk(pugi::xml_node parent, Tally& tally)
    {
        for (pugi::xml_node node = parent.first_child(); node; node = node.next_sibling())
        {
            if (node.type() == pugi::node_pcdata)
            {
                tally.text(*node.value());
                continue;
            }
            tally.start(*node.name());
            for (pugi::xml_attribute attribute = node.first_attribute(); attribute;
                 attribute = attribute.next_attribute())
            {
                tally.attribute(*attribute.name(), *attribute.value());
            }
            walk(node, tally);
            tally.end(*node.name());
        }
    }
};

// A document, and what is to be gathered from it.
struct Document
{
    XmlKind kind;
    std::size_t size;
    std::string xml;
    Tally tally;
};

// The document of a benchmark, which stays as long as the same one is asked for.
const Document& getDocument(XmlKind kind, std::int64_t aboutSize)
{
    static Document document{};
    const auto size = static_cast<std::size_t>(aboutSize);
    if (document.xml.empty() || document.kind != kind || document.size != size)
    {
        document = {kind, size, makeXmlDocument(kind, size), {}};
        GenericUtils::parse(document.xml, document.tally);
    }
    return document;
}

void countBytes(benchmark::State& state, const std::string& xml)
{
    state.SetItemsProcessed(static_cast<std::int64_t>(xml.size()) * state.iterations());
}

template <typename Reader>
void parse(benchmark::State& state, XmlKind kind)
{
    const Document& document = getDocument(kind, state.range(0));
    Tally tally;
    bool isWhole = true;
    for (auto _ : state)
    {
        tally = {};
        isWhole = Reader::parse(document.xml, tally) && isWhole;
    }
    if (!isWhole || !tally.isSameMarkup(document.tally))
    {
        state.SkipWithError("the parsers do not agree on the document");
    }
    countBytes(state, document.xml);
}

// The plain search for delimiters, which every reader does at least.
void scan(benchmark::State& state, XmlKind kind)
{
    const std::string& xml = getDocument(kind, state.range(0)).xml;
    for (auto _ : state)
    {
        std::size_t numTags = 0;
        std::size_t left = xml.find('<');
        while (left != std::string::npos)
        {
            const std::size_t right = xml.find('>', left);
            left = xml.find('<', right);
            ++numTags;
        }
        benchmark::DoNotOptimize(numTags);
    }
    countBytes(state, xml);
}

template <typename Function>
void add(Function function, const std::string& name, XmlKind kind, std::int64_t size)
{
    benchmark::RegisterBenchmark(name.c_str(), function, kind)->Arg(size);
}

void addAll()
{
    constexpr std::int64_t KIB = 1024;
    constexpr std::int64_t MIB = 1024 * KIB;
    for (const auto& [kind, name] :
         {std::pair(XmlKind::attributes, "attributes"), std::pair(XmlKind::elements, "elements"),
          std::pair(XmlKind::text, "text")})
    {
        for (const std::int64_t size : {KIB, MIB, 64 * MIB})
        {
            add(parse<GenericUtils>, std::string("parse/generic_utils/") + name, kind, size);
            add(parse<Expat>, std::string("parse/expat/") + name, kind, size);
            add(parse<Libxml2>, std::string("parse/libxml2/") + name, kind, size);
            add(parse<Pugixml>, std::string("parse/pugixml/") + name, kind, size);
            add(scan, std::string("parse/scan/") + name, kind, size);
        }
    }
    for (const auto& [kind, name] :
         {std::pair(XmlKind::attributes, "attributes"), std::pair(XmlKind::elements, "elements"),
          std::pair(XmlKind::text, "text"), std::pair(XmlKind::nested, "nested"),
          std::pair(XmlKind::oneTag, "one_tag")})
    {
        for (std::int64_t size = 128 * KIB; size <= 4 * MIB; size *= 2)
        {
            add(parse<GenericUtils>, std::string("growth/generic_utils/") + name, kind, size);
        }
    }
}

const bool isAdded = (addAll(), true);

}  // namespace

}  // namespace bench
