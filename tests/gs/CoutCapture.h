#ifndef TESTS_GS_COUTCAPTURE_H
#define TESTS_GS_COUTCAPTURE_H

#include <iostream>
#include <sstream>
#include <string>

namespace test
{

/// Collects what is written to std::cout while it lives.
///
/// Thread safety: made, read and destroyed while no other thread writes.
class CoutCapture
{
  public:
    CoutCapture() : m_original(std::cout.rdbuf(m_text.rdbuf())) {}
    ~CoutCapture() { std::cout.rdbuf(m_original); }

    CoutCapture(const CoutCapture&) = delete;
    CoutCapture& operator=(const CoutCapture&) = delete;

    std::string getText() const { return m_text.str(); }

  private:
    std::ostringstream m_text;
    std::streambuf* m_original;
};

}  // namespace test

#endif
