#include "Velmora/platform/linux/TomlDefaultsStore.h"

#include "tests/fakes/TemporaryFolder.h"
#include "tests/platform/ChildProcess.h"
#include "tests/platform/FilesOnDisk.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <limits>

namespace velmora {

namespace {

constexpr std::string_view everyKey = "intervalMinutes = 20\n"
                                      "startMinutes = 480\n"
                                      "endMinutes = 1320\n"
                                      "allDay = true\n"
                                      "soundEnabled = true\n"
                                      "soundVolume = 0.55\n"
                                      "paused = false\n"
                                      "openAtLogin = false\n"
                                      "widgetSize = 128.0\n"
                                      "widgetOriginX = 0.0\n"
                                      "widgetOriginY = -12.5\n"
                                      "hasSavedOrigin = true\n"
                                      "heldRemaining = 899.9999999999999\n";

std::array<DefaultsEntry, 13> everyEntry(std::int64_t interval = 20)
{
    return {{
        {"intervalMinutes", interval},
        {"startMinutes", std::int64_t{480}},
        {"endMinutes", std::int64_t{1320}},
        {"allDay", true},
        {"soundEnabled", true},
        {"soundVolume", 0.55},
        {"paused", false},
        {"openAtLogin", false},
        {"widgetSize", 128.0},
        {"widgetOriginX", 0.0},
        {"widgetOriginY", -12.5},
        {"hasSavedOrigin", true},
        {"heldRemaining", 899.9999999999999},
    }};
}

class TomlDefaultsStoreTest : public testing::Test {
protected:
    TemporaryFolder m_temporary;
    std::filesystem::path m_folder = m_temporary.path() / "com.local.velmora";
    std::filesystem::path m_file = m_folder / "defaults.toml";
    std::filesystem::path m_aside = m_folder / "defaults.toml.unreadable-1";
};

} // namespace

TEST_F(TomlDefaultsStoreTest, IsEmptyWithoutAFileAndMakesNoneByItself)
{
    {
        TomlDefaultsStore store{m_file};
        EXPECT_EQ(store.integer("intervalMinutes"), std::nullopt);
        EXPECT_EQ(store.boolean("paused"), std::nullopt);
        EXPECT_EQ(store.number("widgetSize"), std::nullopt);
        store.flush();
    }
    EXPECT_FALSE(std::filesystem::exists(m_folder));
}

TEST_F(TomlDefaultsStoreTest, WritesTheKeysAtTheTopInTheirOrder)
{
    TomlDefaultsStore store{m_file};
    store.write(everyEntry());
    store.flush();
    EXPECT_EQ(bytesOf(m_file), everyKey);
}

TEST_F(TomlDefaultsStoreTest, GivesWhatWasWrittenAtOnceAndAfterARestart)
{
    {
        TomlDefaultsStore store{m_file};
        store.write(everyEntry());
        EXPECT_EQ(store.integer("intervalMinutes"), 20);
    }
    TomlDefaultsStore const store{m_file};
    EXPECT_EQ(store.integer("intervalMinutes"), 20);
    EXPECT_EQ(store.boolean("hasSavedOrigin"), true);
    EXPECT_EQ(store.number("widgetOriginY"), -12.5);
    EXPECT_EQ(store.number("heldRemaining"), 899.9999999999999);
}

TEST_F(TomlDefaultsStoreTest, TakesAWholeNumberForADoubleButNothingElseForAnother)
{
    std::filesystem::create_directory(m_folder);
    putBytes(m_file,
        "whole = 200\nfraction = 2.0\nflag = true\ntext = '1'\nlist = [1]\nbig = "
        "9223372036854775807\n"
        "[table]\n");
    TomlDefaultsStore const store{m_file};
    EXPECT_EQ(store.number("whole"), 200.0);
    EXPECT_EQ(store.integer("whole"), 200);
    EXPECT_EQ(store.integer("big"), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(store.boolean("whole"), std::nullopt);
    EXPECT_EQ(store.integer("fraction"), std::nullopt);
    EXPECT_EQ(store.number("flag"), std::nullopt);
    EXPECT_EQ(store.integer("flag"), std::nullopt);
    for (auto const* key : {"text", "list", "table", "absent"}) {
        EXPECT_EQ(store.number(key), std::nullopt) << key;
        EXPECT_EQ(store.integer(key), std::nullopt) << key;
        EXPECT_EQ(store.boolean(key), std::nullopt) << key;
    }
}

TEST_F(TomlDefaultsStoreTest, GivesNoNumberThatIsNotFinite)
{
    std::filesystem::create_directory(m_folder);
    putBytes(m_file, "a = nan\nb = inf\nc = -inf\n");
    TomlDefaultsStore store{m_file};
    for (auto const* key : {"a", "b", "c"})
        EXPECT_EQ(store.number(key), std::nullopt) << key;
    std::array<DefaultsEntry, 1> const entry{{{"d", std::numeric_limits<double>::quiet_NaN()}}};
    store.write(entry);
    EXPECT_EQ(store.number("d"), std::nullopt);
}

TEST_F(TomlDefaultsStoreTest, KeepsUnknownKeysAndTablesBelowItsOwn)
{
    std::filesystem::create_directory(m_folder);
    putBytes(m_file, "future = \"yes\"\nintervalMinutes = 5\n[later]\nx = 1.0\n");
    TomlDefaultsStore store{m_file};
    store.write(everyEntry());
    store.flush();
    EXPECT_EQ(bytesOf(m_file), std::string{everyKey} + "future = \"yes\"\n\n[later]\nx = 1.0\n");
}

TEST_F(TomlDefaultsStoreTest, SavesSoonWithoutBeingFlushed)
{
    TomlDefaultsStore store{m_file};
    store.write(everyEntry());
    while (bytesOf(m_file) != everyKey)
        std::this_thread::yield();
    SUCCEED();
}

TEST_F(TomlDefaultsStoreTest, WritesAtMostOncePerQuarterOfASecondDuringADrag)
{
    TomlDefaultsStore store{m_file};
    auto const start = std::chrono::steady_clock::now();
    int saves = 0;
    std::int64_t interval = 0;
    FileIdentity last;
    while (saves < 3) {
        store.write(everyEntry(++interval));
        struct stat status = {};
        if (::stat(m_file.c_str(), &status) != 0)
            continue;
        // The rename that brings a file to its place changes it once more; its bytes stay.
        auto const seen = FileIdentity::of(status);
        bool const isNew = seen.inode != last.inode || seen.modifiedSeconds != last.modifiedSeconds
            || seen.modifiedNanoseconds != last.modifiedNanoseconds;
        saves += isNew ? 1 : 0;
        last = seen;
    }
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds{500});
}

TEST_F(TomlDefaultsStoreTest, DoesNotTouchAFileThatHoldsTheSameAlready)
{
    {
        TomlDefaultsStore store{m_file};
        store.write(everyEntry());
    }
    struct stat before = {};
    ::stat(m_file.c_str(), &before);
    {
        TomlDefaultsStore store{m_file};
        store.write(everyEntry());
    }
    struct stat after = {};
    ::stat(m_file.c_str(), &after);
    EXPECT_EQ(FileIdentity::of(before), FileIdentity::of(after));
}

TEST_F(TomlDefaultsStoreTest, SavesLaterWhatCouldNotBeSavedAndLosesNothingInMemory)
{
    putBytes(m_folder, "a file where the folder should be");
    TomlDefaultsStore store{m_file};
    store.write(everyEntry());
    store.flush();
    EXPECT_EQ(store.integer("intervalMinutes"), 20);
    std::filesystem::remove(m_folder);
    store.flush();
    EXPECT_EQ(bytesOf(m_file), everyKey);
}

TEST_F(TomlDefaultsStoreTest, LivesInMemoryWithoutAPath)
{
    TomlDefaultsStore store{{}};
    store.write(everyEntry());
    store.flush();
    EXPECT_EQ(store.integer("intervalMinutes"), 20);
}

TEST_F(TomlDefaultsStoreTest, LoadsItsFileTruncatedAtEveryByteAndKeepsWhatItCouldNotRead)
{
    std::filesystem::create_directory(m_folder);
    for (std::size_t length = 0; length <= everyKey.size(); ++length) {
        auto const part = everyKey.substr(0, length);
        putBytes(m_file, part);
        bool const understood = parseDefaults(part).has_value();
        {
            TomlDefaultsStore store{m_file};
            auto const interval = store.integer("intervalMinutes");
            // Only the very number that was cut may have become another one.
            EXPECT_TRUE(length <= everyKey.find('\n') || interval == 20 || !understood) << length;
            store.write(everyEntry(30));
        }
        EXPECT_EQ(TomlDefaultsStore{m_file}.integer("intervalMinutes"), 30) << length;
        EXPECT_EQ(std::filesystem::exists(m_aside), !understood) << length;
        EXPECT_EQ(bytesOf(m_aside), understood ? "" : part) << length;
        std::filesystem::remove(m_aside);
    }
}

TEST_F(TomlDefaultsStoreTest, SetsAsideAFileThatWouldBeTooLargeToReadOnceWrittenAnew)
{
    std::filesystem::create_directory(m_folder);
    std::string list = "a=[";
    while (list.size() < SettingsFile::sizeLimit - 10)
        list += "1,";
    list += "]\n";
    putBytes(m_file, list);
    {
        TomlDefaultsStore store{m_file};
        store.write(everyEntry());
    }
    EXPECT_EQ(bytesOf(m_file), everyKey);
    EXPECT_EQ(bytesOf(m_aside), list);
}

TEST_F(TomlDefaultsStoreTest, RenamesNothingJustForReading)
{
    std::filesystem::create_directory(m_folder);
    putBytes(m_file, "not toml");
    {
        TomlDefaultsStore store{m_file};
        store.flush();
    }
    EXPECT_EQ(bytesOf(m_file), "not toml");
    EXPECT_EQ(namesIn(m_folder), std::vector<std::string>{"defaults.toml"});
}

TEST_F(TomlDefaultsStoreTest, WorksBelowAPathOfSpacesQuotesNewlinesAndForeignLetters)
{
    auto const file = m_temporary.path() / "a b'\"\n\tü字" / "defaults.toml";
    {
        TomlDefaultsStore store{file};
        store.write(everyEntry());
    }
    EXPECT_EQ(TomlDefaultsStore{file}.integer("intervalMinutes"), 20);
}

TEST(DefaultsFile, HasAFolderOfItsOwnBelowAnAbsoluteConfigurationFolder)
{
    EXPECT_EQ(defaultsFile("/home/a/.config"), "/home/a/.config/com.local.velmora/defaults.toml");
    EXPECT_TRUE(defaultsFile(".config").empty());
    EXPECT_TRUE(defaultsFile({}).empty());
}

} // namespace velmora
