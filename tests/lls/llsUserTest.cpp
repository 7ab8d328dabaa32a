// The user as environment variable USER names it.
//
// - the name is the variable's value, "-- not available --" without it
// - the name is fixed when the object is made

#include <gtest/gtest.h>

#include <cstdlib>
#include <type_traits>

#include <utils/llsUser.h>

namespace
{

using utils::Lls_User;

TEST(LlsUser, IsNamedByTheEnvironment)
{
    setenv("USER", "marie", 1);
    EXPECT_EQ(Lls_User().getName(), "marie");
}

TEST(LlsUser, EmptyNameIsAName)
{
    setenv("USER", "", 1);
    EXPECT_EQ(Lls_User().getName(), "");
}

TEST(LlsUser, IsNotAvailableWithoutTheVariable)
{
    unsetenv("USER");
    EXPECT_EQ(Lls_User().getName(), "-- not available --");
}

TEST(LlsUser, NameIsFixedWhenMade)
{
    setenv("USER", "marie", 1);
    const Lls_User user;
    setenv("USER", "pierre", 1);
    EXPECT_EQ(user.getName(), "marie");
}

TEST(LlsUser, IsDestroyedThroughABasePointer)
{
    static_assert(std::has_virtual_destructor_v<Lls_User>);
}

}  // namespace
