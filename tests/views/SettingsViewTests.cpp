#include "Velmora/views/SettingsButton.h"
#include "Velmora/views/SettingsChip.h"
#include "Velmora/views/SettingsSlider.h"
#include "Velmora/views/SettingsSwitch.h"
#include "Velmora/views/SettingsTimePicker.h"
#include "tests/views/FormDesk.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QLineEdit>
#include <QTest>

namespace velmora {
namespace {

std::vector<std::string> chosenChips(FormDesk const& desk)
{
    std::vector<std::string> chosen;
    for (auto const* chip : desk.form().findChildren<SettingsChip*>()) {
        if (chip->isChecked())
            chosen.push_back(chip->text().toStdString());
    }
    return chosen;
}

SettingsSlider& intervalSlider(FormDesk const& desk)
{
    return desk.control<SettingsSlider>("Minutes between reminders");
}

SettingsSlider& sizeSlider(FormDesk const& desk)
{
    return desk.control<SettingsSlider>("Size of the orb");
}

void click(QWidget& widget)
{
    QTest::mouseClick(&widget, Qt::LeftButton);
}

TEST(SettingsView, TheFormOffersTheSixUsualIntervalsInOrder)
{
    FormDesk desk;
    desk.open();
    std::vector<std::string> titles;
    for (auto const* chip : desk.form().findChildren<SettingsChip*>())
        titles.push_back(chip->text().toStdString());
    EXPECT_EQ(titles, (std::vector<std::string>{"5m", "10m", "15m", "20m", "30m", "45m"}));
}

TEST(SettingsView, TheChipOfTheIntervalIsHighlightedAndNoOther)
{
    FormDesk desk;
    desk.store("intervalMinutes", std::int64_t(20));
    desk.open();
    EXPECT_EQ(chosenChips(desk), std::vector<std::string>{"20m"});
    EXPECT_TRUE(desk.shows("20 min"));
}

TEST(SettingsView, AnIntervalBetweenTheChipsHighlightsNone)
{
    FormDesk desk;
    desk.open();
    desk.model().setIntervalMinutes(17);
    EXPECT_TRUE(chosenChips(desk).empty());
    EXPECT_TRUE(desk.shows("17 min"));
}

TEST(SettingsView, TheIntervalSliderRoundsToTheNearestMinute)
{
    FormDesk desk;
    desk.open();
    intervalSlider(desk).enter(7.6);
    EXPECT_EQ(desk.model().intervalMinutes(), 8);
    intervalSlider(desk).enter(7.4);
    EXPECT_EQ(desk.model().intervalMinutes(), 7);
}

TEST(SettingsView, AChipStartsTheCountdownOver)
{
    FormDesk desk;
    desk.open();
    desk.model().tick();
    desk.clock.instant += 300;
    desk.model().tick();
    ASSERT_EQ(desk.model().remainingSeconds(), 600);

    click(desk.control<SettingsChip>("20m"));
    EXPECT_EQ(desk.model().intervalMinutes(), 20);
    EXPECT_EQ(desk.model().remainingSeconds(), 1200);
}

TEST(SettingsView, TheChosenChipStartsTheCountdownOverAndStaysChosen)
{
    FormDesk desk;
    desk.open();
    desk.model().tick();
    desk.clock.instant += 300;
    desk.model().tick();

    click(desk.control<SettingsChip>("15m"));
    EXPECT_EQ(desk.model().remainingSeconds(), 900);
    EXPECT_EQ(chosenChips(desk), std::vector<std::string>{"15m"});
}

TEST(SettingsView, TheIntervalSliderKeepsTheCountdown)
{
    FormDesk desk;
    desk.open();
    desk.model().tick();
    desk.clock.instant += 300;
    desk.model().tick();

    intervalSlider(desk).enter(30);
    EXPECT_EQ(desk.model().intervalMinutes(), 30);
    EXPECT_EQ(desk.model().remainingSeconds(), 600);
}

TEST(SettingsView, AllDayDisablesThePickersAndShowsNoNote)
{
    FormDesk desk;
    desk.store("startMinutes", std::int64_t(1320));
    desk.store("endMinutes", std::int64_t(360));
    desk.open();
    EXPECT_FALSE(desk.control<SettingsTimePicker>("From").isEnabled());
    EXPECT_FALSE(desk.control<SettingsTimePicker>("To").isEnabled());
    EXPECT_FALSE(desk.shows("Overnight"));

    click(desk.control<SettingsSwitch>("All day"));
    EXPECT_FALSE(desk.model().allDay());
    EXPECT_TRUE(desk.control<SettingsTimePicker>("From").isEnabled());
    EXPECT_TRUE(desk.shows("Overnight — reminders run through midnight."));
}

TEST(SettingsView, HoursWithinADayAndEqualHoursShowNoNote)
{
    FormDesk desk;
    desk.store("allDay", false);
    desk.store("startMinutes", std::int64_t(540));
    desk.store("endMinutes", std::int64_t(1020));
    desk.open();
    EXPECT_FALSE(desk.shows("Overnight"));
    desk.model().setEndMinutes(540);
    EXPECT_FALSE(desk.shows("Overnight"));
    desk.model().setEndMinutes(539);
    EXPECT_TRUE(desk.shows("Overnight"));
}

TEST(SettingsView, APickersChangeReachesTheModel)
{
    FormDesk desk;
    desk.store("allDay", false);
    desk.open();
    auto& from = desk.control<SettingsTimePicker>("From");
    EXPECT_EQ(from.minutes(), 480);
    from.setSelectedSection(QDateTimeEdit::HourSection);
    QTest::keyClick(&from, Qt::Key_Up);
    EXPECT_EQ(desk.model().startMinutes(), 540);

    auto& to = desk.control<SettingsTimePicker>("To");
    to.setSelectedSection(QDateTimeEdit::MinuteSection);
    QTest::keyClick(&to, Qt::Key_Down);
    EXPECT_EQ(desk.model().endMinutes(), 1379);
}

TEST(SettingsView, APartOfATimeThatWasClickedIsReplacedByWhatIsTyped)
{
    FormDesk desk;
    desk.store("allDay", false);
    desk.open();
    auto& from = desk.control<SettingsTimePicker>("From");
    auto* line = from.findChild<QLineEdit*>();
    QTest::mouseClick(line, Qt::LeftButton, {}, QPoint(6, line->height() / 2));
    QTest::keyClicks(line, QStringLiteral("23"));
    EXPECT_EQ(desk.model().startMinutes(), 23 * 60);
}

TEST(SettingsView, AssistiveProgramsTurnTheSwitches)
{
    FormDesk desk;
    desk.open();
    auto& paused = desk.control<SettingsSwitch>("Pause reminders");
    auto* actions = QAccessible::queryAccessibleInterface(&paused)->actionInterface();
    actions->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(desk.model().paused());
}

TEST(SettingsView, AChangeFromElsewhereShowsInThePickersAndDoesNotComeBack)
{
    FormDesk desk;
    desk.store("allDay", false);
    desk.open();
    auto const saves = desk.saves();
    desk.model().setStartMinutes(615);
    EXPECT_EQ(desk.control<SettingsTimePicker>("From").minutes(), 615);
    EXPECT_EQ(desk.saves(), saves + 1);

    // The same minute of the day in another guise.
    desk.model().setStartMinutes(615 + 1440);
    EXPECT_EQ(desk.control<SettingsTimePicker>("From").minutes(), 615);
    EXPECT_EQ(desk.model().startMinutes(), 615 + 1440);
}

TEST(SettingsView, TurningTheChimeOffHidesItsVolumeAndThePreview)
{
    FormDesk desk;
    desk.open();
    EXPECT_TRUE(desk.control<SettingsSlider>("Chime volume").isVisible());
    EXPECT_TRUE(desk.control<SettingsButton>("Preview reminder").isVisible());
    click(desk.control<SettingsSwitch>("Gentle chime"));
    EXPECT_FALSE(desk.model().soundEnabled());
    EXPECT_FALSE(desk.control<SettingsSlider>("Chime volume").isVisible());
    EXPECT_FALSE(desk.control<SettingsButton>("Preview reminder").isVisible());
}

TEST(SettingsView, ThePreviewStartsAReminder)
{
    FormDesk desk;
    desk.open();
    click(desk.control<SettingsButton>("Preview reminder"));
    EXPECT_TRUE(desk.model().isReminding());
}

TEST(SettingsView, VelmoraNowStartsAReminder)
{
    FormDesk desk;
    desk.open();
    click(desk.control<SettingsButton>("Velmora now"));
    EXPECT_TRUE(desk.model().isReminding());
}

TEST(SettingsView, QuitAsksForTheEnd)
{
    FormDesk desk;
    desk.open();
    int asked = 0;
    QObject::connect(&desk.form(), &SettingsView::quitRequested, &desk.form(), [&] { ++asked; });
    click(desk.control<SettingsButton>("Quit"));
    EXPECT_EQ(asked, 1);
}

TEST(SettingsView, SizesAreShownWithoutTheirFraction)
{
    FormDesk desk;
    desk.open();
    EXPECT_TRUE(desk.shows("128 pt"));
    desk.model().setWidgetSize(5000);
    ASSERT_DOUBLE_EQ(desk.model().widgetSize(), 316.8);
    EXPECT_TRUE(desk.shows("316 pt"));
    EXPECT_DOUBLE_EQ(sizeSlider(desk).current(), 316.8);
}

TEST(SettingsView, TheSizeSliderReachesTheLargestSideOfTheDisplay)
{
    FormDesk desk;
    desk.open();
    sizeSlider(desk).setFocus();
    QTest::keyClick(&sizeSlider(desk), Qt::Key_End);
    EXPECT_DOUBLE_EQ(desk.model().widgetSize(), 316.8);
    QTest::keyClick(&sizeSlider(desk), Qt::Key_Home);
    EXPECT_DOUBLE_EQ(desk.model().widgetSize(), 72.0);
}

TEST(SettingsView, AResizeByHandMovesTheSizeSlider)
{
    FormDesk desk;
    desk.open();
    desk.model().applySize(201.5, std::nullopt);
    EXPECT_DOUBLE_EQ(sizeSlider(desk).current(), 201.5);
    EXPECT_TRUE(desk.shows("201 pt"));
}

TEST(SettingsView, ADisplayTooSmallForTheRangeDisablesTheSizeSlider)
{
    FormDesk desk;
    Rect const tiny = {.x = 0, .y = 0, .width = 300, .height = 200};
    desk.displays.displays.front().frames = {.frame = tiny, .visible = tiny};
    desk.open();
    EXPECT_FALSE(sizeSlider(desk).isEnabled());
    EXPECT_DOUBLE_EQ(sizeSlider(desk).current(), 66.0);
    EXPECT_TRUE(desk.shows("66 pt"));
}

TEST(SettingsView, ALargerDisplayAllowsALargerOrbWhenTheFormIsTold)
{
    FormDesk desk;
    desk.open();
    Rect const large = {.x = 0, .y = 0, .width = 3000, .height = 2000};
    desk.displays.displays.front().frames = {.frame = large, .visible = large};
    desk.form().displaysChanged();
    EXPECT_DOUBLE_EQ(sizeSlider(desk).scale().maximum, 660.0);
}

TEST(SettingsView, OpeningTheFormLeavesAnUncommonVolumeAlone)
{
    FormDesk desk;
    desk.store("soundVolume", 0.123456);
    desk.open();
    EXPECT_EQ(desk.model().soundVolume(), 0.123456);
    EXPECT_EQ(desk.saves(), 0U);
}

TEST(SettingsView, TheLoginNoteIsShownOnlyWhenThereIsOne)
{
    FormDesk desk;
    desk.open();
    EXPECT_FALSE(desk.shows("Allow Velmora"));
    desk.login.afterRegistering = LoginService::Status::requiresApproval;
    click(desk.control<SettingsSwitch>("Open at login"));
    EXPECT_TRUE(desk.model().openAtLogin());
    EXPECT_TRUE(desk.shows("Allow Velmora in System Settings"));
}

TEST(SettingsView, ThePauseFollowsTheModelAndTheModelThePause)
{
    FormDesk desk;
    desk.open();
    auto& paused = desk.control<SettingsSwitch>("Pause reminders");
    click(paused);
    EXPECT_TRUE(desk.model().paused());
    desk.model().togglePaused();
    EXPECT_FALSE(paused.isChecked());
}

TEST(SettingsView, TheSummaryOfAWholeDay)
{
    FormDesk desk;
    desk.store("intervalMinutes", std::int64_t(20));
    desk.open();
    EXPECT_EQ(desk.summary(),
        "Reminds you every 20 minutes, all day. Drag the orb to move it. Drag the corner to "
        "resize. Click it during a reminder when you're done.");
}

TEST(SettingsView, TheSummaryOfHoursNamesThemInTheUsersForm)
{
    FormDesk desk;
    desk.open();
    desk.model().setAllDay(false);
    desk.model().setStartMinutes(540);
    EXPECT_EQ(desk.summary(),
        "Reminds you every 15 minutes, from 09:00 to 22:00. Drag the orb to move it. Drag the "
        "corner to resize. Click it during a reminder when you're done.");
}

TEST(SettingsView, TheTabKeyGoesFromTopToBottomAndAround)
{
    FormDesk desk;
    desk.store("allDay", false);
    desk.open();
    auto* first = static_cast<QWidget*>(&intervalSlider(desk));
    first->setFocus(Qt::TabFocusReason);
    QStringList order;
    do {
        auto* focused = QApplication::focusWidget();
        auto* button = qobject_cast<QAbstractButton*>(focused);
        order.append(button ? button->text() : focused->accessibleName());
        QTest::keyClick(focused, Qt::Key_Tab);
    } while (QApplication::focusWidget() != first && order.size() < 50);
    EXPECT_EQ(order.join(QStringLiteral(", ")).toStdString(),
        "Minutes between reminders, 5m, 10m, 15m, 20m, 30m, 45m, All day, From, From, To, To, "
        "Gentle chime, Chime volume, Preview reminder, Size of the orb, Open at login, Pause "
        "reminders, Velmora now, Quit");
}

} // namespace
} // namespace velmora
