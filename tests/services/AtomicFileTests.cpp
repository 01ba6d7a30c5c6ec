#include "Velmora/services/AtomicFile.h"

#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace velmora {
namespace {

namespace fs = std::filesystem;

std::string read(fs::path const& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::size_t count(fs::path const& folder)
{
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

TEST(AtomicFile, IsWrittenWithItsBytesAndNothingElseStaysBehind)
{
    TemporaryFolder const folder;
    std::string const bytes("a\0b\n", 4);
    EXPECT_TRUE(replaceFile(folder.path() / "file", bytes));
    EXPECT_EQ(read(folder.path() / "file"), bytes);
    EXPECT_EQ(count(folder.path()), 1U);
}

TEST(AtomicFile, ReplacesLongerContentWhole)
{
    TemporaryFolder const folder;
    std::ofstream(folder.path() / "file") << "much longer than what comes";
    EXPECT_TRUE(replaceFile(folder.path() / "file", "new"));
    EXPECT_EQ(read(folder.path() / "file"), "new");
}

TEST(AtomicFile, AReaderThatHasTheOldFileOpenKeepsTheOldContent)
{
    TemporaryFolder const folder;
    std::ofstream(folder.path() / "file") << "old";
    std::ifstream reader(folder.path() / "file");
    EXPECT_TRUE(replaceFile(folder.path() / "file", "new"));
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), "old");
}

TEST(AtomicFile, IsReadableByAllAndWritableByItsOwner)
{
    TemporaryFolder const folder;
    EXPECT_TRUE(replaceFile(folder.path() / "file", "new"));
    EXPECT_EQ(fs::status(folder.path() / "file").permissions(), fs::perms(0644));
}

TEST(AtomicFile, IsRefusedWhereTheFolderIsMissing)
{
    TemporaryFolder const folder;
    EXPECT_FALSE(replaceFile(folder.path() / "missing" / "file", "new"));
}

TEST(AtomicFile, IsRefusedOverAFolderAndLeavesNothingBehind)
{
    TemporaryFolder const folder;
    fs::create_directories(folder.path() / "file" / "inside");
    EXPECT_FALSE(replaceFile(folder.path() / "file", "new"));
    EXPECT_EQ(count(folder.path()), 1U);
}

} // namespace
} // namespace velmora
