#include "Velmora/shell/AppDelegate.h"

#include "Velmora/model/AppModel.h"
#include "Velmora/platform/toolkit/ToolkitDisplays.h"
#include "Velmora/shell/StatusItem.h"
#include "Velmora/views/WidgetView.h"
#include "Velmora/windows/DisplayPowerWatch.h"
#include "Velmora/windows/SettingsPanel.h"
#include "Velmora/windows/SetupWidget.h"
#include "Velmora/windows/WidgetPanel.h"

#include <QCoreApplication>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace velmora {

namespace {

using namespace std::chrono_literals;

/// Sizes and places that differ by no more than this, in points, are left alone.
constexpr double sizeTolerance = 0.5;
constexpr double placeTolerance = 1.0;

constexpr auto previewDelay = 350ms;
constexpr auto settingsDelay = 250ms;

} // namespace

AppDelegate::AppDelegate(std::shared_ptr<InstanceLock> lock, Seams seams)
    : m_instanceLock(std::move(lock))
    , m_seams(std::move(seams))
{
}

AppDelegate::~AppDelegate()
{
    m_seams.model.onShowingSettings = nullptr;
    m_seams.model.onWidgetSize = nullptr;
    m_seams.model.onStatus = nullptr;
}

void AppDelegate::applicationDidFinishLaunching(FocusRequest flags)
{
    installModelCallbacks();
    fitStoredSizeToMainScreen();
    setupStatusItem();
    setupWidgetPanel();
    setupSettings();
    connect(
        &m_seams.displays, &ToolkitDisplays::settled, this, &AppDelegate::screenParametersChanged);
    m_seams.model.start();
    refreshStatusItem();
    honour(flags);
}

void AppDelegate::installModelCallbacks()
{
    m_seams.model.onShowingSettings = [this](bool showing) {
        if (m_settingsPanel)
            m_settingsPanel->setShown(showing);
    };
    m_seams.model.onWidgetSize = [this] { widgetSizeChanged(); };
    m_seams.model.onStatus = [this] { refreshStatusItem(); };
}

void AppDelegate::fitStoredSizeToMainScreen()
{
    auto& model = m_seams.model;
    double const fitting = model.clampSize(model.widgetSize(), m_seams.displays.main());
    if (std::abs(fitting - model.widgetSize()) > sizeTolerance)
        model.setWidgetSize(fitting);
}

void AppDelegate::setupStatusItem()
{
    m_statusItem = std::make_unique<StatusItem>(m_seams.model, m_seams.statusSymbol);
    m_statusItem->setInk(m_trayInk);
    connect(m_statusItem.get(), &StatusItem::quit, this, &AppDelegate::terminate);
    if (m_trayAvailable)
        m_statusItem->show();
}

void AppDelegate::setupWidgetPanel()
{
    m_widgetView = std::make_unique<WidgetView>(m_seams.model);
    m_widgetPanel = setupWidget({.model = m_seams.model,
                                    .clock = m_seams.clock,
                                    .displays = m_seams.displays,
                                    .desktop = m_seams.desktopPanel},
        *m_widgetView);
    m_displayPowerWatch
        = std::make_unique<DisplayPowerWatch>(m_seams.displayPower, m_widgetPanel->frameClock());
}

void AppDelegate::setupSettings()
{
    m_settingsPanel = std::make_unique<SettingsPanel>(SettingsPanel::Seams{.model = m_seams.model,
        .chime = m_seams.chime,
        .desktop = m_seams.desktopWindow,
        .surroundings = [this] { return surroundings(); },
        .timeFormat = m_seams.timeFormat});
    connect(m_settingsPanel.get(), &SettingsPanel::quitRequested, this, &AppDelegate::terminate);
    connect(m_statusItem.get(), &StatusItem::openSettings, m_settingsPanel.get(),
        &SettingsPanel::openSettings);
}

SettingsPlacement::Surroundings AppDelegate::surroundings() const
{
    auto const all = m_seams.displays.all();
    auto const find = [&](std::optional<DisplayId> id) {
        return std::find_if(
            all.begin(), all.end(), [&](Display const& display) { return display.id == id; });
    };
    auto display = m_widgetPanel ? find(m_widgetPanel->display()) : all.end();
    if (display == all.end())
        display = find(m_seams.displays.main());

    SettingsPlacement::Surroundings around;
    if (m_widgetPanel)
        around.orb = m_widgetPanel->frame();
    if (display != all.end())
        around.visible = display->frames.visible;
    return around;
}

