#include "core/converse.h"

#include <algorithm>

#include "core/Session.h"

namespace instrument
{

namespace
{

// As much as a socket may give at a time.
constexpr std::size_t BLOCK_SIZE = 16'384;

// Executes what the session has received.
std::string execute(Session& session, WorkList& work)
{
    std::string responses;
    for (;;)
    {
        switch (session.step())
        {
            case Session::Step::MORE:
                break;
            case Session::Step::RESPONSE:
                responses += session.takeResponse();
                break;
            case Session::Step::WAITING:
                work.runOne();
                break;
            case Session::Step::NEEDS_INPUT:
                return responses;
        }
    }
}

}  // namespace

std::string converse(Instrument& instrument, WorkList& work, std::string_view bytes)
{
    Session session(instrument, nullptr);
    std::string responses;
    while (!bytes.empty())
    {
        session.receive(bytes.substr(0, BLOCK_SIZE));
        bytes.remove_prefix(std::min(BLOCK_SIZE, bytes.size()));
        responses += execute(session, work);
    }
    session.endInput();
    responses += execute(session, work);
    work.runPending();
    return responses;
}

}  // namespace instrument
