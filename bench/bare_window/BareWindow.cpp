// A bare window of the toolkit with a timer that fires 30 times a second, and nothing else:
//     bare_window [--repaint] [SIDE]
// With --repaint each time fills the window, SIDE points wide and high, with another plain colour.

#include <QApplication>
#include <QPainter>
#include <QTimer>
#include <QWidget>

namespace {

constexpr int defaultSide = 128;
constexpr int interval = 34;

class BareWindow final : public QWidget {
public:
    explicit BareWindow(bool repaints)
        : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint)
    {
        setAttribute(Qt::WA_TranslucentBackground);
        connect(&m_timer, &QTimer::timeout, this, [this, repaints] {
            ++m_shade;
            if (repaints)
                update();
        });
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.start(interval);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter(this).fillRect(rect(), QColor::fromHsv(m_shade % 360, 80, 200));
    }

private:
    QTimer m_timer;
    int m_shade = 0;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    auto const arguments = QApplication::arguments();
    bool isNumber = false;
    int const side = arguments.last().toInt(&isNumber);
    BareWindow window(arguments.contains(QStringLiteral("--repaint")));
    window.setFixedSize(isNumber ? side : defaultSide, isNumber ? side : defaultSide);
    window.move(300, 300);
    window.show();
    return QApplication::exec();
}
