#include "Velmora/windows/SettingsPanel.h"

#include "Velmora/platform/DesktopWindow.h"
#include "Velmora/platform/toolkit/ToolkitDisplays.h"
#include "Velmora/views/SettingsButton.h"
#include "Velmora/views/SettingsSwitch.h"
#include "tests/model/Desk.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLayout>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QWindow>

namespace velmora {
namespace {

class CountingDesktop final : public DesktopWindow {
public:
    void joinEveryDesktop(std::uintptr_t /*window*/) override { ++joined; }

    int joined = 0;
};

/// The panel wired to the model as the program wires it, beside an orb on a display of the test's.
class SettingsPanelOnADesk : public testing::Test {
protected:
    void SetUp() override
    {
        m_around = {.orb = Rect{.x = 500, .y = 300, .width = 128, .height = 128},
            .visible = Rect{.x = 0, .y = 0, .width = 1000, .height = 1200}};
        m_panel = std::make_unique<SettingsPanel>(SettingsPanel::Seams{.model = m_model,
            .chime = m_desk.chime(),
            .desktop = m_desktop,
            .surroundings = [this] { return m_around; },
            .timeFormat = QStringLiteral("HH:mm")});
        m_model.onShowingSettings = [this](bool shown) { m_panel->setShown(shown); };
    }

    void open()
    {
        m_model.setShowingSettings(true);
        settle();
    }

    static void settle()
    {
        // What was put off to the next turn may put something off in its turn.
        for (int turn = 0; turn < 3; ++turn)
            QApplication::processEvents();
    }

    void giveDisplay(double height) { m_around.visible->height = height; }

    void press(QKeyCombination keys)
    {
        QTest::keyClick(m_panel.get(), keys.key(), keys.keyboardModifiers());
    }

    /// Where the panel with its frame is; the test platform has frames, too.
    [[nodiscard]] Rect frame() const
    {
        auto const r = m_panel->frameGeometry();
        return ToolkitDisplays::coordinates().fromToolkit(Rect{.x = static_cast<double>(r.x()),
            .y = static_cast<double>(r.y()),
            .width = static_cast<double>(r.width()),
            .height = static_cast<double>(r.height())});
    }

    template <typename Button>
    [[nodiscard]] Button& button(char const* words) const
    {
        for (auto* each : m_panel->findChildren<Button*>()) {
            if (each->text() == QString::fromUtf8(words))
                return *each;
        }
        throw std::logic_error(words);
    }

