#include "Velmora/platform/posix/InstanceLock.h"

#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <iterator>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velmora {
namespace {

namespace fs = std::filesystem;

struct InstanceLockTest : testing::Test {
    [[nodiscard]] std::string content() const
    {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    void putFile(std::string const& text) const
    {
        fs::create_directories(file.parent_path());
        std::ofstream(file) << text;
    }

    TemporaryFolder home;
    fs::path file = home.path() / "Library/Application Support/Velmora/instance.lock";
    std::string ownLine = std::to_string(getpid()) + "\n";
};

TEST_F(InstanceLockTest, IsTakenAndNamesItsHolder)
{
    auto const lock = InstanceLock::acquire(home.path());
    ASSERT_TRUE(lock);
    EXPECT_EQ(content(), ownLine);
}

TEST_F(InstanceLockTest, IsRefusedWhileItIsHeld)
{
    auto const lock = InstanceLock::acquire(home.path());
    EXPECT_FALSE(InstanceLock::acquire(home.path()));
    EXPECT_EQ(content(), ownLine);
}

TEST_F(InstanceLockTest, IsFreeAgainWhenTheLastReferenceIsGone)
{
    auto first = InstanceLock::acquire(home.path());
    auto second = first;
    first.reset();
    EXPECT_FALSE(InstanceLock::acquire(home.path()));
    second.reset();
    EXPECT_TRUE(InstanceLock::acquire(home.path()));
}

TEST_F(InstanceLockTest, TheFileStaysWhenTheLockIsGone)
{
    InstanceLock::acquire(home.path()).reset();
    EXPECT_EQ(content(), ownLine);
}

TEST_F(InstanceLockTest, TheFileIsReadableByAllAndWritableByItsOwner)
{
    auto const mask = umask(0);
    auto const lock = InstanceLock::acquire(home.path());
    umask(mask);
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0644));
}

TEST_F(InstanceLockTest, AStaleFileIsTakenOverInPlace)
{
    putFile("1\n");
    auto const lock = InstanceLock::acquire(home.path());
    ASSERT_TRUE(lock);
    EXPECT_EQ(content(), ownLine);
}

TEST_F(InstanceLockTest, TheTailOfALongerIdentifierStaysBehindTheFirstLine)
{
    putFile("123456789012\n");
    auto const lock = InstanceLock::acquire(home.path());
    ASSERT_TRUE(lock);
    EXPECT_EQ(content(), ownLine + std::string("123456789012\n").substr(ownLine.size()));
}

TEST_F(InstanceLockTest, IsNoLockWhereItsFolderCannotBeMade)
{
    std::ofstream(home.path() / "Library") << "a file in the way";
    EXPECT_FALSE(InstanceLock::acquire(home.path()));
}

TEST_F(InstanceLockTest, IsNoLockWhereItsFileCannotBeOpened)
{
    fs::create_directories(file);
    EXPECT_FALSE(InstanceLock::acquire(home.path()));
}

TEST_F(InstanceLockTest, FollowsNoLinkInItsFilesPlace)
{
    fs::create_directories(file.parent_path());
    auto const target = home.path() / "somebody's";
    std::ofstream(target) << "precious";
    fs::create_symlink(target, file);
    EXPECT_FALSE(InstanceLock::acquire(home.path()));
    std::ifstream stream(target);
    EXPECT_EQ((std::string{std::istreambuf_iterator<char>{stream}, {}}), "precious");
}

TEST_F(InstanceLockTest, IsNoLockWithoutAHomeFolder)
{
    EXPECT_FALSE(InstanceLock::acquire({}));
    EXPECT_FALSE(InstanceLock::acquire("relative"));
    EXPECT_FALSE(fs::exists("Library"));
    EXPECT_FALSE(fs::exists("relative"));
}

TEST_F(InstanceLockTest, ALockHeldByAnotherProcessIsRefusedUntilThatProcessIsKilled)
{
    int ready[2] = {};
    ASSERT_EQ(pipe(ready), 0);
    pid_t const child = fork();
    if (child == 0) {
        auto const lock = InstanceLock::acquire(home.path());
        char const answer = lock ? 'y' : 'n';
        [[maybe_unused]] auto const written = write(ready[1], &answer, 1);
        pause();
        _exit(0);
    }
    char answer = 0;
    ASSERT_EQ(read(ready[0], &answer, 1), 1);
    EXPECT_EQ(answer, 'y');
    EXPECT_FALSE(InstanceLock::acquire(home.path()));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    EXPECT_TRUE(InstanceLock::acquire(home.path()));
    close(ready[0]);
    close(ready[1]);
}

TEST_F(InstanceLockTest, AProgramStartedByTheHolderDoesNotInheritIt)
{
    auto lock = InstanceLock::acquire(home.path());
    int hold[2] = {};
    ASSERT_EQ(pipe(hold), 0);
    pid_t const child = fork();
    if (child == 0) {
        dup2(hold[0], STDIN_FILENO);
        close(hold[0]);
        close(hold[1]);
        execl("/bin/cat", "cat", nullptr);
        _exit(127);
    }
    close(hold[0]);
    // Once the other program runs, its view of the descriptors is what it inherited.
    fs::path const executable = "/proc/" + std::to_string(child) + "/exe";
    std::error_code error;
    while (!fs::equivalent(executable, "/bin/cat", error))
        usleep(1000);
    lock.reset();
    EXPECT_TRUE(InstanceLock::acquire(home.path()));
    close(hold[1]);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

} // namespace
} // namespace velmora
