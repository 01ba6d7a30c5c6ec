#include "Velmora/views/SettingsLook.h"

#include <array>
#include <utility>

namespace velmora::SettingsLook {

namespace {

QColor colour(float red, float green, float blue, double opacity)
{
    return QColor::fromRgbF(red, green, blue, static_cast<float>(opacity));
}

/// A pixel of the desktop's 96 to the inch in the typographer's points that fonts are asked in.
constexpr double fontPointsPerDesktopPoint = 72.0 / 96.0;

constexpr double controlTextSize = 13.0;

} // namespace

QColor sage(double opacity)
{
    return colour(0.32F, 0.56F, 0.48F, opacity);
}

QColor ink(double opacity)
{
    return colour(0.18F, 0.26F, 0.23F, opacity);
}

QColor shade(double opacity)
{
    return colour(0.0F, 0.0F, 0.0F, opacity);
}

QColor background()
{
    return colour(0.93F, 0.94F, 0.90F, 1.0);
}

QFont font(double size, QFont::Weight weight)
{
    QFont font;
    font.setPointSizeF(size * fontPointsPerDesktopPoint);
    font.setWeight(weight);
    return font;
}

QFont controlFont(QFont::Weight weight)
{
    return font(controlTextSize, weight);
}

QPalette palette()
{
    std::array const roles = {
        std::pair(QPalette::Window, background()),
        std::pair(QPalette::WindowText, ink()),
        std::pair(QPalette::Base, QColor(Qt::white)),
        std::pair(QPalette::AlternateBase, background()),
        std::pair(QPalette::Text, ink()),
        std::pair(QPalette::PlaceholderText, ink(disabledOpacity)),
        std::pair(QPalette::Button, background()),
        std::pair(QPalette::ButtonText, ink()),
        std::pair(QPalette::BrightText, QColor(Qt::white)),
        std::pair(QPalette::Light, QColor(Qt::white)),
        std::pair(QPalette::Midlight, background().lighter(103)),
        std::pair(QPalette::Mid, background().darker(120)),
        std::pair(QPalette::Dark, background().darker(150)),
        std::pair(QPalette::Shadow, ink()),
        std::pair(QPalette::Highlight, sage()),
        std::pair(QPalette::HighlightedText, QColor(Qt::white)),
        std::pair(QPalette::Link, sage()),
        std::pair(QPalette::LinkVisited, sage()),
        std::pair(QPalette::ToolTipBase, QColor(Qt::white)),
        std::pair(QPalette::ToolTipText, ink()),
    };
    QPalette palette;
    for (auto const& [role, colour] : roles)
        palette.setColor(QPalette::All, role, colour);
    return palette;
}

} // namespace velmora::SettingsLook