    [[nodiscard]] SettingsPanel& panel() const { return *m_panel; }
    [[nodiscard]] AppModel& model() const { return m_model; }
    [[nodiscard]] int joined() const { return m_desktop.joined; }
    [[nodiscard]] QScrollArea& scroll() const { return *m_panel->findChild<QScrollArea*>(); }

private:
    Desk m_desk;
    AppModel& m_model = m_desk.launch();
    CountingDesktop m_desktop;
    SettingsPlacement::Surroundings m_around;
    std::unique_ptr<SettingsPanel> m_panel;
};

TEST_F(SettingsPanelOnADesk, ItIsHiddenUntilItIsAskedFor)
{
    EXPECT_FALSE(panel().isVisible());
    open();
    EXPECT_TRUE(panel().isVisible());
    EXPECT_EQ(panel().windowTitle().toStdString(), "Velmora");
    EXPECT_EQ(joined(), 1);
}

TEST_F(SettingsPanelOnADesk, ItIsAsTallAsItsForm)
{
    open();
    EXPECT_EQ(panel().width(), 340);
    EXPECT_EQ(panel().height(), scroll().widget()->layout()->totalHeightForWidth(340));
    EXPECT_GT(panel().height(), 480);
    EXPECT_EQ(scroll().verticalScrollBar()->maximum(), 0);
}

TEST_F(SettingsPanelOnADesk, ItOpensLeftOfTheOrb)
{
    open();
    EXPECT_EQ(frame().maxX(), 500 - 16);
}

TEST_F(SettingsPanelOnADesk, EveryWayOfClosingHidesItAndClearsTheFlag)
{
    std::vector<std::function<void()>> const ways = {[this] { press(Qt::Key_Escape); },
        [this] { press(Qt::CTRL | Qt::Key_W); }, [this] { panel().close(); },
        [this] { panel().windowHandle()->close(); }, [this] { model().setShowingSettings(false); }};
    for (auto const& close : ways) {
        open();
        ASSERT_TRUE(panel().isVisible());
        close();
        settle();
        EXPECT_FALSE(panel().isVisible());
        EXPECT_FALSE(model().showingSettings());
    }
    EXPECT_EQ(joined(), 5);
}

TEST_F(SettingsPanelOnADesk, EscapeClosesItFromEveryControl)
{
    open();
    std::vector<QWidget*> controls;
    model().setAllDay(false);
    for (auto* each : panel().findChildren<QWidget*>()) {
        if (each->focusPolicy() & Qt::TabFocus && each->isVisible())
            controls.push_back(each);
    }
    EXPECT_GE(controls.size(), 16U);
    for (auto* control : controls) {
        open();
        control->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        EXPECT_FALSE(panel().isVisible()) << control->accessibleName().toStdString();
    }
}

TEST_F(SettingsPanelOnADesk, OpenedAgainItIsAsItWasLeft)
{
    giveDisplay(600);
    open();
    auto& paused = button<SettingsSwitch>("Pause reminders");
    paused.setFocus();
    scroll().verticalScrollBar()->setValue(50);
    press(Qt::Key_Escape);
    open();
    EXPECT_EQ(panel().focusWidget(), &paused);
    EXPECT_EQ(scroll().verticalScrollBar()->value(), 50);
}

TEST_F(SettingsPanelOnADesk, ControlAndCommaFitItAndPlaceItAnew)
{
    open();
    giveDisplay(600);
    panel().move(3, 3);
    press(Qt::CTRL | Qt::Key_Comma);
    settle();
    EXPECT_TRUE(panel().isVisible());
    EXPECT_TRUE(model().showingSettings());
    EXPECT_EQ(frame().height, 576);
    EXPECT_EQ(frame().maxX(), 500 - 16);
}

TEST_F(SettingsPanelOnADesk, ControlAndQAsksForTheEnd)
{
    int asked = 0;
    QObject::connect(&panel(), &SettingsPanel::quitRequested, &panel(), [&] { ++asked; });
    open();
    press(Qt::CTRL | Qt::Key_Q);
    EXPECT_EQ(asked, 1);
    QTest::mouseClick(&button<SettingsButton>("Quit"), Qt::LeftButton);
    EXPECT_EQ(asked, 2);
}

TEST_F(SettingsPanelOnADesk, OnALowDisplayItScrollsAndTheKeyboardReachesTheActions)
{
    giveDisplay(400);
    open();
    EXPECT_EQ(frame().height, 376);
    auto& quit = button<SettingsButton>("Quit");
    EXPECT_TRUE(quit.visibleRegion().isEmpty());

    // The scroll bar lies over the padding: the form keeps its width.
    EXPECT_EQ(scroll().widget()->width(), 340);
    EXPECT_EQ(scroll().horizontalScrollBar()->maximum(), 0);
    EXPECT_TRUE(scroll().verticalScrollBar()->isVisible());

    button<SettingsButton>("Velmora now").setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    settle();
    EXPECT_TRUE(quit.hasFocus());
    EXPECT_EQ(quit.visibleRegion().boundingRect(), quit.rect());
}

TEST_F(SettingsPanelOnADesk, BeforeAControlWasChosenTheKeysScrollTheForm)
{
    giveDisplay(500);
    open();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageDown);
    EXPECT_GT(scroll().verticalScrollBar()->value(), 0);
    EXPECT_EQ(model().intervalMinutes(), 15);
}

TEST_F(SettingsPanelOnADesk, ItFollowsTheRowsThatComeAndGo)
{
    open();
    int const before = panel().height();
    auto const top = panel().y();
    model().setSoundEnabled(false);
    settle();
    EXPECT_LT(panel().height(), before - 40);
    EXPECT_EQ(panel().y(), top);
    model().setSoundEnabled(true);
    settle();
    EXPECT_EQ(panel().height(), before);
    EXPECT_EQ(panel().y(), top);
}

TEST_F(SettingsPanelOnADesk, GrowingItDoesNotLeaveTheDisplayBelow)
{
    model().setSoundEnabled(false);
    open();
    auto const onTheBottom = frame();
    panel().move(panel().x(),
        static_cast<int>(
            ToolkitDisplays::coordinates()
                .toToolkit(Rect{.x = 0, .y = 12, .width = 1, .height = onTheBottom.height})
                .y));
    ASSERT_EQ(frame().y, 12);
    model().setSoundEnabled(true);
    settle();
    EXPECT_GT(frame().height, onTheBottom.height);
    EXPECT_EQ(frame().y, 12);
}

TEST_F(SettingsPanelOnADesk, ADisplayThatChangesLeavesAPanelThatIsWholeWhereItIs)
{
    giveDisplay(600);
    open();
    panel().move(30, 40);
    panel().displaysChanged();
    EXPECT_EQ(panel().pos(), QPoint(30, 40));

    panel().move(30, QApplication::primaryScreen()->geometry().bottom() - 100);
    panel().displaysChanged();
    EXPECT_EQ(frame().maxX(), 500 - 16);
    EXPECT_GE(frame().minY(), 0);
}

TEST_F(SettingsPanelOnADesk, ADarkDesktopDoesNotDarkenIt)
{
    open();
    auto const light = panel().grab().toImage();
    auto const usual = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(0x20, 0x20, 0x20)));
    settle();
    auto const onADarkDesktop = panel().grab().toImage();
    QApplication::setPalette(usual);
    EXPECT_TRUE(light == onADarkDesktop);
}

} // namespace
} // namespace velmora
