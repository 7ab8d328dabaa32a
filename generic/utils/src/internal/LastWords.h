#ifndef GENERIC_UTILS_INTERNAL_LASTWORDS_H
#define GENERIC_UTILS_INTERNAL_LASTWORDS_H

#include <new>

/// Traces or prints in a destructor, which does not throw: what there is no memory for stays unsaid.
///
///     GENERIC_UTILS_LAST_WORDS(GENERIC_UTILS_TRACE_STEP(1, "Destroying '" << m_name << "'."));
///
/// A macro, so that the trace tells the destructor's name and line.
#define GENERIC_UTILS_LAST_WORDS(...) \
    do                                \
    {                                 \
        try                           \
        {                             \
            __VA_ARGS__;              \
        }                             \
        catch (const std::bad_alloc&) \
        {                             \
        }                             \
    } while (false)

#endif
