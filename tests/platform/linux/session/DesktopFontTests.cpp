#include "Velmora/platform/linux/session/DesktopFont.h"
#include "Velmora/platform/linux/session/XsettingsDocument.h"
#include "tests/platform/linux/session/XsettingsSample.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(FontWish, IsAFamilyAndASize)
{
    EXPECT_EQ(fontWish("Sans 10"), (FontWish{.family = "Sans", .points = 10}));
    EXPECT_EQ(fontWish("Noto Sans Display 10.5"),
        (FontWish{.family = "Noto Sans Display", .points = 10.5}));
    EXPECT_EQ(fontWish("Cantarell"), (FontWish{.family = "Cantarell"}));
}

TEST(FontWish, PassesOverTheWordsForTheStyle)
{
    EXPECT_EQ(
        fontWish("Cantarell Semi-Bold Italic 11"), (FontWish{.family = "Cantarell", .points = 11}));
    EXPECT_EQ(fontWish("Inter, Medium 11"), (FontWish{.family = "Inter", .points = 11}));
}

TEST(FontWish, IsAbsentWhereNoFamilyIsLeft)
{
    for (char const* written : {"", " ", "11", "Bold 11", ",", "Bold Italic"})
        EXPECT_EQ(fontWish(written), std::nullopt) << written;
}

TEST(FontWish, TakesNoNonsenseForASize)
{
    EXPECT_EQ(fontWish("Sans -3"), (FontWish{.family = "Sans -3"}));
    EXPECT_EQ(fontWish("Sans 1e9"), (FontWish{.family = "Sans 1e9"}));
    EXPECT_EQ(fontWish("Sans nan"), (FontWish{.family = "Sans nan"}));
    EXPECT_EQ(fontWish("Sans 10px"), (FontWish{.family = "Sans 10px"}));
}

TEST(Xsettings, ATextIsReadAndNothingElseTakenForOne)
{
    for (bool const bigEndian : {false, true}) {
        auto const bytes = XsettingsSample(bigEndian)
                               .colour("Some/Colour")
                               .integer("Xft/DPI", 98304)
                               .text("Gtk/FontName", "Cantarell 11")
                               .bytes();
        EXPECT_EQ(xsettingsText(bytes, "Gtk/FontName"), "Cantarell 11");
        EXPECT_EQ(xsettingsText(bytes, "Xft/DPI"), std::nullopt);
        EXPECT_EQ(xsettingsText(bytes, "Some/Colour"), std::nullopt);
        EXPECT_EQ(xsettingsText(bytes, "Gtk/Font"), std::nullopt);
        for (std::size_t length = 0; length < bytes.size(); ++length)
            EXPECT_EQ(xsettingsText(std::span(bytes).first(length), "Gtk/FontName"), std::nullopt);
    }
}

} // namespace
} // namespace velmora
