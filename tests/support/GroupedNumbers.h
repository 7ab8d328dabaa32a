#ifndef TESTS_SUPPORT_GROUPEDNUMBERS_H
#define TESTS_SUPPORT_GROUPEDNUMBERS_H

#include <locale>
#include <string>

namespace test
{

/// While it lives, the global locale is one that writes 1234567 as "1,234,567".
class GroupedNumbers
{
  public:
    GroupedNumbers() { std::locale::global(std::locale(m_original, new Grouping)); }
    ~GroupedNumbers() { std::locale::global(m_original); }

    GroupedNumbers(const GroupedNumbers&) = delete;
    GroupedNumbers& operator=(const GroupedNumbers&) = delete;

  private:
    class Grouping : public std::numpunct<char>
    {
      protected:
        char do_thousands_sep() const override { return ','; }
        std::string do_grouping() const override { return "\3"; }
    };

    const std::locale m_original;
};

}  // namespace test

#endif
