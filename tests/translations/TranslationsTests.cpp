#include "Velmora/platform/posix/InstalledResources.h"
#include "Velmora/shell/Translations.h"

#include <gtest/gtest.h>

#include <QApplication>

namespace velmora {
namespace {

/// The catalogues of this build.
InstalledResources built()
{
    return InstalledResources(VELMORA_BUILD "/velmora");
}

std::string chosen(QStringList const& languages)
{
    return Translations(built(), languages).language().toStdString();
}

QString settings()
{
    return QCoreApplication::translate("velmora::StatusItem", "Settings…");
}

TEST(Translations, SpeaksTheUsersLanguageAndFallsSilentWithItsEnd)
{
    {
        Translations const german(built(), {QStringLiteral("de-AT"), QStringLiteral("de")});
        EXPECT_EQ(german.language(), QStringLiteral("de"));
        EXPECT_EQ(settings(), QStringLiteral("Einstellungen …"));
    }
    EXPECT_EQ(settings(), QStringLiteral("Settings…"));
}

TEST(Translations, TakesTheDearestLanguageThatThereIs)
{
    EXPECT_EQ(chosen({QStringLiteral("tlh"), QStringLiteral("de-Latn-CH")}), "de");
    EXPECT_EQ(chosen({QStringLiteral("tlh")}), "");
    EXPECT_EQ(chosen({}), "");
}

TEST(Translations, NeverPassesOverEnglish)
{
    EXPECT_EQ(chosen({QStringLiteral("en-GB"), QStringLiteral("de")}), "");
    EXPECT_EQ(chosen({QStringLiteral("C"), QStringLiteral("de")}), "");
    EXPECT_EQ(chosen({QStringLiteral("en-XA"), QStringLiteral("de")}), "en_XA");
}

TEST(Translations, ALanguageNameLeadsToNoFileOfAnotherFolder)
{
    EXPECT_EQ(chosen({QStringLiteral("../velmora"), QString(), QStringLiteral("-")}), "");
}

TEST(Translations, ReadsFromTheRightWhereTheLanguageDoes)
{
    {
        Translations const mirrored(built(), {QStringLiteral("ar-XB")});
        EXPECT_EQ(QApplication::layoutDirection(), Qt::RightToLeft);
    }
    EXPECT_EQ(QApplication::layoutDirection(), Qt::LeftToRight);
}

TEST(Translations, WithoutACatalogueTheWordsAreTheEnginesAndTheServicesOwn)
{
    auto const line = Translations::statusPhrases();
    StatusPhrases const own;
    EXPECT_EQ(line.reminding, own.reminding);
    EXPECT_EQ(line.paused, own.paused);
    EXPECT_EQ(line.nextInMinutes, own.nextInMinutes);
    EXPECT_EQ(line.nextInSeconds, own.nextInSeconds);
    EXPECT_EQ(line.restingUntil, own.restingUntil);

    auto const note = Translations::loginPhrases();
    LoginPhrases const ownNotes;
    EXPECT_EQ(note.allow, ownNotes.allow);
    EXPECT_EQ(note.thisCopyOnly, ownNotes.thisCopyOnly);
    EXPECT_EQ(note.failed, ownNotes.failed);
}

TEST(Translations, TheStatusLineIsSaidInTheUsersLanguage)
{
    Translations const german(built(), {QStringLiteral("de")});
    auto const phrases = Translations::statusPhrases();
    EXPECT_EQ(StatusText::line({.active = true, .seconds = 900}, phrases), "Noch 15 min");
    EXPECT_EQ(StatusText::line({.resumeAt = "08:00"}, phrases), "Ruht bis 08:00");
    EXPECT_TRUE(Translations::loginPhrases().failed.starts_with("Das Öffnen"));
}

} // namespace
} // namespace velmora
