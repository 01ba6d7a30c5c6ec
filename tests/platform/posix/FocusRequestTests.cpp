#include "Velmora/platform/FocusRequest.h"

#include <gtest/gtest.h>

#include <vector>

namespace velmora {
namespace {

FocusRequest from(std::vector<char const*> const& arguments)
{
    return focusRequest(arguments);
}

TEST(FocusRequest, AsksForNothingMoreWithoutArguments)
{
    EXPECT_EQ(from({"velmora"}), FocusRequest{});
    EXPECT_EQ(from({}), FocusRequest{});
}

TEST(FocusRequest, TakesEitherFlagWhereverItStands)
{
    EXPECT_EQ(from({"velmora", "--settings"}), (FocusRequest{.settings = true}));
    EXPECT_EQ(from({"velmora", "x", "--preview", "y"}), (FocusRequest{.preview = true}));
    EXPECT_EQ(from({"--settings", "--preview"}), (FocusRequest{.settings = true, .preview = true}));
}

TEST(FocusRequest, AnArgumentThatOnlyResemblesAFlagDoesNotCount)
{
    EXPECT_EQ(from({"velmora", "--settings=1", "--previews", "-settings", "--Preview", "--", ""}),
        FocusRequest{});
}

} // namespace
} // namespace velmora
