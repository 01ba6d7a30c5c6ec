#include "Velmora/views/SettingsLook.h"
#include "Velmora/views/SettingsSwitch.h"
#include "tests/views/FormDesk.h"
#include "tests/views/LongWords.h"

#include <gtest/gtest.h>

#include <QAbstractSpinBox>
#include <QFontInfo>
#include <QScreen>

#include <ostream>

namespace velmora {
namespace {

/// A language, and where its reading starts.
struct Reading {
    std::string name;
    Qt::LayoutDirection direction = Qt::LeftToRight;
    /// The catalogue of that language; empty for the drawn-out words.
    QString catalogue = {};
};

/// How the tests' list names it.
void PrintTo(Reading const& reading, std::ostream* stream)
{
    *stream << reading.name;
}

/// The form in another language, with every row to be seen.
class SettingsWords : public testing::TestWithParam<Reading> {
protected:
    void SetUp() override
    {
        if (!GetParam().catalogue.isEmpty()) {
            ASSERT_TRUE(m_catalogue.load(GetParam().catalogue));
            QApplication::installTranslator(&m_catalogue);
        } else {
            QApplication::installTranslator(&m_language);
        }
        QApplication::setLayoutDirection(GetParam().direction);
        m_desk.store("allDay", false);
        m_desk.store("startMinutes", std::int64_t(1320));
        m_desk.store("endMinutes", std::int64_t(360));
        m_desk.login.afterRegistering = LoginService::Status::requiresApproval;
        m_desk.open(QStringLiteral("h:mm AP"));
        m_desk.model().setOpenAtLogin(true);
        m_desk.model().setIntervalMinutes(45);
        auto& form = m_desk.form();
        form.resize(form.width(), form.layout()->totalHeightForWidth(form.width()));
        QApplication::processEvents();
    }

    void TearDown() override
    {
        QApplication::setLayoutDirection(Qt::LeftToRight);
        QApplication::removeTranslator(&m_language);
        QApplication::removeTranslator(&m_catalogue);
    }

    template <typename Widget>
    [[nodiscard]] std::vector<Widget*> visible() const
    {
        std::vector<Widget*> found;
        for (auto* each : m_desk.form().findChildren<Widget*>()) {
            if (each->isVisible())
                found.push_back(each);
        }
        return found;
    }

    [[nodiscard]] FormDesk const& desk() const { return m_desk; }

private:
    LongWords m_language;
    QTranslator m_catalogue;
    FormDesk m_desk;
};

/// The form in the drawn-out words, which are marked as such.
class SettingsMarkedWords : public SettingsWords { };

/// The room that a text needs in a column of this width.
QSize needed(QWidget const& widget, QString const& text, int width)
{
    QRect const column(0, 0, width, QWIDGETSIZE_MAX);
    return widget.fontMetrics().boundingRect(column, Qt::TextWordWrap, text).size();
}

TEST_P(SettingsMarkedWords, EveryTextComesFromTheTranslation)
{
    for (auto const* label : visible<QLabel>()) {
        // What the login item has to tell is translated where it is made.
        if (label->text().isEmpty() || label->text().startsWith(QStringLiteral("Allow Velmora")))
            continue;
        EXPECT_TRUE(label->text().startsWith(u'[')) << label->text().toStdString();
        EXPECT_TRUE(label->text().endsWith(u']')) << label->text().toStdString();
    }
    for (auto const* button : visible<QAbstractButton>()) {
        EXPECT_TRUE(button->text().startsWith(u'[')) << button->text().toStdString();
    }
    for (auto const* widget : visible<QWidget>()) {
        EXPECT_TRUE(widget->accessibleName().isEmpty() || widget->accessibleName().startsWith(u'['))
            << widget->accessibleName().toStdString();
    }
}

TEST_P(SettingsWords, NoWordsAreCut)
{
    for (auto const* label : visible<QLabel>()) {
        auto const room = label->contentsRect().size();
        auto const words
            = needed(*label, label->text(), label->wordWrap() ? room.width() : QWIDGETSIZE_MAX);
        EXPECT_LE(words.width(), room.width()) << label->text().toStdString();
        EXPECT_LE(words.height(), room.height()) << label->text().toStdString();
    }
    for (auto const* button : visible<QAbstractButton>()) {
        auto const* wrapping = qobject_cast<SettingsSwitch const*>(button);
        int const room = wrapping ? button->width() - 46 : button->width();
        auto const words = needed(*button, button->text(), wrapping ? room : QWIDGETSIZE_MAX);
        EXPECT_LE(words.width(), room) << button->text().toStdString();
        EXPECT_LE(words.height(), button->height()) << button->text().toStdString();
    }
    for (auto const* picker : visible<QAbstractSpinBox>()) {
        EXPECT_GE(picker->width(), picker->sizeHint().width());
        EXPECT_GE(picker->height(), picker->sizeHint().height());
    }
}

TEST_P(SettingsWords, NothingLeavesTheRoomItIsIn)
{
    for (auto const* widget : visible<QWidget>()) {
        EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry()))
            << widget->metaObject()->className() << " " << widget->accessibleName().toStdString();
    }
    EXPECT_EQ(desk().form().width(), 340);
}

TEST_P(SettingsWords, NothingLiesOverAnother)
{
    auto const all = visible<QWidget>();
    for (auto const* one : all) {
        for (auto const* other : all) {
            if (one < other && one->parentWidget() == other->parentWidget()) {
                EXPECT_FALSE(one->geometry().intersects(other->geometry()))
                    << one->metaObject()->className() << " " << other->metaObject()->className();
            }
        }
    }
}

TEST_P(SettingsWords, ALineStartsWhereReadingStarts)
{
    auto const orb = QCoreApplication::translate("velmora::SizeCard", "Orb");
    QLabel const* words = nullptr;
    QLabel const* value = nullptr;
    for (auto const* label : visible<QLabel>()) {
        if (label->text() == orb)
            words = label;
        if (label->text().contains(QStringLiteral("128")))
            value = label;
    }
    ASSERT_TRUE(words && value);
    EXPECT_EQ(words->x() < value->x(), GetParam().direction == Qt::LeftToRight);
}

TEST_P(SettingsWords, TextGrowsWithTheDesktopsTextSize)
{
    double const scale = QApplication::primaryScreen()->logicalDotsPerInchY() / 96.0;
    for (double const size : {10.0, 11.0, 12.0, 13.0, 15.0}) {
        EXPECT_NEAR(QFontInfo(SettingsLook::font(size)).pixelSize(), size * scale, 0.51);
    }
}

std::string nameOf(testing::TestParamInfo<Reading> const& each)
{
    return each.param.name;
}

auto const leftToRight = Reading{.name = "LeftToRight"};
auto const rightToLeft = Reading{.name = "RightToLeft", .direction = Qt::RightToLeft};
auto const german
    = Reading{.name = "German", .catalogue = QStringLiteral(VELMORA_CATALOGUES "/velmora_de.qm")};

INSTANTIATE_TEST_SUITE_P(
    Reading, SettingsWords, testing::Values(leftToRight, rightToLeft, german), nameOf);
INSTANTIATE_TEST_SUITE_P(
    Reading, SettingsMarkedWords, testing::Values(leftToRight, rightToLeft), nameOf);

} // namespace
} // namespace velmora