void AppDelegate::honour(FocusRequest flags)
{
    auto* const model = &m_seams.model;
    if (flags.preview)
        after(previewDelay, [model] { model->velmoraNow(); });
    if (flags.settings)
        after(settingsDelay, [model] { model->setShowingSettings(true); });
}

void AppDelegate::after(std::chrono::milliseconds delay, std::function<void()> const& action)
{
    auto* const timer = new QTimer(this);
    timer->setSingleShot(true);
    connect(timer, &QTimer::timeout, this, action);
    timer->start(delay);
}

void AppDelegate::terminate()
{
    // A polite end would first ask every window, and any of them could refuse.
    QCoreApplication::exit(0);
}

void AppDelegate::save()
{
    m_seams.model.persist();
    m_seams.defaults.flush();
}

void AppDelegate::applicationWillTerminate()
{
    save();
}

void AppDelegate::reopened()
{
    orderWidgetFront();
}

void AppDelegate::openSettings()
{
    if (m_settingsPanel)
        m_settingsPanel->openSettings();
}

void AppDelegate::sessionEnds()
{
    save();
}

void AppDelegate::takeFocusRequest(FocusRequest request)
{
    orderWidgetFront();
    if (request.preview)
        m_seams.model.velmoraNow();
    if (request.settings)
        m_seams.model.setShowingSettings(true);
}

void AppDelegate::willSleep()
{
    save();
}

void AppDelegate::didWake()
{
    m_seams.model.tick();
    orderWidgetFront();
}

void AppDelegate::sessionLocked(bool locked)
{
    if (m_widgetPanel)
        m_widgetPanel->frameClock().set(FrameClock::Unseen::sessionLocked, locked);
}

void AppDelegate::displaysChanged()
{
    m_seams.displays.disturb();
}

void AppDelegate::trayAvailable(bool available)
{
    // The news may come before there is anything to show.
    m_trayAvailable = available;
    if (m_statusItem && available) {
        m_statusItem->show();
        m_statusItem->refresh();
    }
}

void AppDelegate::trayInkChanged(std::optional<QColor> const& ink)
{
    m_trayInk = ink;
    if (m_statusItem)
        m_statusItem->setInk(ink);
}

void AppDelegate::refreshStatusItem()
{
    if (m_statusItem)
        m_statusItem->refresh();
}

void AppDelegate::orderWidgetFront()
{
    if (m_widgetPanel)
        m_widgetPanel->orderFrontRegardless();
}

void AppDelegate::widgetSizeChanged()
{
    if (!m_widgetPanel)
        return;
    auto& model = m_seams.model;
    double const side = model.clampSize(model.widgetSize(), m_widgetPanel->display());
    auto const frame = m_widgetPanel->frame();
    if (std::abs(side - model.widgetSize()) > sizeTolerance) {
        model.setWidgetSize(side);
    } else if (std::abs(frame.width - side) > sizeTolerance) {
        Rect const fitted = {.x = frame.midX() - side / 2,
            .y = frame.midY() - side / 2,
            .width = side,
            .height = side};
        m_widgetPanel->setFrame(fitted);
        model.saveOrigin(fitted.origin());
    }
}

void AppDelegate::screenParametersChanged()
{
    if (!m_widgetPanel)
        return;
    auto& model = m_seams.model;
    auto const before = m_widgetPanel->frame().origin();
    m_widgetPanel->displaysSettled();
    auto const frame = m_widgetPanel->frame();
    auto const origin = model.originPullingOnScreen(frame.origin(), frame.width);
    if (distance(origin, frame.origin()) > placeTolerance) {
        m_widgetPanel->setFrameOrigin(origin);
        model.saveOrigin(origin);
    } else if (model.hasSavedOrigin() && frame.origin() != before) {
        // The orb stands where it stood, but its place now counts from elsewhere.
        model.saveOrigin(frame.origin());
    }
    model.setHostScreen(m_widgetPanel->display());
    if (m_settingsPanel)
        m_settingsPanel->displaysChanged();
}

} // namespace velmora
