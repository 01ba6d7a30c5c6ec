#include "Velmora/platform/linux/DefaultsDocument.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

namespace velmora {

namespace {

std::string nested(std::size_t depth, std::string_view open, std::string_view close)
{
    std::string text = "a = ";
    for (std::size_t i = 0; i < depth; ++i)
        text += open;
    text += '1';
    for (std::size_t i = 0; i < depth; ++i)
        text += close;
    return text + '\n';
}

std::string dotted(std::size_t dots)
{
    std::string key = "a";
    for (std::size_t i = 0; i < dots; ++i)
        key += ".a";
    return key;
}

/// Any bit pattern of a finite double as often as any other.
double anyFiniteDouble(std::mt19937_64& random)
{
    while (true) {
        auto const value = std::bit_cast<double>(random());
        if (std::isfinite(value))
            return value;
    }
}

DefaultsValue anyValue(std::mt19937_64& random)
{
    switch (random() % 4) {
    case 0:
        return std::bit_cast<std::int64_t>(random());
    case 1:
        return random() % 2 == 0;
    case 2:
        return static_cast<double>(random() % 1000);
    default:
        return anyFiniteDouble(random);
    }
}

} // namespace

TEST(DefaultsDocument, WritesValuesInTheOrderInWhichTheyWereFirstSet)
{
    DefaultsDocument document;
    document.set("second", std::int64_t{2});
    document.set("first", true);
    document.set("second", std::int64_t{3});
    EXPECT_EQ(document.text(), "second = 3\nfirst = true\n");
}

TEST(DefaultsDocument, WritesAWholeDoubleWithAFraction)
{
    DefaultsDocument document;
    document.set("widgetSize", 128.0);
    document.set("zero", -0.0);
    document.set("huge", 1e300);
    EXPECT_EQ(document.text(), "widgetSize = 128.0\nzero = -0.0\nhuge = 1e+300\n");
}

TEST(DefaultsDocument, ReadsItsOwnTextBackToTheBit)
{
    std::random_device device;
    auto const seed = device();
    std::mt19937_64 random{seed};
    for (int round = 0; round < 2000; ++round) {
        DefaultsDocument document;
        std::vector<DefaultsValue> values;
        for (int i = 0; i < 13; ++i) {
            values.push_back(anyValue(random));
            document.set("key" + std::to_string(i), values.back());
        }
        auto const again = parseDefaults(document.text());
        ASSERT_TRUE(again) << "seed " << seed << "\n" << document.text();
        for (std::size_t i = 0; i < values.size(); ++i) {
            auto const value = again->value("key" + std::to_string(i));
            ASSERT_EQ(value, values[i]) << "seed " << seed << "\n" << document.text();
            if (auto const* number = std::get_if<double>(&values[i])) {
                ASSERT_EQ(std::signbit(*number), std::signbit(std::get<double>(*value)));
            }
        }
    }
}

TEST(DefaultsDocument, ReadsTheExtremesBack)
{
    using Double = std::numeric_limits<double>;
    using Integer = std::numeric_limits<std::int64_t>;
    for (DefaultsValue const value : {DefaultsValue{Double::max()}, DefaultsValue{Double::min()},
             DefaultsValue{Double::denorm_min()}, DefaultsValue{Double::lowest()},
             DefaultsValue{1e22}, DefaultsValue{0.1}, DefaultsValue{Integer::min()},
             DefaultsValue{Integer::max()}}) {
        DefaultsDocument document;
        document.set("key", value);
        auto const again = parseDefaults(document.text());
        ASSERT_TRUE(again) << document.text();
        EXPECT_EQ(again->value("key"), value) << document.text();
    }
}

TEST(DefaultsDocument, WritesNumbersThatAreNotFiniteInAWayThatReads)
{
    DefaultsDocument document;
    document.set("a", std::numeric_limits<double>::infinity());
    document.set("b", -std::numeric_limits<double>::infinity());
    document.set("c", std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(document.text(), "a = inf\nb = -inf\nc = nan\n");
    EXPECT_TRUE(parseDefaults(document.text()));
}

TEST(DefaultsDocument, QuotesAKeyThatNeedsIt)
{
    for (std::string_view const key : {"", "a b", "a.b", "\"\\\n\x7F", "höhe"}) {
        DefaultsDocument document;
        document.set(key, true);
        auto const again = parseDefaults(document.text());
        ASSERT_TRUE(again) << document.text();
        EXPECT_EQ(again->value(key), DefaultsValue{true}) << document.text();
    }
}

TEST(DefaultsDocument, KeepsWhatItDoesNotKnowInItsOrderAfterTheValues)
{
    auto document = parseDefaults("# a remark\n"
                                  "zebra = \"stripes\\n\"\n"
                                  "paused = true\n"
                                  "apple = [1, 2.0, 'three']\n"
                                  "when = 1979-05-27T07:32:00Z\n"
                                  "mask = 0xFF\n"
                                  "dotted.key = 1\n"
                                  "inline = { a = 1 }\n"
                                  "[table]\n"
                                  "paused = 1.0\n"
                                  "inner.deeper = []\n"
                                  "[[list]]\n"
                                  "x = 1\n"
                                  "[[list]]\n"
                                  "y = { z = nan }\n");
    ASSERT_TRUE(document);
    document->set("intervalMinutes", std::int64_t{15});
    document->set("paused", false);
    EXPECT_EQ(document->text(),
        "intervalMinutes = 15\n"
        "paused = false\n"
        "zebra = \"stripes\\n\"\n"
        "apple = [1, 2.0, \"three\"]\n"
        "when = 1979-05-27T07:32:00Z\n"
        "mask = 255\n"
        "list = [{ x = 1 }, { y = { z = nan } }]\n"
        "\n[dotted]\n"
        "key = 1\n"
        "\n[inline]\n"
        "a = 1\n"
        "\n[table]\n"
        "paused = 1.0\n"
        "\n[table.inner]\n"
        "deeper = []\n");
    EXPECT_TRUE(parseDefaults(document->text()));
}

TEST(DefaultsDocument, GivesNoValueForOtherTypes)
{
    auto const document = parseDefaults("a = \"15\"\nb = [1]\nc = 1979-05-27\n[d]\ne = 1\n");
    ASSERT_TRUE(document);
    for (auto const* key : {"a", "b", "c", "d", "e"})
        EXPECT_EQ(document->value(key), std::nullopt) << key;
}

TEST(DefaultsDocument, ReplacesAValueOfAnotherTypeWhenItIsSet)
{
    auto document = parseDefaults("paused = \"yes\"\n[allDay]\nx = 1\n");
    ASSERT_TRUE(document);
    document->set("paused", true);
    document->set("allDay", false);
    EXPECT_EQ(document->text(), "paused = true\nallDay = false\n");
}

TEST(DefaultsDocument, IsEmptyForNoBytes)
{
    auto const document = parseDefaults("");
    ASSERT_TRUE(document);
    EXPECT_EQ(document->text(), "");
}

TEST(DefaultsDocument, RefusesWhatIsNotToml)
{
    for (std::string_view const bytes : {"paused", "= 1", "a = 1\na = 2\n", "a = 1 b = 2", "\xFF",
             "a = 99999999999999999999", "{}", "[", "a = \"", "a = \"\"\"x"})
        EXPECT_FALSE(parseDefaults(bytes)) << bytes;
    EXPECT_FALSE(parseDefaults(std::string(100, '\0')));
}

TEST(DefaultsDocument, RefusesTextsThatTripTheLibrarysOwnAssertions)
{
    EXPECT_FALSE(parseDefaults("when = 1979-05-27T)7:32:00\n"));
}

TEST(DefaultsDocument, KeepsNumbersThatAreNotFiniteInLists)
{
    auto const document = parseDefaults("a = [inf, -inf, nan, 0.0, -0.0]\n");
    ASSERT_TRUE(document);
    EXPECT_EQ(document->text(), "a = [inf, -inf, nan, 0.0, -0.0]\n");
}

TEST(DefaultsDocument, RefusesForeignLettersOutsideQuotesAndKeepsThemInside)
{
    for (std::string_view const letter :
        {"\u00F6", "\u0499", "\u1680", "\u3042", "\u3002", "\uFDFA", "\U0001F600"}) {
        auto const text = std::string{letter};
        EXPECT_FALSE(parseDefaults(text + " = 1\n")) << letter;
        EXPECT_FALSE(parseDefaults("a = " + text + '\n')) << letter;
        EXPECT_FALSE(parseDefaults("a = 1" + text + '\n')) << letter;
        auto const quoted = parseDefaults("# " + text + "\n\"" + text + "\" = '" + text + "'\n");
        ASSERT_TRUE(quoted) << letter;
        EXPECT_EQ(quoted->text(), '"' + text + "\" = \"" + text + "\"\n");
    }
}

TEST(DefaultsDocument, TakesValuesNestedAsDeepAsAnyoneWouldWriteThem)
{
    EXPECT_TRUE(parseDefaults(nested(10, "[", "]")));
    EXPECT_TRUE(parseDefaults(nested(10, "{a=", "}")));
    EXPECT_TRUE(parseDefaults(dotted(10) + " = 1\n"));
}

TEST(DefaultsDocument, RefusesNestingThatWouldExhaustTheStack)
{
    constexpr std::size_t many = 200'000;
    EXPECT_FALSE(parseDefaults(nested(many, "[", "]")));
    EXPECT_FALSE(parseDefaults(nested(many, "{a=", "}")));
    EXPECT_FALSE(parseDefaults(dotted(many) + " = 1\n"));
    EXPECT_FALSE(parseDefaults('[' + dotted(many) + "]\n"));
    EXPECT_FALSE(parseDefaults("[[" + dotted(many) + "]]\n"));
}

TEST(DefaultsDocument, RefusesWhatItCouldNotReadOnceWrittenAnew)
{
    EXPECT_TRUE(parseDefaults("a = [{ " + dotted(5) + " = 1 }]\n"));
    EXPECT_FALSE(parseDefaults("a = [{ " + dotted(20) + " = 1 }]\n"));
    EXPECT_TRUE(parseDefaults('[' + dotted(90) + "]\n" + dotted(90) + " = 1\n"));
    EXPECT_FALSE(parseDefaults('[' + dotted(150) + "]\n" + dotted(150) + " = 1\n"));
}

TEST(DefaultsDocument, SurvivesTheDeepestNestingThatIsNotRefusedOutright)
{
    std::string text = '[' + dotted(200) + "]\n" + dotted(200) + " = ";
    std::string end = "1";
    for (int i = 0; i < 7; ++i) {
        text += "[\n{" + dotted(199) + " = ";
        end += "}\n]";
    }
    // It is refused after all, because it would be the next time, written as one line.
    EXPECT_FALSE(parseDefaults(text + end + '\n'));
}

} // namespace velmora
