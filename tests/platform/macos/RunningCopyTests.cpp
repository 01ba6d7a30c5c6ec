#include "Velmora/platform/macos/RunningCopy.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(RunningCopies, LeaveOutThisProcessAndKeepTheSystemsOrder)
{
    EXPECT_EQ(otherInstances({30, 10, 20}, 10), (std::vector{30, 20}));
    EXPECT_EQ(otherInstances({10}, 10), std::vector<int>{});
    EXPECT_EQ(otherInstances({}, 10), std::vector<int>{});
}

TEST(RunningCopies, TheFirstIsTheOneThatComesForward)
{
    EXPECT_EQ(firstOf({30, 20}), std::vector{30});
    EXPECT_EQ(firstOf({}), std::vector<int>{});
}

} // namespace
} // namespace velmora
