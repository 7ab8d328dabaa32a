#ifndef LIBDBG_LIBDBG_H
#define LIBDBG_LIBDBG_H

/// @file
/// The platform's debug trace: a level, and one trace record at a time.
///
/// A caller that finds `_dbg_level` high enough takes `_dbg_lock`, fills in the location and calls
/// `_dbg_trace`, which writes the record and releases the lock:
///
///     if (_dbg_level > 1)
///     {
///         _dbg_lock(_dbg_level);
///         _dbg_type = 2;
///         _dbg_filename = "file"; _dbg_line = 19; _dbg_function = "function";
///         _dbg_trace("format %s", text);
///     }
///
/// On a host the level starts at environment variable GENERIC_DBG_LEVEL, or 0 when that is not a number,
/// and records go to standard error.

#ifdef __cplusplus
extern "C" {
#endif

/// Visible outside the platform's shared library.
#define LIBDBG_API __attribute__((visibility("default")))

LIBDBG_API extern int _dbg_level;             ///< how much to trace; 0 = nothing
LIBDBG_API extern int _dbg_type;              ///< kind of the current record
LIBDBG_API extern const char* _dbg_filename;  ///< source file of the current record
LIBDBG_API extern int _dbg_line;              ///< source line of the current record
LIBDBG_API extern const char* _dbg_function;  ///< function of the current record

/// Makes the calling thread the one that writes the next record. @param level the level in force
LIBDBG_API void _dbg_lock(int level);

/// Writes the record that the calling thread has prepared under _dbg_lock(), and releases the lock.
/// @param format as for printf
LIBDBG_API void _dbg_trace(const char* format, ...) __attribute__((format(printf, 1, 2)));

#ifdef __cplusplus
}
#endif

#endif
