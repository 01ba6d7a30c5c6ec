#include "Velmora/windows/SettingsPanel.h"

#include "Velmora/model/AppModel.h"
#include "Velmora/platform/DesktopWindow.h"
#include "Velmora/platform/toolkit/ToolkitDisplays.h"
#include "Velmora/views/SettingsLook.h"
#include "Velmora/views/SettingsStyle.h"
#include "Velmora/views/SettingsView.h"

#include <QAccessibleWidget>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QLayout>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>
#include <cmath>
#include <utility>

namespace velmora {

namespace {

constexpr int panelWidth = static_cast<int>(SettingsPlacement::width);

Rect desktopRect(QRect const& r)
{
    return {.x = static_cast<double>(r.x()),
        .y = static_cast<double>(r.y()),
        .width = static_cast<double>(r.width()),
        .height = static_cast<double>(r.height())};
}

QAccessibleInterface* interfaceFor(QString const& /*className*/, QObject* object)
{
    auto* panel = qobject_cast<SettingsPanel*>(object);
    return panel ? new QAccessibleWidget(panel, QAccessible::Dialog) : nullptr;
}

int verticalSum(QMargins const& margins)
{
    return margins.top() + margins.bottom();
}

} // namespace

SettingsPanel::SettingsPanel(Seams seams)
    : QWidget(nullptr,
        Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint
            | Qt::WindowStaysOnTopHint)
    , m_seams(std::move(seams))
    , m_view(new SettingsView(m_seams.model, m_seams.chime, m_seams.timeFormat, this))
    , m_scroll(new QScrollArea(this))
{
    QAccessible::installFactory(interfaceFor);
    setWindowTitle(QStringLiteral("Velmora"));
    setPalette(SettingsLook::palette());
    // The program lives on in the orb and in its status item.
    setAttribute(Qt::WA_QuitOnClose, false);

    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setWidgetResizable(true);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_scroll->setAccessibleName(tr("Settings"));
    SettingsStyle::apply(*m_scroll->verticalScrollBar());
    // It lies over the form and does not fill its rectangle.
    m_scroll->verticalScrollBar()->setAttribute(Qt::WA_OpaquePaintEvent, false);
    m_scroll->setWidget(m_view);
    // Where the form reaches below the window's title, it leaves that room itself.
    for (QWidget* const part : {static_cast<QWidget*>(this), static_cast<QWidget*>(m_scroll),
             m_scroll->viewport(), static_cast<QWidget*>(m_view)})
        part->setAttribute(Qt::WA_ContentsMarginsRespectsSafeArea, false);
    m_view->installEventFilter(this);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_scroll);
    // No control has the focus before the user gave it one, but the keys that scroll work.
    m_scroll->setFocus();

    addShortcuts();
    connect(m_view, &SettingsView::quitRequested, this, &SettingsPanel::quitRequested);
    fitSettingsPanel();
}

void SettingsPanel::addShortcuts()
{
    auto const add = [this](QKeySequence const& keys, auto action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    add(Qt::CTRL | Qt::Key_Comma, &SettingsPanel::openSettings);
    add(Qt::CTRL | Qt::Key_W, &SettingsPanel::dismiss);
    add(Qt::Key_Escape, &SettingsPanel::dismiss);
    add(Qt::CTRL | Qt::Key_Q, &SettingsPanel::quitRequested);
}

void SettingsPanel::setShown(bool shown)
{
    if (!shown) {
        hide();
        return;
    }
    fitSettingsPanel();
    positionSettings();
    show();
    windowHandle()->installEventFilter(this);
    m_seams.desktop.joinEveryDesktop(static_cast<std::uintptr_t>(winId()));
    raise();
    activateWindow();
}

void SettingsPanel::openSettings()
{
    if (m_seams.model.showingSettings())
        setShown(true);
    else
        m_seams.model.setShowingSettings(true);
}

void SettingsPanel::dismiss()
{
    hide();
    m_seams.model.setShowingSettings(false);
}

void SettingsPanel::closeEvent(QCloseEvent* event)
{
    event->accept();
    dismiss();
}

int SettingsPanel::formHeight() const
{
    return m_view->layout()->totalHeightForWidth(panelWidth);
}

void SettingsPanel::fitSettingsPanel()
{
    double const height = SettingsPlacement::height(
        formHeight(), m_seams.surroundings().visible, verticalSum(m_frame));
    setFixedSize(panelWidth, std::max(1, static_cast<int>(std::floor(height))));
}

void SettingsPanel::positionSettings()
{
    QSize const size = this->size().grownBy(m_frame);
    Size const panel = {
        .width = static_cast<double>(size.width()), .height = static_cast<double>(size.height())};
    auto const origin = SettingsPlacement::origin(panel, m_seams.surroundings());
    if (!origin)
        return;
    auto const frame = ToolkitDisplays::coordinates().toToolkit(
        Rect{.x = origin->x, .y = origin->y, .width = panel.width, .height = panel.height});
    move(static_cast<int>(std::lround(frame.x)), static_cast<int>(std::lround(frame.y)));
}

void SettingsPanel::displaysChanged()
{
    m_view->displaysChanged();
    if (!isVisible())
        return;
    fitSettingsPanel();
    QRect const frame(pos(), size().grownBy(m_frame));
    auto const screens = QGuiApplication::screens();
    bool const whole = std::ranges::any_of(screens,
        [&](QScreen const* screen) { return ToolkitDisplays::visible(*screen).contains(frame); });
    if (!whole)
        positionSettings();
}

bool SettingsPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == windowHandle() && event->type() == QEvent::Expose)
        learnFrame();
    if (watched == m_view && event->type() == QEvent::LayoutRequest && !m_followPending) {
        m_followPending = true;
        QTimer::singleShot(0, this, &SettingsPanel::followForm);
    }
    return QWidget::eventFilter(watched, event);
}

// A window manager puts its frame around a window when it first shows it, and no earlier.
void SettingsPanel::learnFrame()
{
    auto const frame = windowHandle()->frameMargins();
    if (frame == m_frame || !windowHandle()->isExposed())
        return;
    m_frame = frame;
    fitSettingsPanel();
    positionSettings();
}

// A row came or went while the panel is open: the panel keeps its place and grows or shrinks at
// its lower edge, but not off the display.
void SettingsPanel::followForm()
{
    m_followPending = false;
    if (!isVisible())
        return;
    int const before = height();
    fitSettingsPanel();
    auto const around = m_seams.surroundings();
    if (height() <= before || !around.visible)
        return;
    auto const convert = ToolkitDisplays::coordinates();
    auto frame = convert.fromToolkit(desktopRect(QRect(pos(), size().grownBy(m_frame))));
    double const inside
        = SettingsPlacement::insideVertically(frame.y, frame.height, *around.visible);
    if (inside <= frame.y)
        return;
    frame.y = inside;
    move(pos().x(), static_cast<int>(std::lround(convert.toToolkit(frame).y)));
}

} // namespace velmora
