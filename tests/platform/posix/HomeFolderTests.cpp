#include "Velmora/platform/posix/HomeFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

#include <pwd.h>
#include <unistd.h>

namespace velmora {
namespace {

/// Sets an environment variable, or takes it away, for the length of a test.
class Variable {
public:
    Variable(char const* name, std::optional<std::string> const& value)
        : m_name(name)
    {
        if (char const* const old = std::getenv(name))
            m_old = old;
        set(value);
    }
    Variable(Variable const&) = delete;
    Variable& operator=(Variable const&) = delete;
    ~Variable() { set(m_old); }

private:
    void set(std::optional<std::string> const& value)
    {
        if (value)
            setenv(m_name, value->c_str(), 1);
        else
            unsetenv(m_name);
    }

    char const* m_name;
    std::optional<std::string> m_old;
};

TEST(HomeFolder, IsTheOneOfTheEnvironment)
{
    Variable const home("HOME", "/somewhere");
    EXPECT_EQ(homeFolder(), "/somewhere");
}

TEST(HomeFolder, IsTheUserDatabasesWhereTheEnvironmentHasNoAbsoluteOne)
{
    std::string const entry = getpwuid(getuid())->pw_dir;
    for (auto const& value : {std::optional<std::string>(), std::optional<std::string>(""),
             std::optional<std::string>("relative/home")}) {
        Variable const home("HOME", value);
        EXPECT_EQ(homeFolder(), entry);
    }
}

TEST(HomeFolder, TheConfigFolderIsInItUnlessTheEnvironmentSaysOtherwise)
{
    {
        Variable const config("XDG_CONFIG_HOME", std::nullopt);
        EXPECT_EQ(configFolder("/home/me"), "/home/me/.config");
    }
    {
        Variable const config("XDG_CONFIG_HOME", "relative");
        EXPECT_EQ(configFolder("/home/me"), "/home/me/.config");
    }
    Variable const config("XDG_CONFIG_HOME", "/config");
    EXPECT_EQ(configFolder("/home/me"), "/config");
}

} // namespace
} // namespace velmora
