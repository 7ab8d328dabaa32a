// SCPI headers as clients send them, against one command.

#include <benchmark/benchmark.h>

#include <locale>
#include <memory>
#include <stdexcept>
#include <string>

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>
#include <re2/re2.h>
#include <utils/scpi/ScpiString.h>

namespace bench
{

namespace
{

using utils::scpi::ScpiString;

// What a command accepts, as a regular expression: "FREQuency:DC" is "FREQ(?:UENCY)?:DC".
std::string toRegex(const std::string& name)
{
    std::string regex;
    bool isInRest = false;
    for (const char character : ScpiString(name).getLongName() + ":")
    {
        if (isInRest && character == ':')
        {
            regex += ")?";
            isInRest = false;
        }
        else if (!isInRest && ScpiString::isLower(character))
        {
            regex += "(?:";
            isInRest = true;
        }
        regex += character;
    }
    regex.pop_back();
    return regex;
}

// ---- Ours and the peers, as classes of one shape ----

class UtilsScpi
{
  public:
    explicit UtilsScpi(const std::string& name) : m_command(name) {}

    bool isMatching(const std::string& header) const { return m_command.isCompliant(header); }

  private:
    ScpiString m_command;
};

// The global locale is another one, with the letters of the classic one.
class UtilsScpiInOtherLocale : public UtilsScpi
{
  public:
    explicit UtilsScpiInOtherLocale(const std::string& name) : UtilsScpi(name)
    {
        std::locale::global(std::locale(std::locale::classic(), new std::ctype<char>));
    }
    ~UtilsScpiInOtherLocale() { std::locale::global(m_original); }

    UtilsScpiInOtherLocale(const UtilsScpiInOtherLocale&) = delete;
    UtilsScpiInOtherLocale& operator=(const UtilsScpiInOtherLocale&) = delete;

  private:
    const std::locale m_original;
};

class Re2
{
  public:
    explicit Re2(const std::string& name) : m_regex(toRegex(name), makeOptions()) {}

    bool isMatching(const std::string& header) const { return RE2::FullMatch(header, m_regex); }

  private:
    static RE2::Options makeOptions()
    {
        RE2::Options options(RE2::Latin1);
        options.set_case_sensitive(false);
        options.set_never_capture(true);
        return options;
    }

    RE2 m_regex;
};

class Pcre2
{
  public:
    explicit Pcre2(const std::string& name)
    {
        const std::string regex = toRegex(name) + "\\z";
        int error = 0;
        PCRE2_SIZE position = 0;
        m_code.reset(pcre2_compile(reinterpret_cast<PCRE2_SPTR>(regex.data()), regex.size(),
                                   PCRE2_CASELESS | PCRE2_ANCHORED, &error, &position, nullptr));
        if (m_code == nullptr || pcre2_jit_compile(m_code.get(), PCRE2_JIT_COMPLETE) != 0)
        {
            throw std::runtime_error("PCRE2 does not compile " + regex);
        }
        m_result.reset(pcre2_match_data_create(1, nullptr));
    }

    bool isMatching(const std::string& header) const
    {
        return pcre2_jit_match(m_code.get(), reinterpret_cast<PCRE2_SPTR>(header.data()),
                               header.size(), 0, 0, m_result.get(), nullptr) >= 0;
    }

  private:
    struct Free
    {
        void operator()(pcre2_code* code) const { pcre2_code_free(code); }
        void operator()(pcre2_match_data* data) const { pcre2_match_data_free(data); }
    };

    std::unique_ptr<pcre2_code, Free> m_code;
    std::unique_ptr<pcre2_match_data, Free> m_result;
};

// ---- Measurement ----

template <typename Matcher>
void match(benchmark::State& state, const std::string& name, const std::string& header,
           bool isExpected)
{
    const Matcher matcher(name);
    bool isMatching = isExpected;
    for (auto _ : state)
    {
        isMatching = matcher.isMatching(header);
        benchmark::DoNotOptimize(isMatching);
    }
    if (isMatching != isExpected)
    {
        state.SkipWithError("a wrong answer");
    }
}

// A command of that many nodes, and a header with every other node in short form.
template <typename Matcher>
void matchLong(benchmark::State& state)
{
    std::string name = "frequency";
    std::string header = "FREQUENCY";
    for (std::int64_t i = 1; i < state.range(0); ++i)
    {
        name += ":frequency";
        header += i % 2 == 0 ? ":FREQUENCY" : ":FREQ";
    }
    match<Matcher>(state, name, header, true);
}

template <typename Matcher>
void registerMatcher(const std::string& matcher)
{
    constexpr const char* PATH = "measure:voltage:direct:range";
    const auto add = [&](const char* which, const char* name, const char* header, bool isExpected)
    {
        benchmark::RegisterBenchmark((which + ("/" + matcher)).c_str(), match<Matcher>, name,
                                     header, isExpected);
    };
    add("short", "frequency", "FREQ", true);
    add("long", "frequency", "Frequency", true);
    add("miss_first", "frequency", "Zrequency", false);
    add("miss_last", "frequency", "Frequencz", false);
    add("path", PATH, "MEAS:Voltage:DIR:Range", true);
    add("path_miss", PATH, "MEAS:Voltage:DIR:Rangz", false);
    benchmark::RegisterBenchmark(("nodes/" + matcher).c_str(), matchLong<Matcher>)
        ->RangeMultiplier(2)
        ->Range(8, 512);
}

[[maybe_unused]] const bool isRegistered = []
{
    registerMatcher<UtilsScpi>("utils_ScpiString");
    registerMatcher<UtilsScpiInOtherLocale>("utils_ScpiString_in_other_locale");
    registerMatcher<Re2>("re2");
    registerMatcher<Pcre2>("pcre2");
    return true;
}();

}  // namespace

}  // namespace bench
