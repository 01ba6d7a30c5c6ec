#include "Velmora/platform/posix/ProgramPath.h"

#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace velmora {
namespace {

namespace fs = std::filesystem;

class ProgramPath : public testing::Test {
protected:
    /// Makes a file, which may be run or not.
    fs::path file(std::string const& name, bool runs)
    {
        auto path = folder.path() / name;
        fs::create_directories(path.parent_path());
        std::ofstream(path) << "#!/bin/sh\n";
        fs::permissions(path, runs ? fs::perms::owner_all : fs::perms::owner_read);
        return path;
    }

    TemporaryFolder folder;
};

TEST_F(ProgramPath, IsWhatTheKernelSaysWhateverTheCallSaid)
{
    EXPECT_EQ(programPath("something/else"), fs::read_symlink("/proc/self/exe"));
    EXPECT_EQ(programPath(nullptr), fs::read_symlink("/proc/self/exe"));
}

TEST_F(ProgramPath, ACallByPathIsThatPathSeenFromWhereItWasMade)
{
    EXPECT_EQ(findProgram("/usr/bin/velmora", "", "/home/me"), "/usr/bin/velmora");
    EXPECT_EQ(findProgram("./build/velmora", "/usr/bin", "/home/me"), "/home/me/build/velmora");
    EXPECT_EQ(findProgram("../velmora", "/usr/bin", "/home/me"), "/home/velmora");
}

TEST_F(ProgramPath, ACallByNameIsTheFirstInTheSearchPathThatCanBeRun)
{
    file("first/velmora", false);
    fs::create_directories(folder.path() / "folders/velmora");
    auto const second = file("second/velmora", true);
    file("third/velmora", true);
    auto const in = [&](char const* name) { return (folder.path() / name).string(); };
    auto const path = in("none") + ":" + in("first") + ":" + in("folders") + ":" + in("second")
        + ":" + in("third");
    EXPECT_EQ(findProgram("velmora", path, "/"), second);
}

TEST_F(ProgramPath, AnEmptyFolderOfTheSearchPathIsWhereTheCallWasMade)
{
    auto const here = file("velmora", true);
    EXPECT_EQ(findProgram("velmora", "/nowhere:", folder.path()), here);
    EXPECT_EQ(findProgram("velmora", ":/nowhere", folder.path()), here);
}

TEST_F(ProgramPath, IsEmptyWhereTheProgramIsNowhereOrNothingWasCalled)
{
    EXPECT_EQ(findProgram("velmora", "/nowhere:/neither", "/"), fs::path());
    EXPECT_EQ(findProgram("", "/usr/bin", "/"), fs::path());
}

} // namespace
} // namespace velmora
