#include "Velmora/platform/macos/FocusUserInfo.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(FocusUserInfo, AsksForWhatItsTwoBooleansSay)
{
    EXPECT_EQ(focusRequest(FocusUserInfo{.settings = true, .preview = false}),
        (FocusRequest{.settings = true, .preview = false}));
    EXPECT_EQ(focusRequest(FocusUserInfo{.settings = false, .preview = true}),
        (FocusRequest{.settings = false, .preview = true}));
}

TEST(FocusUserInfo, WhatIsMissingOrNoBooleanCountsAsFalse)
{
    EXPECT_EQ(focusRequest(FocusUserInfo{}), FocusRequest{});
    EXPECT_EQ(focusRequest(FocusUserInfo{.preview = true}),
        (FocusRequest{.settings = false, .preview = true}));
}

TEST(FocusUserInfo, ANumberIsNoBooleanWhateverItsValue)
{
    EXPECT_EQ(
        focusRequest(FocusUserInfo{.settings = std::int64_t{1}, .preview = 1.0}), FocusRequest{});
}

} // namespace
} // namespace velmora
