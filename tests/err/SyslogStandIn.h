#ifndef TESTS_ERR_SYSLOGSTANDIN_H
#define TESTS_ERR_SYSLOGSTANDIN_H

#include <string>
#include <vector>

namespace test
{

/// One record as it was passed to syslog(), formatted.
struct SyslogRecord
{
    int priority;
    std::string text;
};

/// The records so far. A program that is linked with SyslogStandIn.cpp stands between the library
/// and the system log.
std::vector<SyslogRecord>& syslogRecords();

}  // namespace test

#endif
