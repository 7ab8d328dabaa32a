#ifndef TESTS_SUPPORT_CLOGCAPTURE_H
#define TESTS_SUPPORT_CLOGCAPTURE_H

#include <iostream>
#include <sstream>
#include <string>

namespace test
{

/// Collects what is written to std::clog while it lives.
///
/// Thread safety: made, read and destroyed while no other thread writes.
class ClogCapture
{
  public:
    ClogCapture() : m_original(std::clog.rdbuf(m_text.rdbuf())) {}
    ~ClogCapture() { std::clog.rdbuf(m_original); }

    ClogCapture(const ClogCapture&) = delete;
    ClogCapture& operator=(const ClogCapture&) = delete;

    std::string getText() const { return m_text.str(); }

  private:
    std::ostringstream m_text;
    std::streambuf* m_original;
};

}  // namespace test

#endif
