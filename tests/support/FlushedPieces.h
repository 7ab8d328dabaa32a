#ifndef TESTS_SUPPORT_FLUSHEDPIECES_H
#define TESTS_SUPPORT_FLUSHEDPIECES_H

#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace test
{

/// A stream that keeps what is written to it in pieces, cut where it was flushed.
class FlushedPieces : private std::stringbuf
{
  public:
    std::ostream& getStream() { return m_stream; }

    /// What stood before each flush; text that was not flushed is missing.
    const std::vector<std::string>& getPieces() const { return m_pieces; }

  private:
    int sync() override
    {
        m_pieces.push_back(str());
        str("");
        return 0;
    }

    std::ostream m_stream{this};
    std::vector<std::string> m_pieces;
};

}  // namespace test

#endif
