#ifndef INSTRUMENT_CORE_LIMITS_H
#define INSTRUMENT_CORE_LIMITS_H

#include <cstddef>

/// What the instrument bounds, so that no client can use up more than its share.
namespace instrument::limits
{

/// The longest program message (line), in bytes, without its line feed.
inline constexpr std::size_t MAX_MESSAGE = std::size_t{64} * 1024;

/// The longest response to one program message, in bytes. The longest single answer, a million
/// values as text, has 17 million.
inline constexpr std::size_t MAX_RESPONSE = std::size_t{20} * 1024 * 1024;

/// How many errors the queue of a client holds.
inline constexpr std::size_t MAX_ERRORS = 32;

/// How many clients may be connected at the same time.
inline constexpr std::size_t MAX_CLIENTS = 32;

/// How many acquisitions of one client may be on their way at the same time, aborted ones included.
inline constexpr unsigned long MAX_ACQUISITIONS_OF_CLIENT = 8;

/// How many may be on their way in all, those of clients that have gone included.
inline constexpr unsigned long MAX_ACQUISITIONS = MAX_CLIENTS * MAX_ACQUISITIONS_OF_CLIENT;

/// Samples of one acquisition.
inline constexpr unsigned long MIN_POINTS = 1;
inline constexpr unsigned long MAX_POINTS = 1'000'000;
inline constexpr unsigned long DEFAULT_POINTS = 1000;

/// Tasks that acquire.
inline constexpr unsigned long MAX_POOL_SIZE = 64;

/// The longest time that a channel takes to settle, in milliseconds.
inline constexpr double MAX_SETTLE_MS = 1000;

}  // namespace instrument::limits

#endif
