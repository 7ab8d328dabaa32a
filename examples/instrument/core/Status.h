#ifndef INSTRUMENT_CORE_STATUS_H
#define INSTRUMENT_CORE_STATUS_H

#include <cstdint>

#include <utils/stdType.h>

#include "core/ErrorQueue.h"

namespace instrument
{

/// The bits of the standard event status register (*ESR?).
namespace event
{
inline constexpr std::uint8_t OPERATION_COMPLETE = Std_Type::BIT0;
inline constexpr std::uint8_t QUERY_ERROR = Std_Type::BIT2;
inline constexpr std::uint8_t DEVICE_ERROR = Std_Type::BIT3;
inline constexpr std::uint8_t EXECUTION_ERROR = Std_Type::BIT4;
inline constexpr std::uint8_t COMMAND_ERROR = Std_Type::BIT5;
inline constexpr std::uint8_t POWER_ON = Std_Type::BIT7;
}  // namespace event

/// The bits of the status byte (*STB?).
namespace summary
{
inline constexpr std::uint8_t ERROR_AVAILABLE = Std_Type::BIT2;
inline constexpr std::uint8_t MESSAGE_AVAILABLE = Std_Type::BIT4;
inline constexpr std::uint8_t EVENT = Std_Type::BIT5;
inline constexpr std::uint8_t MASTER = Std_Type::BIT6;
}  // namespace summary

/// What one client can ask about how it went: the registers of IEEE 488.2 and the error queue.
class Status
{
  public:
    /// Enters an error into the queue, and its class into the event register.
    void report(ScpiError error);

    /// Sets bits of the event register.
    void setEvents(std::uint8_t events) { m_events |= events; }

    /// Reads the event register, which clears it.
    std::uint8_t takeEvents();

    /// The status byte.
    /// @param isMessageAvailable whether answers wait to be read
    std::uint8_t makeStatusByte(bool isMessageAvailable) const;

    /// Clears events and errors, not the enable registers.
    void clear();

    std::uint8_t getEventEnable() const { return m_eventEnable; }
    void setEventEnable(std::uint8_t bits) { m_eventEnable = bits; }

    /// The master summary bit does not count.
    std::uint8_t getServiceEnable() const { return m_serviceEnable; }
    void setServiceEnable(std::uint8_t bits);

    ErrorQueue& getErrors() { return m_errors; }

  private:
    ErrorQueue m_errors;
    std::uint8_t m_events = event::POWER_ON;
    std::uint8_t m_eventEnable = 0;
    std::uint8_t m_serviceEnable = 0;
};

}  // namespace instrument

#endif
