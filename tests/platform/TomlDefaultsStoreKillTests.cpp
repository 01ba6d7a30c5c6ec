#include "Velmora/platform/linux/TomlDefaultsStore.h"

#include "tests/fakes/TemporaryFolder.h"
#include "tests/platform/FilesOnDisk.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <atomic>
#include <chrono>
#include <csignal>
#include <random>
#include <thread>

namespace velmora {

namespace {

/// Writes 1, 2, 3 and so on under two keys at once, each flushed, until it is killed.
[[noreturn]] void writeForEver(std::filesystem::path const& file, std::int64_t first)
{
    TomlDefaultsStore store{file};
    for (std::int64_t i = first;; ++i) {
        std::array<DefaultsEntry, 2> const entries{{{"a", i}, {"b", static_cast<double>(i)}}};
        store.write(entries);
        store.flush();
    }
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
    int advanced = 0;
    for (int round = 0; round < 100; ++round) {
        pid_t const child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0)
            writeForEver(file, last + 1);
        // The instant of the kill is the experiment, not a wait for something.
        std::this_thread::sleep_for(std::chrono::microseconds{random() % 10'000});
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);

        TomlDefaultsStore const store{file};
        auto const a = store.integer("a");
        ASSERT_EQ(a.has_value(), std::filesystem::exists(file)) << "seed " << seed;
        ASSERT_EQ(store.number("b"), a) << "seed " << seed;
        ASSERT_GE(a.value_or(0), last) << "seed " << seed;
        advanced += a.value_or(0) > last ? 1 : 0;
        last = a.value_or(0);
        ASSERT_LE(namesIn(temporary.path()).size(), 2U) << "seed " << seed;
    }
    EXPECT_GT(advanced, 10) << "the kills came too early to mean anything";
    {
        TomlDefaultsStore store{file};
        std::array<DefaultsEntry, 1> const entry{{{"a", std::int64_t{-1}}}};
        store.write(entry);
    }
    EXPECT_EQ(namesIn(temporary.path()), std::vector<std::string>{"defaults.toml"});
}

} // namespace velmora
