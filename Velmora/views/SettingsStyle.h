#pragma once

#include <QProxyStyle>

namespace velmora {

/// Draws the parts of the settings form that the toolkit composes itself: the field and steppers of
/// a time picker, and the thin scroll bar that lies over the form's edge. It stands on the
/// toolkit's built-in style and so looks the same on every desktop.
class SettingsStyle final : public QProxyStyle {
    Q_OBJECT

public:
    /// Gives `widget` such a style, which it owns.
    static void apply(QWidget& widget);

    void drawPrimitive(PrimitiveElement element, QStyleOption const* option, QPainter* painter,
        QWidget const* widget) const override;
    void drawComplexControl(ComplexControl control, QStyleOptionComplex const* option,
        QPainter* painter, QWidget const* widget) const override;
    [[nodiscard]] QRect subControlRect(ComplexControl control, QStyleOptionComplex const* option,
        SubControl part, QWidget const* widget) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, QStyleOption const* option,
        QSize const& contents, QWidget const* widget) const override;
    [[nodiscard]] int pixelMetric(
        PixelMetric metric, QStyleOption const* option, QWidget const* widget) const override;

private:
    SettingsStyle();
};

} // namespace velmora
