#ifndef TESTS_ERR_RECORDINGSTRATEGY_H
#define TESTS_ERR_RECORDINGSTRATEGY_H

#include <sstream>
#include <string>
#include <vector>

#include <utils/errStrategy.h>

#include "err/Header.h"

namespace test
{

/// Keeps every older error while it lives; being registered, it keeps the default from ending the
/// process.
///
/// Thread safety: belongs to one thread at a time.
class RecordingErrStrategy : public utils::err::Err_Strategy
{
  public:
    explicit RecordingErrStrategy(const std::string& name = "Recording") : Err_Strategy(name) {}

    bool isInterested(const utils::err::Err_Error&, bool) const override { return true; }

    bool processError(const utils::err::Err_Error& error, bool recoverable) override
    {
        std::ostringstream text;
        error.output(text);
        m_texts.push_back(withoutTime(text.str()));
        m_recoverables.push_back(recoverable);
        return true;
    }

    /// What output() wrote, with "TIME" for the time.
    const std::vector<std::string>& getTexts() const { return m_texts; }

    /// What notifyStrategies() was called with.
    const std::vector<bool>& getRecoverables() const { return m_recoverables; }

    void clear()
    {
        m_texts.clear();
        m_recoverables.clear();
    }

  private:
    std::vector<std::string> m_texts;
    std::vector<bool> m_recoverables;
};

}  // namespace test

#endif
