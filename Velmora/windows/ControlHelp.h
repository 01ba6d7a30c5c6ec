#pragma once

#include <QObject>
#include <QTimer>

class QWindow;

namespace velmora {

class WidgetView;

/// The tooltips of the orb's buttons: a moment after the pointer came to rest over one.
class ControlHelp final : public QObject {
    Q_OBJECT

public:
    /// Both outlive the help.
    ControlHelp(QWindow const& window, WidgetView const& view);

private:
    void hoverChanged();
    void show() const;

    QWindow const& m_window;
    WidgetView const& m_view;
    QTimer m_delay;
};

} // namespace velmora
