#include "Velmora/platform/macos/PreferenceObject.h"
#include "Velmora/platform/macos/PreferencesDefaultsStore.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <map>
#include <string>
#include <vector>

namespace velmora {
namespace {

/// An object of one type, which must not be asked for a value of another.
class FakeObject final : public PreferenceObject {
public:
    enum class Type { text, boolean, integer, floatingPoint };

    FakeObject(Type type, double value)
        : m_type(type)
        , m_value(value)
    {
    }

    [[nodiscard]] bool isBoolean() const override { return m_type == Type::boolean; }
    [[nodiscard]] bool isNumber() const override
    {
        return m_type == Type::integer || m_type == Type::floatingPoint;
    }
    [[nodiscard]] bool isFloatingPoint() const override
    {
        EXPECT_TRUE(isNumber());
        return m_type == Type::floatingPoint;
    }
    [[nodiscard]] bool boolean() const override
    {
        EXPECT_EQ(m_type, Type::boolean);
        return m_value != 0;
    }
    [[nodiscard]] std::int64_t integer() const override
    {
        EXPECT_EQ(m_type, Type::integer);
        return static_cast<std::int64_t>(m_value);
    }
    [[nodiscard]] double number() const override
    {
        EXPECT_EQ(m_type, Type::floatingPoint);
        return m_value;
    }

private:
    Type m_type;
    double m_value;
};

TEST(PreferenceObject, ABooleanIsNoNumberAndAWholeNumberIsNoDouble)
{
    using Type = FakeObject::Type;
    EXPECT_EQ(defaultsValue(FakeObject(Type::boolean, 1)), DefaultsValue(true));
    EXPECT_EQ(defaultsValue(FakeObject(Type::integer, 15)), DefaultsValue(std::int64_t{15}));
    EXPECT_EQ(defaultsValue(FakeObject(Type::floatingPoint, 15)), DefaultsValue(15.0));
}

TEST(PreferenceObject, AnythingElseIsNotThere)
{
    EXPECT_EQ(defaultsValue(FakeObject(FakeObject::Type::text, 0)), std::nullopt);
}

class FakePreferences final : public Preferences {
public:
    [[nodiscard]] std::optional<DefaultsValue> read(std::string_view key) const override
    {
        auto const found = values.find(std::string(key));
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }
    void write(std::string_view key, DefaultsValue const& value) override
    {
        written.emplace_back(key);
        values.insert_or_assign(std::string(key), value);
    }
    void synchronise() override { ++synchronised; }

    std::map<std::string, DefaultsValue> values;
    std::vector<std::string> written;
    int synchronised = 0;
};

class PreferencesStore : public testing::Test {
protected:
    FakePreferences preferences;
    PreferencesDefaultsStore store{preferences};
};

TEST_F(PreferencesStore, ReadsEachValueAsItsOwnTypeOnly)
{
    preferences.values = {{"i", std::int64_t{15}}, {"b", true}, {"d", 0.5}};
    EXPECT_EQ(store.integer("i"), 15);
    EXPECT_EQ(store.boolean("b"), true);
    EXPECT_EQ(store.number("d"), 0.5);
    EXPECT_EQ(store.integer("b"), std::nullopt);
    EXPECT_EQ(store.integer("d"), std::nullopt);
    EXPECT_EQ(store.boolean("i"), std::nullopt);
    EXPECT_EQ(store.number("b"), std::nullopt);
}

TEST_F(PreferencesStore, WhatIsAbsentIsNotThere)
{
    EXPECT_EQ(store.integer("i"), std::nullopt);
    EXPECT_EQ(store.boolean("i"), std::nullopt);
    EXPECT_EQ(store.number("i"), std::nullopt);
}

TEST_F(PreferencesStore, AWholeNumberIsANumber)
{
    preferences.values = {{"i", std::int64_t{128}}};
    EXPECT_EQ(store.number("i"), 128.0);
}

TEST_F(PreferencesStore, ANumberThatIsNotFiniteIsNotThere)
{
    preferences.values = {{"nan", std::numeric_limits<double>::quiet_NaN()},
        {"inf", std::numeric_limits<double>::infinity()}};
    EXPECT_EQ(store.number("nan"), std::nullopt);
    EXPECT_EQ(store.number("inf"), std::nullopt);
}

TEST_F(PreferencesStore, WritesInTheGivenOrderAndReadsItBack)
{
    std::array const entries = {DefaultsEntry{"z", std::int64_t{1}}, DefaultsEntry{"a", false}};
    store.write(entries);
    EXPECT_EQ(preferences.written, (std::vector<std::string>{"z", "a"}));
    EXPECT_EQ(store.boolean("a"), false);
    EXPECT_EQ(preferences.synchronised, 0);
}

TEST_F(PreferencesStore, FlushingHasTheSystemSave)
{
    store.flush();
    EXPECT_EQ(preferences.synchronised, 1);
}

} // namespace
} // namespace velmora
