#include "Velmora/platform/linux/SettingsFile.h"

#include "tests/fakes/TemporaryFolder.h"
#include "tests/platform/ChildProcess.h"
#include "tests/platform/FilesOnDisk.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>

#include <csignal>

namespace velmora {

namespace {

using Names = std::vector<std::string>;

/// One folder with the settings file of a user in it, and that user's view of it.
class SettingsFileTest : public testing::Test {
protected:
    /// Understands every text that begins with "good".
    [[nodiscard]] SettingsFile open() const
    {
        return SettingsFile{
            m_file, [](std::string_view bytes) { return bytes.starts_with("good"); }};
    }
    [[nodiscard]] Names names() const { return namesIn(m_folder); }

    TemporaryFolder m_temporary;
    std::filesystem::path m_folder = m_temporary.path() / "settings";
    std::filesystem::path m_file = m_folder / "defaults.toml";
    std::filesystem::path m_aside = m_folder / "defaults.toml.unreadable-1";
};

class SettingsFileInAFolder : public SettingsFileTest {
protected:
    SettingsFileInAFolder() { std::filesystem::create_directory(m_folder); }

    /// Loads nothing and saves; what stood there must be aside and the new file in its place.
    void expectSetAside()
    {
        auto file = open();
        EXPECT_EQ(file.load(), std::nullopt);
        EXPECT_EQ(names(), Names{"defaults.toml"});
        EXPECT_TRUE(file.save("good new"));
        EXPECT_EQ(bytesOf(m_file), "good new");
        EXPECT_EQ(names(), (Names{"defaults.toml", "defaults.toml.unreadable-1"}));
    }
};

} // namespace

TEST_F(SettingsFileTest, MakesItsFolderAndFileForTheUserAlone)
{
    m_file = m_folder / "deeper" / "defaults.toml";
    auto const mask = ::umask(0);
    EXPECT_TRUE(open().save("good"));
    ::umask(mask);
    EXPECT_EQ(modeOf(m_folder), 0700U);
    EXPECT_EQ(modeOf(m_folder / "deeper"), 0700U);
    EXPECT_EQ(modeOf(m_file), 0600U);
}

TEST_F(SettingsFileTest, MakesAFileThatItsOwnerCanReadUnderTheStrictestMask)
{
    std::filesystem::create_directory(m_folder);
    auto const mask = ::umask(0777);
    EXPECT_TRUE(open().save("good"));
    ::umask(mask);
    EXPECT_EQ(modeOf(m_file), 0600U);
}

TEST_F(SettingsFileTest, LoadsNothingAndMakesNothingWhereThereIsNothing)
{
    EXPECT_EQ(open().load(), std::nullopt);
    EXPECT_FALSE(std::filesystem::exists(m_folder));
}

TEST_F(SettingsFileTest, SavesAgainWhenItsFolderWasRemoved)
{
    auto file = open();
    EXPECT_TRUE(file.save("good"));
    std::filesystem::remove_all(m_folder);
    EXPECT_TRUE(file.save("good"));
    EXPECT_EQ(bytesOf(m_file), "good");
}

TEST_F(SettingsFileTest, FailsBelowAPathLongerThanTheSystemTakes)
{
    std::string deep = m_folder;
    for (int i = 0; i < 60'000; ++i)
        deep += "/a";
    m_file = deep + "/defaults.toml";
    auto file = open();
    EXPECT_EQ(file.load(), std::nullopt);
    EXPECT_FALSE(file.save("good"));
    EXPECT_FALSE(std::filesystem::exists(m_folder));
}

TEST_F(SettingsFileTest, FailsWithoutAPath)
{
    m_file.clear();
    auto file = open();
    EXPECT_EQ(file.load(), std::nullopt);
    EXPECT_FALSE(file.save("good"));
}

TEST_F(SettingsFileInAFolder, WritesNothingWhenTheContentIsThereAlready)
{
    putBytes(m_file, "good");
    auto file = open();
    EXPECT_EQ(file.load(), "good");
    struct stat before = {};
    struct stat after = {};
    ::stat(m_file.c_str(), &before);
    EXPECT_TRUE(file.save("good"));
    ::stat(m_file.c_str(), &after);
    EXPECT_EQ(before.st_ino, after.st_ino);
    EXPECT_EQ(FileIdentity::of(before), FileIdentity::of(after));
}

TEST_F(SettingsFileInAFolder, SetsAsideWhatItDoesNotUnderstand)
{
    putBytes(m_file, "bad");
    expectSetAside();
    EXPECT_EQ(bytesOf(m_aside), "bad");
}

TEST_F(SettingsFileInAFolder, NeverOverwritesWhatWasSetAsideEarlier)
{
    putBytes(m_aside, "earlier");
    putBytes(m_folder / "defaults.toml.unreadable-2", "earlier too");
    putBytes(m_file, "bad");
    auto file = open();
    EXPECT_EQ(file.load(), std::nullopt);
    EXPECT_TRUE(file.save("good"));
    EXPECT_EQ(bytesOf(m_aside), "earlier");
    EXPECT_EQ(bytesOf(m_folder / "defaults.toml.unreadable-2"), "earlier too");
    EXPECT_EQ(bytesOf(m_folder / "defaults.toml.unreadable-3"), "bad");
}

TEST_F(SettingsFileInAFolder, SetsAsideAFileThatIsTooLargeWithoutReadingIt)
{
    putBytes(m_file, "good");
    std::filesystem::resize_file(m_file, 100'000'000);
    expectSetAside();
    EXPECT_EQ(std::filesystem::file_size(m_aside), 100'000'000U);
}

TEST_F(SettingsFileInAFolder, LoadsAFileOfTheLargestSizeAndNoneThatIsLarger)
{
    putBytes(m_file, "good" + std::string(SettingsFile::sizeLimit - 4, ' '));
    EXPECT_TRUE(open().load());
    putBytes(m_file, "good" + std::string(SettingsFile::sizeLimit - 3, ' '));
    EXPECT_FALSE(open().load());
}

TEST_F(SettingsFileInAFolder, SetsAsideAFolderInItsPlace)
{
    std::filesystem::create_directory(m_file);
    putBytes(m_file / "inside", "kept");
    expectSetAside();
    EXPECT_EQ(bytesOf(m_aside / "inside"), "kept");
}

TEST_F(SettingsFileInAFolder, SetsAsideAPipeWithoutWaitingForIt)
{
    ASSERT_EQ(::mkfifo(m_file.c_str(), S_IRUSR | S_IWUSR), 0);
    expectSetAside();
    EXPECT_TRUE(std::filesystem::is_fifo(m_aside));
}

TEST_F(SettingsFileInAFolder, SetsAsideALinkThatLeadsNowhere)
{
    std::filesystem::create_symlink("nowhere", m_file);
    expectSetAside();
    EXPECT_EQ(std::filesystem::read_symlink(m_aside), "nowhere");
}

TEST_F(SettingsFileInAFolder, SetsAsideALinkToItself)
{
    std::filesystem::create_symlink("defaults.toml", m_file);
    expectSetAside();
}

TEST_F(SettingsFileInAFolder, FollowsTheUsersOwnLinkAndReplacesTheFileItLeadsTo)
{
    auto const elsewhere = m_temporary.path() / "dotfiles";
    std::filesystem::create_directory(elsewhere);
    putBytes(elsewhere / "mine", "good old");
    std::filesystem::create_symlink("../dotfiles/mine", m_file);
    auto file = open();
    EXPECT_EQ(file.load(), "good old");
    EXPECT_TRUE(file.save("good new"));
    EXPECT_TRUE(std::filesystem::is_symlink(m_file));
    EXPECT_EQ(bytesOf(elsewhere / "mine"), "good new");
    EXPECT_EQ(namesIn(elsewhere), Names{"mine"});
}

TEST_F(SettingsFileInAFolder, DoesNotFollowALinkOfAnotherUserNorALinkToAnotherUsersFile)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can make another user's link";
    auto const target = m_temporary.path() / "target";
    putBytes(target, "good trap");
    std::filesystem::create_symlink(target, m_file);
    ASSERT_EQ(::lchown(m_file.c_str(), nobody, nobody), 0);
    expectSetAside();
    EXPECT_EQ(bytesOf(target), "good trap");

    std::filesystem::remove(m_file);
    std::filesystem::remove(m_aside);
    std::filesystem::create_symlink(target, m_file);
    ASSERT_EQ(::chown(target.c_str(), nobody, nobody), 0);
    expectSetAside();
    EXPECT_EQ(bytesOf(target), "good trap");
}

TEST_F(SettingsFileInAFolder, SetsAsideWhatReplacedTheFileWhileRunning)
{
    auto file = open();
    EXPECT_TRUE(file.save("good old"));
    putBytes(m_file, "bad noise");
    EXPECT_TRUE(file.save("good new"));
    EXPECT_EQ(bytesOf(m_file), "good new");
    EXPECT_EQ(bytesOf(m_aside), "bad noise");
}

TEST_F(SettingsFileInAFolder, ReplacesAnotherWritersFileWithoutKeepingIt)
{
    auto first = open();
    auto second = open();
    EXPECT_TRUE(first.save("good first"));
    EXPECT_TRUE(second.save("good second"));
    EXPECT_TRUE(first.save("good first"));
    EXPECT_EQ(bytesOf(m_file), "good first");
    EXPECT_EQ(names(), Names{"defaults.toml"});
}

TEST_F(SettingsFileInAFolder, KeepsAFileThatCouldNotBeOpenedEvenIfItCanBeOpenedLater)
{
    EXPECT_TRUE(holdsForOrdinaryUser(m_folder, [this] {
        putBytes(m_file, "good but locked");
        ::chmod(m_file.c_str(), 0);
        auto file = open();
        bool const loadedNothing = !file.load();
        ::chmod(m_file.c_str(), S_IRUSR);
        return loadedNothing && file.save("good new") && bytesOf(m_file) == "good new"
            && bytesOf(m_aside) == "good but locked";
    }));
}

TEST_F(SettingsFileInAFolder, KeepsAFileWhosePermissionsWereTakenAwayWhileRunning)
{
    EXPECT_TRUE(holdsForOrdinaryUser(m_folder, [this] {
        auto file = open();
        bool const saved = file.save("good old");
        ::chmod(m_file.c_str(), 0);
        return saved && file.save("good new") && bytesOf(m_file) == "good new"
            && std::filesystem::exists(m_aside);
    }));
}

TEST_F(SettingsFileInAFolder, FailsInAReadOnlyFolderAndSavesOnceItMayBeWritten)
{
    EXPECT_TRUE(holdsForOrdinaryUser(m_folder, [this] {
        auto file = open();
        ::chmod(m_folder.c_str(), S_IRUSR | S_IXUSR);
        bool const failed = !file.save("good");
        ::chmod(m_folder.c_str(), S_IRWXU);
        return failed && file.save("good") && bytesOf(m_file) == "good";
    }));
}

TEST_F(SettingsFileInAFolder, LeavesOldAndUnreadableFilesAloneWhenTheNewOneCannotBeWrittenWhole)
{
    putBytes(m_file, "bad");
    EXPECT_TRUE(holdsInChild([this] {
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit const limit = {.rlim_cur = 1000, .rlim_max = RLIM_INFINITY};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        auto file = open();
        bool const failed = !file.load() && !file.save("good" + std::string(5000, ' '));
        return failed && names() == Names{"defaults.toml"} && bytesOf(m_file) == "bad"
            && file.save("good") && bytesOf(m_aside) == "bad";
    }));
}

TEST_F(SettingsFileInAFolder, SetsNothingAsideForWantOfDescriptors)
{
    putBytes(m_file, "good old");
    EXPECT_TRUE(holdsInChild([this] {
        auto file = open();
        rlimit limit = {};
        ::getrlimit(RLIMIT_NOFILE, &limit);
        rlimit const none = {.rlim_cur = 0, .rlim_max = limit.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &none);
        bool const failed = !file.load() && !file.save("good new");
        ::setrlimit(RLIMIT_NOFILE, &limit);
        // It was never loaded, so it is kept although it is understood by now.
        return failed && names() == Names{"defaults.toml"} && file.save("good new")
            && bytesOf(m_aside) == "good old";
    }));
}

TEST_F(SettingsFileInAFolder, RemovesTheTemporaryFileOfADeadProcess)
{
    putBytes(m_folder / ".defaults.toml.new", "half");
    EXPECT_TRUE(open().save("good"));
    EXPECT_EQ(names(), Names{"defaults.toml"});
}

TEST_F(SettingsFileInAFolder, DoesNotWriteThroughALinkInTheTemporaryFilesPlace)
{
    auto const target = m_temporary.path() / "target";
    putBytes(target, "untouched");
    std::filesystem::create_symlink(target, m_folder / ".defaults.toml.new");
    EXPECT_TRUE(open().save("good"));
    EXPECT_EQ(bytesOf(target), "untouched");
    EXPECT_EQ(names(), Names{"defaults.toml"});
}

TEST_F(SettingsFileInAFolder, IsWholeAtEveryInstantWhileTwoWritersReplaceIt)
{
    std::string const first = "good " + std::string(3000, 'a');
    std::string const second = "good " + std::string(2000, 'b');
    auto const writes = [&, this](std::string const& mine) {
        auto file = open();
        for (int i = 0; i < 100; ++i) {
            if (!file.save(mine + std::to_string(i)))
                return false;
            auto const found = bytesOf(m_file);
            if (!found.starts_with(first) && !found.starts_with(second))
                return false;
        }
        return true;
    };
    pid_t const child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0)
        ::_exit(writes(first) ? 0 : 1);
    EXPECT_TRUE(writes(second));
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(names(), Names{"defaults.toml"});
}

TEST_F(SettingsFileInAFolder, GivesUpForThisTimeWhenTheFolderStaysLocked)
{
    int const folder = ::open(m_folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ASSERT_EQ(::flock(folder, LOCK_EX), 0);
    auto file = open();
    EXPECT_FALSE(file.save("good"));
    ::close(folder);
    EXPECT_TRUE(file.save("good"));
    EXPECT_EQ(names(), Names{"defaults.toml"});
}

} // namespace velmora
