#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <map>

namespace velmora {
namespace {

/// One text of a catalogue: what it says in English, and in every plural form of its language.
struct Message {
    QString source;
    bool finished = true;
    QStringList translations;
};

/// Every text by its context, its English words and the remark that tells it from its like.
using Messages = std::map<QString, Message>;

void readTranslation(QXmlStreamReader& xml, Message& message)
{
    message.finished = !xml.attributes().hasAttribute(QStringLiteral("type"));
    QString plain;
    while (!xml.atEnd() && !(xml.isEndElement() && xml.name() == QStringLiteral("translation"))) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QStringLiteral("numerusform"))
            message.translations.append(xml.readElementText());
        else if (xml.isCharacters())
            plain += xml.text();
    }
    if (message.translations.empty())
        message.translations.append(plain);
}

Messages read(QString const& path)
{
    Messages messages;
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    QXmlStreamReader xml(&file);
    QString context;
    QString remark;
    Message message;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QStringLiteral("name")) {
            context = xml.readElementText();
        } else if (xml.isStartElement() && xml.name() == QStringLiteral("source")) {
            message.source = xml.readElementText();
        } else if (xml.isStartElement() && xml.name() == QStringLiteral("comment")) {
            remark = xml.readElementText();
        } else if (xml.isStartElement() && xml.name() == QStringLiteral("translation")) {
            readTranslation(xml, message);
        } else if (xml.isEndElement() && xml.name() == QStringLiteral("message")) {
            messages[context + u'/' + message.source + u'/' + remark] = message;
            message = {};
            remark.clear();
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return messages;
}

/// The places for numbers and times in a text, sorted.
QStringList placeholders(QString const& text)
{
    static QRegularExpression const placeholder(QStringLiteral("%L?[0-9n]"));
    QStringList found;
    auto matches = placeholder.globalMatch(text);
    while (matches.hasNext())
        found.append(matches.next().captured());
    found.sort();
    return found;
}

/// A committed catalogue.
class Catalogue : public testing::TestWithParam<std::string> {
protected:
    [[nodiscard]] static QString path()
    {
        return QStringLiteral(VELMORA_SOURCE "/translations/") + QString::fromStdString(GetParam());
    }
};

TEST_P(Catalogue, HoldsExactlyTheTextsOfTheCode)
{
    auto const wanted = read(QStringLiteral(VELMORA_BUILD "/translations/template.ts"));
    auto const present = read(path());
    ASSERT_GT(wanted.size(), 40U);
    for (auto const& [text, message] : wanted) {
        EXPECT_TRUE(present.contains(text)) << "missing: " << text.toStdString();
    }
    for (auto const& [text, message] : present) {
        EXPECT_TRUE(wanted.contains(text)) << "no longer in the code: " << text.toStdString();
    }
}

TEST_P(Catalogue, LeavesNoTextUntranslated)
{
    for (auto const& [text, message] : read(path())) {
        EXPECT_TRUE(message.finished) << text.toStdString();
        for (auto const& words : message.translations) {
            EXPECT_FALSE(words.trimmed().isEmpty()) << text.toStdString();
        }
    }
}

TEST_P(Catalogue, KeepsEveryPlaceForANumberOrATime)
{
    for (auto const& [text, message] : read(path())) {
        for (auto const& words : message.translations) {
            EXPECT_EQ(placeholders(words), placeholders(message.source)) << words.toStdString();
        }
    }
}

TEST_P(Catalogue, SaysInItsHeaderWhoHasReadIt)
{
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    auto const header = file.read(300);
    EXPECT_TRUE(header.contains("<!-- Native readers who have looked at this catalogue: "));
}

std::vector<std::string> committed()
{
    std::vector<std::string> names;
    QDir const folder(QStringLiteral(VELMORA_SOURCE "/translations"));
    for (auto const& name : folder.entryList({QStringLiteral("*.ts")}))
        names.push_back(name.toStdString());
    return names;
}

INSTANTIATE_TEST_SUITE_P(Languages, Catalogue, testing::ValuesIn(committed()),
    [](auto const& each) { return each.param.substr(0, each.param.find('.')); });

} // namespace
} // namespace velmora
