// The errors of subjects and observers.
//
// - codes, severities, names and what they keep
// - texts
// - null names fail with exactly the standard string's words

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <string>
#include <type_traits>

#include <utils/gsAttachAlreadyExistsError.h>
#include <utils/gsAttachDoesNotExistError.h>
#include <utils/gsError.h>

#include "err/Header.h"

namespace
{

using namespace std::string_literals;
using test::withoutTime;
using utils::err::Err_AclError;
using utils::err::Err_Error;
using utils::err::Gs_AttachAlreadyExistsError;
using utils::err::Gs_AttachDoesNotExistError;
using utils::err::Gs_Error;

class GsError : public testing::Test
{
  protected:
    void SetUp() override { setenv("USER", "marie", 1); }
};

std::string outputOf(const Err_Error& error)
{
    std::ostringstream os;
    error.output(os);
    return withoutTime(os.str());
}

TEST_F(GsError, KeepsWhatItIsGiven)
{
    const Gs_Error error("file", 7, "function", "Severe", "Name");
    EXPECT_EQ(error.getErrorCode(), 0x80010003U);
    EXPECT_EQ(outputOf(error),
              "!([1.0.1.3]Severe/Name) by marie on TIME.\n"
              "        Generated from file/7/function:\n");
    static_assert(std::is_base_of_v<Err_AclError, Gs_Error>);
    static_assert(std::is_base_of_v<Gs_Error, Gs_AttachAlreadyExistsError>);
    static_assert(std::is_base_of_v<Gs_Error, Gs_AttachDoesNotExistError>);
}

TEST_F(GsError, AttachAlreadyExists)
{
    const Gs_AttachAlreadyExistsError error("file", 7, "function", "mixer", "panel", 3);
    EXPECT_EQ(error.getErrorCode(), 0x80010001U);
    EXPECT_EQ(error.getSeverityStr(), "Error");
    EXPECT_EQ(error.getName(), "Gs_AttachAlreadyExistsError");
    EXPECT_EQ(error.getSubjectName(), "mixer");
    EXPECT_EQ(error.getObserverName(), "panel");
    EXPECT_EQ(error.getPriority(), 3);
    EXPECT_EQ(outputOf(error),
              "!([1.0.1.1]Error/Gs_AttachAlreadyExistsError) by marie on TIME.\n"
              "        Generated from file/7/function:\n"
              "        Subject (mixer) already attached to Observer (panel) with priority (3).");
}

TEST_F(GsError, AttachDoesNotExist)
{
    const Gs_AttachDoesNotExistError error("file", 7, "function", "mixer", "panel", -1);
    EXPECT_EQ(error.getErrorCode(), 0x80010002U);
    EXPECT_EQ(error.getSeverityStr(), "Error");
    EXPECT_EQ(error.getName(), "Gs_AttachDoesNotExistError");
    EXPECT_EQ(error.getSubjectName(), "mixer");
    EXPECT_EQ(error.getObserverName(), "panel");
    EXPECT_EQ(error.getPriority(), -1);
    EXPECT_EQ(outputOf(error),
              "!([1.0.1.2]Error/Gs_AttachDoesNotExistError) by marie on TIME.\n"
              "        Generated from file/7/function:\n"
              "        Subject (mixer) is NOT attached to Observer (panel) with priority (-1).");
}

TEST_F(GsError, StringEndsWithOneNul)
{
    EXPECT_EQ(
        withoutTime(Gs_AttachAlreadyExistsError("file", 7, "f", "mixer", "panel", 3).getString()),
        "!([1.0.1.1]Error/Gs_AttachAlreadyExistsError) by marie on TIME.\n"
        "        Generated from file/7/f:\n"
        "        Subject (mixer) already attached to Observer (panel) with priority (3).\0"s);
}

template <typename Error>
std::string failureOf(const char* subjectName, const char* observerName)
{
    try
    {
        const Error error("file", 7, "function", subjectName, observerName, 3);
    }
    catch (const std::logic_error& failure)
    {
        return failure.what();
    }
    return "none";
}

TEST_F(GsError, NullNamesFail)
{
    const std::string expected = "basic_string::_M_construct null not valid";
    EXPECT_EQ(failureOf<Gs_AttachAlreadyExistsError>(nullptr, "panel"), expected);
    EXPECT_EQ(failureOf<Gs_AttachAlreadyExistsError>("mixer", nullptr), expected);
    EXPECT_EQ(failureOf<Gs_AttachDoesNotExistError>(nullptr, "panel"), expected);
    EXPECT_EQ(failureOf<Gs_AttachDoesNotExistError>("mixer", nullptr), expected);
}

}  // namespace
