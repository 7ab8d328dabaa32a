// What the initial values ask of the platform, seen by standing in for it.
//
// - each reading makes one directory-paths object, asks it once and deletes it
// - the file is opened before the object is deleted

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include <libdir/DirectoryPaths.h>
#include <utils/flag/InitialValues.h>

#include "support/ConfigDirectory.h"

namespace
{

int theNumMade = 0;
int theNumAsked = 0;
int theNumDeleted = 0;

// Takes the values file away with it, as a platform may that provides its files for a time.
class FleetingPaths : public libdir::DirectoryPaths
{
  public:
    ~FleetingPaths() override
    {
        ++theNumDeleted;
        std::filesystem::remove(libdir::DirectoryPaths::getGenericConfigurationDirectory() +
                                "/generic_flags.txt");
    }

    std::string getGenericConfigurationDirectory() const override
    {
        ++theNumAsked;
        return libdir::DirectoryPaths::getGenericConfigurationDirectory();
    }
};

}  // namespace

libdir::DirectoryPaths* libdir::DirectoryPathsFactory::create()
{
    ++theNumMade;
    return new FleetingPaths;
}

namespace
{

using utils::flag::InitialValues;

TEST(InitialValuesPlatform, ObjectIsMadeAskedAndDeletedOnceForEachReading)
{
    const test::ConfigDirectory config;
    InitialValues values;
    EXPECT_EQ(theNumMade, 1);
    EXPECT_EQ(theNumAsked, 1);
    EXPECT_EQ(theNumDeleted, 1);

    config.writeValues("");
    values.redoInitialValuesCollection();
    EXPECT_EQ(theNumMade, 2);
    EXPECT_EQ(theNumAsked, 2);
    EXPECT_EQ(theNumDeleted, 2);
}

TEST(InitialValuesPlatform, FileIsOpenedBeforeTheObjectIsDeleted)
{
    const test::ConfigDirectory config("a\n1\n");
    const InitialValues values;
    std::string value;
    EXPECT_TRUE(values.getInitialValue("a", value));
    EXPECT_EQ(value, "1");
    EXPECT_FALSE(std::filesystem::exists(config.getValuesPath()));
}

}  // namespace
