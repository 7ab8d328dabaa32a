#include "core/Session.h"

#include <new>
#include <utility>

#include <utils/flag/Trace.h>

#include "core/Flags.h"

namespace instrument
{

namespace
{

void requireCount(const CommandDescription& command, std::size_t count)
{
    if (count < command.minParameters)
    {
        throw CommandFailure(ScpiError::MISSING_PARAMETER);
    }
    if (count > command.maxParameters)
    {
        throw CommandFailure(ScpiError::PARAMETER_NOT_ALLOWED);
    }
}

}  // namespace

Session::Session(Instrument& instrument, std::function<void()> onReady)
    : m_client(instrument, [this] { finishAcquisition(); }), m_onReady(std::move(onReady))
{
}

Session::Step Session::step()
{
    if (!m_isInMessage)
    {
        if (!m_framer.hasMessage())
        {
            return Step::NEEDS_INPUT;
        }
        beginMessage();
        return Step::MORE;
    }
    if (m_handler == nullptr)
    {
        if (m_rest.empty())
        {
            return endMessage();
        }
        parseNext();
        return Step::MORE;
    }
    if (m_waitsForAcquisition && m_client.measurement.isRunning())
    {
        return Step::WAITING;
    }
    const bool isGood = call(std::exchange(m_handler, m_afterwards));
    m_handler = isGood ? m_handler : nullptr;
    m_afterwards = nullptr;
    m_waitsForAcquisition = true;
    return Step::MORE;
}

void Session::beginMessage()
{
    MessageFramer::Message message = m_framer.takeMessage();
    if (message.isTooLong)
    {
        report(ScpiError::INPUT_BUFFER_OVERRUN);
        return;
    }
    m_message = std::move(message.text);
    m_rest = m_message;
    m_path.clear();
    m_isInMessage = true;
    GENERIC_UTILS_TRACE_STEP(2, "Executing message '" << m_message << "'.");
}

Session::Step Session::endMessage()
{
    m_isInMessage = false;
    return m_client.response.isEmpty() ? Step::MORE : Step::RESPONSE;
}

void Session::parseNext()
{
    try
    {
        MessageUnit unit = parseUnit(cutUnit(m_rest));
        if (unit.header.empty())
        {
            return;
        }
        const CommandDescription& command = findCommand(unit);
        requireCount(command, unit.parameters.size());
        m_arguments = Arguments(std::move(unit.parameters));
        m_handler = command.handler;
        m_afterwards = command.afterAcquisition;
        m_waitsForAcquisition = command.waitsForAcquisition;
    }
    catch (const CommandFailure& failure)
    {
        report(failure.getError());
    }
}

// A header continues at the level of the one before it, unless it begins with a colon. Common
// commands stand aside of that.
const CommandDescription& Session::findCommand(const MessageUnit& unit)
{
    const bool isCommon = unit.header.starts_with('*');
    const bool isFromRoot = unit.header.starts_with(':');
    const std::string header =
        isCommon || isFromRoot ? unit.header.substr(isFromRoot ? 1 : 0) : m_path + unit.header;
    const CommandDescription* const command = getCommandTable().find(header, unit.isQuery);
    if (command == nullptr)
    {
        throw CommandFailure(ScpiError::UNDEFINED_HEADER);
    }
    if (!isCommon)
    {
        m_path = header.substr(0, header.rfind(':') + 1);
    }
    return *command;
}

// @return whether the command has not failed
bool Session::call(Handler handler)
{
    try
    {
        handler(m_client, m_arguments);
        return true;
    }
    catch (const CommandFailure& failure)
    {
        report(failure.getError());
    }
    catch (const std::bad_alloc&)
    {
        report(ScpiError::OUT_OF_MEMORY);
    }
    return false;
}

void Session::finishAcquisition()
{
    m_client.completeOperation();
    if (m_onReady)
    {
        m_onReady();
    }
}

void Session::report(ScpiError error)
{
    GENERIC_UTILS_TRACE_STEP(
        1, "Error " << static_cast<int>(error) << ", '" << describe(error) << "'.");
    m_client.status.report(error);
    if (error == ScpiError::QUERY_DEADLOCKED)
    {
        m_rest = {};  // nobody could read the other answers either
    }
}

}  // namespace instrument
