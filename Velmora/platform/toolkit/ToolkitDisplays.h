#pragma once

#include "Velmora/platform/DesktopCoordinates.h"
#include "Velmora/platform/Displays.h"

#include <QObject>
#include <QTimer>

class QRect;
class QScreen;

namespace velmora {

/// The displays as the toolkit sees them.
class ToolkitDisplays final : public QObject, public Displays {
    Q_OBJECT

public:
    ToolkitDisplays();

    [[nodiscard]] std::vector<Display> all() const override;
    [[nodiscard]] std::optional<DisplayId> main() const override;

    /// The displays may have changed: `settled` follows, once they have.
    void disturb();

    /// What a screen has free of panels, in the toolkit's coordinates.
    [[nodiscard]] static QRect visible(QScreen const& screen);
    /// The toolkit's screen of a display, or none when it has gone.
    [[nodiscard]] static QScreen* screen(std::optional<DisplayId> id);
    /// The display of a toolkit screen; absent for no screen.
    [[nodiscard]] static std::optional<DisplayId> id(QScreen const* screen);
    /// The conversion that holds while the primary display stays as it is.
    [[nodiscard]] static DesktopCoordinates coordinates();

Q_SIGNALS:
    /// A display came, went, moved, changed its size or scale, or became the primary one, and a
    /// fifth of a second has passed in which nothing more of the kind happened: in between, the
    /// toolkit reports mixtures of old and new.
    void settled();

private:
    void watch(QScreen* screen);

    QTimer m_quiet;
};

} // namespace velmora
