#include "Velmora/platform/posix/InstalledResources.h"

#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace velmora {
namespace {

namespace fs = std::filesystem;

struct InstalledResourcesTest : testing::Test {
    static void put(fs::path const& file)
    {
        fs::create_directories(file.parent_path());
        std::ofstream(file) << "sound";
    }

    TemporaryFolder prefix;
    fs::path beside = prefix.path() / "bin/chime.wav";
    fs::path shared = prefix.path() / "share/velmora/chime.wav";
    fs::path source = prefix.path() / "source/resources/chime.wav";
    InstalledResources resources{prefix.path() / "bin/velmora", source.parent_path()};
};

TEST_F(InstalledResourcesTest, FindsAFileBesideTheProgramFirst)
{
    put(beside);
    put(shared);
    EXPECT_EQ(resources.find("chime", "wav"), beside);
}

TEST_F(InstalledResourcesTest, FindsAFileInTheShareFolderOfThePrefix)
{
    put(shared);
    put(source);
    EXPECT_EQ(resources.find("chime", "wav"), shared);
}

TEST_F(InstalledResourcesTest, FindsAFileOfTheSourceTreeLast)
{
    put(source);
    EXPECT_EQ(resources.find("chime", "wav"), source);
    EXPECT_EQ(InstalledResources(prefix.path() / "bin/velmora").find("chime", "wav"), std::nullopt);
}

TEST_F(InstalledResourcesTest, LooksAnewEveryTime)
{
    EXPECT_EQ(resources.find("chime", "wav"), std::nullopt);
    put(beside);
    EXPECT_EQ(resources.find("chime", "wav"), beside);
    fs::remove(beside);
    EXPECT_EQ(resources.find("chime", "wav"), std::nullopt);
}

TEST_F(InstalledResourcesTest, AFolderIsNoFile)
{
    fs::create_directories(beside);
    put(shared);
    EXPECT_EQ(resources.find("chime", "wav"), shared);
}

} // namespace
} // namespace velmora
