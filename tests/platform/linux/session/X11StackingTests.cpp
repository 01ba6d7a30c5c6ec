#include "Velmora/platform/linux/X11Stacking.h"

#include "tests/platform/linux/session/Eventually.h"
#include "tests/platform/linux/session/PrivateDisplay.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <span>
#include <vector>

namespace velmora {
namespace {

/// A display without a window manager, where whatever is raised covers everything else.
class X11StackingTest : public testing::Test {
protected:
    ~X11StackingTest() override { xcb_disconnect(m_connection); }

    /// A visible window above all others; those with the same `x` cover each other.
    xcb_window_t window(bool bypassesTheManager = false, std::int16_t x = 0)
    {
        auto const id = xcb_generate_id(m_connection);
        std::uint32_t const bypasses = bypassesTheManager ? 1 : 0;
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, id, m_root, x, 0, 100, 100, 0,
            XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT,
            &bypasses);
        xcb_map_window(m_connection, id);
        xcb_flush(m_connection);
        return id;
    }

    void raise(xcb_window_t window)
    {
        std::uint32_t const above = XCB_STACK_MODE_ABOVE;
        xcb_configure_window(m_connection, window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
        xcb_flush(m_connection);
    }

    /// All windows of the display, bottom to top.
    [[nodiscard]] std::vector<xcb_window_t> order() const
    {
        std::unique_ptr<xcb_query_tree_reply_t, decltype(&std::free)> const tree(
            xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, m_root), nullptr),
            std::free);
        std::span const all(xcb_query_tree_children(tree.get()),
            static_cast<std::size_t>(xcb_query_tree_children_length(tree.get())));
        return {all.begin(), all.end()};
    }

    [[nodiscard]] bool above(xcb_window_t upper, xcb_window_t lower) const
    {
        auto const all = order();
        return std::ranges::find(all, upper) > std::ranges::find(all, lower);
    }

    PrivateDisplay m_display;
    xcb_connection_t* m_connection = xcb_connect(m_display.name(), nullptr);
    xcb_window_t m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
};

TEST_F(X11StackingTest, RisesAboveAManagedWindowThatIsRaisedOrShownLater)
{
    auto const earlier = window();
    auto const orb = window(true);
    X11Stacking stacking(m_display.name());
    stacking.keepAbove(orb);
    raise(earlier);
    EXPECT_TRUE(eventually([&] { return above(orb, earlier); }));
    auto const later = window();
    EXPECT_TRUE(eventually([&] { return above(orb, later); }));
}

TEST_F(X11StackingTest, StaysBelowMenusAndTheCoversThatLockAScreen)
{
    auto const orb = window(true);
    X11Stacking stacking(m_display.name());
    stacking.keepAbove(orb);
    auto const menu = window(true);
    raise(menu);
    // Another such window shows that what happened up to here has been seen.
    auto const witness = window(true, 300);
    X11Stacking second(m_display.name());
    second.keepAbove(witness);
    auto const elsewhere = window(false, 300);
    ASSERT_TRUE(eventually([&] { return above(witness, elsewhere); }));
    EXPECT_TRUE(above(menu, orb));
}

TEST_F(X11StackingTest, WindowsThatGoMeanwhileChangeNothing)
{
    auto const orb = window(true);
    X11Stacking stacking(m_display.name());
    stacking.keepAbove(orb);
    for (int i = 0; i < 20; ++i)
        xcb_destroy_window(m_connection, window());
    auto const managed = window();
    EXPECT_TRUE(eventually([&] { return above(orb, managed); }));
}

TEST_F(X11StackingTest, WithoutADisplayNothingHappens)
{
    X11Stacking stacking("no such display");
    stacking.keepAbove(1);
    SUCCEED();
}

} // namespace
} // namespace velmora
