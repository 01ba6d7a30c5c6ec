#include "Velmora/platform/linux/TomlDefaultsStore.h"

#include "tests/fakes/TemporaryFolder.h"
#include "tests/platform/FilesOnDisk.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <chrono>
#include <csignal>
#include <random>
#include <thread>

namespace velmora {

namespace {

/// Writes a number and the next one and so on, each under two keys at once and flushed, until it
/// is killed; says through the pipe when the first is on the disk.
[[noreturn]] void writeForEver(std::filesystem::path const& file, std::int64_t first, int pipe)
{
    TomlDefaultsStore store{file};
    for (std::int64_t i = first;; ++i) {
        std::array<DefaultsEntry, 2> const entries{{{"a", i}, {"b", static_cast<double>(i)}}};
        store.write(entries);
        store.flush();
        if (i == first && ::write(pipe, "1", 1) != 1)
            ::_exit(1);
    }
}

/// Starts such a writer and kills it some time after its start, or after its first values are on
/// the disk.
void writeAndKill(std::filesystem::path const& file, std::int64_t first, bool afterFirst,
    std::chrono::microseconds later)
{
    std::array<int, 2> ends = {};
    ASSERT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
    pid_t const child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0)
        writeForEver(file, first, ends[1]);
    ::close(ends[1]);
    char byte = 0;
    EXPECT_TRUE(!afterFirst || ::read(ends[0], &byte, 1) == 1);
    // The instant of the kill is the experiment, not a wait for something.
    std::this_thread::sleep_for(later);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    ::close(ends[0]);
}

} // namespace

TEST(TomlDefaultsStoreKill, LeavesTheValuesBeforeOrAfterWheneverItsProcessIsKilled)
{
    TemporaryFolder const temporary;
    auto const file = temporary.path() / "defaults.toml";
    std::random_device device;
    auto const seed = device();
    std::mt19937 random{seed};
    std::int64_t last = 0;
    for (int round = 0; round < 100; ++round) {
        bool const afterFirst = round % 2 == 0;
        writeAndKill(file, last + 1, afterFirst, std::chrono::microseconds{random() % 10'000});
        ASSERT_FALSE(HasFatalFailure());

        TomlDefaultsStore const store{file};
        auto const a = store.integer("a");
        ASSERT_EQ(a.has_value(), std::filesystem::exists(file)) << "seed " << seed;
        ASSERT_EQ(store.number("b"), a) << "seed " << seed;
        ASSERT_GE(a.value_or(0), last + (afterFirst ? 1 : 0)) << "seed " << seed;
        last = a.value_or(0);
        ASSERT_LE(namesIn(temporary.path()).size(), 2U) << "seed " << seed;
    }
    {
        TomlDefaultsStore store{file};
        std::array<DefaultsEntry, 1> const entry{{{"a", std::int64_t{-1}}}};
        store.write(entry);
    }
    EXPECT_EQ(namesIn(temporary.path()), std::vector<std::string>{"defaults.toml"});
}

} // namespace velmora
