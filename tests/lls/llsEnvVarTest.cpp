// Environment variables by name.
//
// - the name is kept
// - a variable that does not exist is not defined and reads "-- not available --"
// - a variable is defined as soon as it exists, also when it is empty
// - the value is read anew on every call

#include <gtest/gtest.h>

#include <cstdlib>
#include <type_traits>

#include <utils/llsEnvVar.h>

namespace
{

using utils::Lls_EnvVar;

constexpr const char* NAME = "GENERIC_UTILS_TEST_VARIABLE";

TEST(LlsEnvVar, KeepsItsName)
{
    EXPECT_EQ(Lls_EnvVar(NAME).getName(), "GENERIC_UTILS_TEST_VARIABLE");
}

TEST(LlsEnvVar, MissingVariableIsNotDefined)
{
    unsetenv(NAME);
    const Lls_EnvVar variable(NAME);
    EXPECT_FALSE(variable.isDefined());
    EXPECT_EQ(variable.getValue(), "-- not available --");
}

TEST(LlsEnvVar, EmptyVariableIsDefined)
{
    setenv(NAME, "", 1);
    const Lls_EnvVar variable(NAME);
    EXPECT_TRUE(variable.isDefined());
    EXPECT_EQ(variable.getValue(), "");
}

TEST(LlsEnvVar, ValueIsReadAnew)
{
    setenv(NAME, "first", 1);
    const Lls_EnvVar variable(NAME);
    EXPECT_EQ(variable.getValue(), "first");
    setenv(NAME, "second", 1);
    EXPECT_EQ(variable.getValue(), "second");
    unsetenv(NAME);
    EXPECT_FALSE(variable.isDefined());
    EXPECT_EQ(variable.getValue(), "-- not available --");
}

TEST(LlsEnvVar, IsDestroyedThroughABasePointer)
{
    static_assert(std::has_virtual_destructor_v<Lls_EnvVar>);
}

}  // namespace
