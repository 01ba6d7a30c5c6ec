#include "Velmora/shell/Translations.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>

namespace velmora {

namespace {

/// `de-Latn-AT` as `de_Latn_AT`, `de_Latn`, `de`.
QStringList fromNarrowToWide(QString language)
{
    QStringList names;
    language.replace(u'-', u'_');
    while (!language.isEmpty()) {
        names.append(language);
        language.truncate(qMax(language.lastIndexOf(u'_'), qsizetype(0)));
    }
    return names;
}

/// Whether the code's own words are in this language.
bool isEnglish(QString const& name)
{
    return name == QStringLiteral("en") || name == QStringLiteral("C");
}

std::string words(char const* context, char const* source)
{
    return QCoreApplication::translate(context, source).toStdString();
}

} // namespace

Translations::Translations(Resources const& resources, QStringList const& languages)
{
    for (auto const& language : languages) {
        for (auto const& name : fromNarrowToWide(language)) {
            if (isEnglish(name) || use(resources, name))
                return;
        }
    }
}

Translations::~Translations()
{
    if (!m_language.isEmpty())
        QApplication::setLayoutDirection(Qt::LeftToRight);
}

bool Translations::use(Resources const& resources, QString const& language)
{
    auto const name = QStringLiteral("translations/velmora_") + language;
    auto const file = resources.find(name.toStdString(), "qm");
    if (!file || !m_words.load(QString::fromStdString(file->string())))
        return false;
    m_language = language;
    QLocale const locale(language);
    if (m_toolkitWords.load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
            QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&m_toolkitWords);
    // The program's own come last, because what is installed last is asked first.
    QCoreApplication::installTranslator(&m_words);
    QApplication::setLayoutDirection(locale.textDirection());
    return true;
}

StatusPhrases Translations::statusPhrases()
{
    constexpr auto context = "velmora::StatusPhrases";
    return {.reminding = words(context, QT_TRANSLATE_NOOP("velmora::StatusPhrases", "Velmora")),
        .paused = words(context, QT_TRANSLATE_NOOP("velmora::StatusPhrases", "Paused")),
        .nextInMinutes = words(context, QT_TRANSLATE_NOOP("velmora::StatusPhrases", "Next in %1m")),
        .nextInSeconds = words(context, QT_TRANSLATE_NOOP("velmora::StatusPhrases", "Next in %1s")),
        .restingUntil
        = words(context, QT_TRANSLATE_NOOP("velmora::StatusPhrases", "Resting until %1"))};
}

LoginPhrases Translations::loginPhrases()
{
    constexpr auto context = "velmora::LoginPhrases";
    return {.allow = words(context,
                QT_TRANSLATE_NOOP("velmora::LoginPhrases",
                    "Allow Velmora in System Settings → General → Login Items.")),
        .thisCopyOnly = words(context,
            QT_TRANSLATE_NOOP(
                "velmora::LoginPhrases", "Open at login is set for this copy of the app.")),
        .failed = words(context,
            QT_TRANSLATE_NOOP("velmora::LoginPhrases",
                "Couldn't turn on open at login. Move Velmora into Applications and try again."))};
}

} // namespace velmora
