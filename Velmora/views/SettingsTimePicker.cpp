#include "Velmora/views/SettingsTimePicker.h"

#include "Velmora/views/SettingsLook.h"
#include "Velmora/views/SettingsStyle.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLineEdit>
#include <QLocale>
#include <QScopedValueRollback>

namespace velmora {

namespace {

constexpr int minutesPerHour = 60;

} // namespace

SettingsTimePicker::SettingsTimePicker(QString const& format, QWidget* parent)
    : QTimeEdit(parent)
{
    SettingsStyle::apply(*this);
    SettingsStyle::apply(*lineEdit());
    setPalette(SettingsLook::palette());
    setFont(SettingsLook::controlFont());
    setLocale(QLocale::system());
    // A time of day alone: no day on which the clocks change can take a minute away.
    setTimeSpec(Qt::UTC);
    // The parts of a time keep their order also where the words around it run the other way.
    setLayoutDirection(Qt::LeftToRight);
    setDisplayFormat(format);
    setWrapping(true);
    setFrame(false);
    setFocusPolicy(Qt::StrongFocus);
    lineEdit()->installEventFilter(this);
    connect(this, &QTimeEdit::timeChanged, this, [this] {
        if (!m_showing)
            Q_EMIT edited(minutes());
    });
}

// A part that was clicked is chosen whole, so that what is typed replaces it.
bool SettingsTimePicker::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == lineEdit() && event->type() == QEvent::MouseButtonRelease && !m_releasing) {
        QScopedValueRollback const once(m_releasing, true);
        QCoreApplication::sendEvent(watched, event);
        setSelectedSection(currentSection());
        return true;
    }
    return QTimeEdit::eventFilter(watched, event);
}

int SettingsTimePicker::minutes() const
{
    return time().hour() * minutesPerHour + time().minute();
}

void SettingsTimePicker::showMinutes(int minutes)
{
    if (minutes == this->minutes())
        return;
    QScopedValueRollback const quiet(m_showing, true);
    setTime(QTime(minutes / minutesPerHour, minutes % minutesPerHour));
}

} // namespace velmora
