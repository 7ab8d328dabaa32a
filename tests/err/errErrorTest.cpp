// The older errors: what they hold and what they write.
//
// - each class has its severity, name and code
// - code texts
// - headers and lines, NUL characters included; output() ignores the target's format
// - the user is that of environment variable USER, fixed at construction
// - null texts fail with exactly the standard string's words
// - the chain of classes; errors can be copied
// - exitOnError() ends the process with status 1

#include <gtest/gtest.h>

#include <cstdlib>
#include <iomanip>
#include <sstream>
#include <stdexcept>
#include <string>
#include <type_traits>

#include <utils/errAclError.h>
#include <utils/errAppError.h>
#include <utils/errError.h>
#include <utils/errGeneralError.h>
#include <utils/errNullPtrError.h>
#include <utils/errObjectAlreadyExistsError.h>
#include <utils/errObjectDoesNotExistError.h>

#include "err/Header.h"

namespace
{

using namespace std::string_literals;
using namespace utils::err;
using test::withoutTime;

class ErrError : public testing::Test
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

template <typename Error>
std::string failureOf(const char* file, const char* function, const char* severity,
                      const char* name)
{
    try
    {
        const Error error(file, 1, function, severity, name);
    }
    catch (const std::logic_error& failure)
    {
        return failure.what();
    }
    return "none";
}

template <typename Error>
std::string failureOfNullName()
{
    try
    {
        const Error error("file", 1, "function", nullptr);
    }
    catch (const std::logic_error& failure)
    {
        return failure.what();
    }
    return "none";
}

TEST_F(ErrError, KeepsWhatItIsGiven)
{
    const Err_Error error("file", 7, "function", "Severe", "Name");
    EXPECT_EQ(error.getSeverityStr(), "Severe");
    EXPECT_EQ(error.getName(), "Name");
    EXPECT_EQ(error.getErrorCode(), 0xFFFFFFFFU);
}

TEST_F(ErrError, CodeCanBeSet)
{
    Err_Error error("file", 7, "function", "Severe", "Name");
    error.setErrorCode(0x12345678);
    EXPECT_EQ(error.getErrorCode(), 0x12345678U);
}

TEST_F(ErrError, CodeText)
{
    Err_Error error("file", 7, "function", "Severe", "Name");
    EXPECT_EQ(error.getErrorCodeStr(), "1.7.4095.65535");
    error.setErrorCode(0);
    EXPECT_EQ(error.getErrorCodeStr(), "0.0.0.0");
    error.setErrorCode(0x8000000D);
    EXPECT_EQ(error.getErrorCodeStr(), "1.0.0.13");
    error.setErrorCode(0x5ABC1234);
    EXPECT_EQ(error.getErrorCodeStr(), "0.5.2748.4660");
}

TEST_F(ErrError, Output)
{
    EXPECT_EQ(outputOf(Err_Error("file", 7, "function", "Severe", "Name")),
              "!([1.7.4095.65535]Severe/Name) by marie on TIME.\n"
              "        Generated from file/7/function:\n");
}

TEST_F(ErrError, StringIsTheOutputAndANul)
{
    const Err_Error error("file", 7, "function", "Severe", "Name");
    EXPECT_EQ(withoutTime(error.getString()),
              "!([1.7.4095.65535]Severe/Name) by marie on TIME.\n"
              "        Generated from file/7/function:\n\0"s);
}

TEST_F(ErrError, StreamOperatorCallsOutput)
{
    std::ostringstream os;
    EXPECT_EQ(&(os << Err_ObjectDoesNotExistError("file", 7, "function", "lost")), &os);
    EXPECT_EQ(withoutTime(os.str()),
              "!([1.0.0.14]Error/Err_ObjectDoesNotExistError) by marie on TIME.\n"
              "        Generated from file/7/function:\n"
              "        Object 'lost' does not exist.\0"s);
}

TEST_F(ErrError, OutputIgnoresTheTargetsFormat)
{
    std::ostringstream os;
    os << std::hex << std::showbase << std::setfill('*') << std::setw(80);
    Err_Error("file", 16, "function", "Severe", "Name").output(os);
    EXPECT_EQ(withoutTime(os.str()),
              "!([1.7.4095.65535]Severe/Name) by marie on TIME.\n"
              "        Generated from file/16/function:\n");
}

TEST_F(ErrError, UserIsFixedAtConstruction)
{
    const Err_Error error("file", 7, "function", "Severe", "Name");
    setenv("USER", "pierre", 1);
    EXPECT_EQ(outputOf(error),
              "!([1.7.4095.65535]Severe/Name) by marie on TIME.\n"
              "        Generated from file/7/function:\n");
}

TEST_F(ErrError, UserIsNotAvailableWithoutTheVariable)
{
    unsetenv("USER");
    EXPECT_EQ(outputOf(Err_Error("file", 7, "function", "Severe", "Name")),
              "!([1.7.4095.65535]Severe/Name) by -- not available -- on TIME.\n"
              "        Generated from file/7/function:\n");
}

TEST_F(ErrError, ClassesOfTheChainHaveTheirCodes)
{
    EXPECT_EQ(Err_AppError("f", 1, "g", "s", "n").getErrorCode(), 0x80000002U);
    EXPECT_EQ(Err_AclError("f", 1, "g", "s", "n").getErrorCode(), 0x80000001U);
    EXPECT_EQ(Err_GeneralError("f", 1, "g", "s", "n").getErrorCode(), 0x80000009U);
}

TEST_F(ErrError, ClassesOfTheChainKeepWhatTheyAreGiven)
{
    EXPECT_EQ(outputOf(Err_AppError("file", 1, "function", "Bad", "App")),
              "!([1.0.0.2]Bad/App) by marie on TIME.\n"
              "        Generated from file/1/function:\n");
    EXPECT_EQ(outputOf(Err_AclError("file", 1, "function", "Bad", "Acl")),
              "!([1.0.0.1]Bad/Acl) by marie on TIME.\n"
              "        Generated from file/1/function:\n");
    EXPECT_EQ(outputOf(Err_GeneralError("file", 1, "function", "Bad", "General")),
              "!([1.0.0.9]Bad/General) by marie on TIME.\n"
              "        Generated from file/1/function:\n");
}

TEST_F(ErrError, ClassesDeriveFromOneAnother)
{
    static_assert(std::is_base_of_v<Err_Error, Err_AppError>);
    static_assert(std::is_base_of_v<Err_AppError, Err_AclError>);
    static_assert(std::is_base_of_v<Err_AclError, Err_GeneralError>);
    static_assert(std::is_base_of_v<Err_GeneralError, Err_NullPtrError>);
    static_assert(std::is_base_of_v<Err_GeneralError, Err_ObjectAlreadyExistsError>);
    static_assert(std::is_base_of_v<Err_GeneralError, Err_ObjectDoesNotExistError>);
    static_assert(std::has_virtual_destructor_v<Err_Error>);
}

TEST_F(ErrError, NullPtrError)
{
    const Err_NullPtrError error("file", 7, "function", "thePtr");
    EXPECT_EQ(error.getPointerName(), "thePtr");
    EXPECT_EQ(error.getSeverityStr(), "Error");
    EXPECT_EQ(error.getName(), "Err_NullPtrError");
    EXPECT_EQ(error.getErrorCode(), 0x8000000CU);
    EXPECT_EQ(outputOf(error),
              "!([1.0.0.12]Error/Err_NullPtrError) by marie on TIME.\n"
              "        Generated from file/7/function:\n"
              "        Invalid null pointer 'thePtr' encountered.\0"s);
}

TEST_F(ErrError, ObjectAlreadyExistsError)
{
    const Err_ObjectAlreadyExistsError error("file", 7, "function", "twin");
    EXPECT_EQ(error.getObjectName(), "twin");
    EXPECT_EQ(error.getSeverityStr(), "Warning");
    EXPECT_EQ(error.getName(), "Err_ObjectAlreadyExistsError");
    EXPECT_EQ(error.getErrorCode(), 0x8000000DU);
    EXPECT_EQ(outputOf(error),
              "!([1.0.0.13]Warning/Err_ObjectAlreadyExistsError) by marie on TIME.\n"
              "        Generated from file/7/function:\n"
              "        Object 'twin' already exists.\0"s);
}

TEST_F(ErrError, ObjectDoesNotExistError)
{
    const Err_ObjectDoesNotExistError error("file", 7, "function", "lost");
    EXPECT_EQ(error.getObjectName(), "lost");
    EXPECT_EQ(error.getSeverityStr(), "Error");
    EXPECT_EQ(error.getName(), "Err_ObjectDoesNotExistError");
    EXPECT_EQ(error.getErrorCode(), 0x8000000EU);
    EXPECT_EQ(outputOf(error),
              "!([1.0.0.14]Error/Err_ObjectDoesNotExistError) by marie on TIME.\n"
              "        Generated from file/7/function:\n"
              "        Object 'lost' does not exist.\0"s);
}

TEST_F(ErrError, StringsOfTheLeafClassesEndInTwoNuls)
{
    EXPECT_EQ(withoutTime(Err_NullPtrError("file", 7, "function", "thePtr").getString()),
              "!([1.0.0.12]Error/Err_NullPtrError) by marie on TIME.\n"
              "        Generated from file/7/function:\n"
              "        Invalid null pointer 'thePtr' encountered.\0\0"s);
    EXPECT_EQ(withoutTime(Err_ObjectAlreadyExistsError("file", 7, "function", "a").getString()),
              "!([1.0.0.13]Warning/Err_ObjectAlreadyExistsError) by marie on TIME.\n"
              "        Generated from file/7/function:\n"
              "        Object 'a' already exists.\0\0"s);
    EXPECT_EQ(withoutTime(Err_ObjectDoesNotExistError("file", 7, "function", "a").getString()),
              "!([1.0.0.14]Error/Err_ObjectDoesNotExistError) by marie on TIME.\n"
              "        Generated from file/7/function:\n"
              "        Object 'a' does not exist.\0\0"s);
}

TEST_F(ErrError, NullNamesFail)
{
    EXPECT_EQ(failureOfNullName<Err_NullPtrError>(), "basic_string::_M_construct null not valid");
    EXPECT_EQ(failureOfNullName<Err_ObjectAlreadyExistsError>(),
              "basic_string::_M_construct null not valid");
    EXPECT_EQ(failureOfNullName<Err_ObjectDoesNotExistError>(),
              "basic_string::_M_construct null not valid");
}

TEST_F(ErrError, OtherNullTextsFailTheSameWay)
{
    const std::string expected = "basic_string::_M_construct null not valid";
    EXPECT_EQ(failureOf<Err_Error>(nullptr, "g", "s", "n"), expected);
    EXPECT_EQ(failureOf<Err_Error>("f", nullptr, "s", "n"), expected);
    EXPECT_EQ(failureOf<Err_Error>("f", "g", nullptr, "n"), expected);
    EXPECT_EQ(failureOf<Err_Error>("f", "g", "s", nullptr), expected);
    EXPECT_EQ(failureOf<Err_GeneralError>("f", "g", "s", nullptr), expected);
}

TEST_F(ErrError, CanBeCopied)
{
    const Err_NullPtrError original("file", 7, "function", "thePtr");
    Err_NullPtrError copy("other", 8, "elsewhere", "otherPtr");
    copy = original;
    EXPECT_EQ(outputOf(copy), outputOf(original));
    EXPECT_EQ(outputOf(Err_NullPtrError(original)), outputOf(original));
}

TEST_F(ErrError, ExitOnErrorEndsTheProcess)
{
    EXPECT_EXIT(Err_Error("file", 7, "function", "Severe", "Name").exitOnError(),
                testing::ExitedWithCode(1), "^$");
}

}  // namespace
