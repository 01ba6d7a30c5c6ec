#include "Velmora/views/SettingsStyle.h"

#include "Velmora/views/SettingsLook.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleFactory>
#include <QStyleOption>
#include <QWidget>

#include <algorithm>

namespace velmora {

namespace {

constexpr int stepperWidth = 18;
constexpr int fieldPadding = 6;
constexpr int leastFieldHeight = 26;
constexpr double fieldRadius = 7.0;
constexpr int scrollBarWidth = 10;
constexpr int leastThumb = 32;

void drawChevron(QPainter& painter, QRectF const& box, bool up)
{
    QPointF const middle = box.center() + QPointF(0.0, up ? 0.5 : -0.5);
    double const rise = up ? -1.5 : 1.5;
    painter.drawPolyline(QPolygonF({middle + QPointF(-3.0, -rise), middle + QPointF(0.0, rise),
        middle + QPointF(3.0, -rise)}));
}

void drawField(QStyle const& style, QStyleOptionSpinBox const& option, QPainter& painter,
    QWidget const* widget)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(SettingsLook::shade(0.06));
    painter.drawRoundedRect(option.rect, fieldRadius, fieldRadius);
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        painter.setPen(QPen(SettingsLook::sage(), 2.0));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(option.rect).adjusted(1.0, 1.0, -1.0, -1.0),
            fieldRadius - 1.0, fieldRadius - 1.0);
    }
    for (auto const part : {QStyle::SC_SpinBoxUp, QStyle::SC_SpinBoxDown}) {
        bool const hovered
            = option.activeSubControls == part && option.state.testFlag(QStyle::State_MouseOver);
        bool const pressed
            = option.activeSubControls == part && option.state.testFlag(QStyle::State_Sunken);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(SettingsLook::ink(pressed || hovered ? 1.0 : 0.55), 1.5, Qt::SolidLine,
            Qt::RoundCap, Qt::RoundJoin));
        drawChevron(painter, style.subControlRect(QStyle::CC_SpinBox, &option, part, widget),
            part == QStyle::SC_SpinBoxUp);
    }
    painter.restore();
}

QRect fieldPart(QStyleOptionComplex const& option, QStyle::SubControl part)
{
    QRect const all = option.rect;
    QRect const stepper(all.right() + 1 - stepperWidth - 2, all.top(), stepperWidth, all.height());
    QRect const upper = stepper.adjusted(0, 2, 0, -stepper.height() / 2);
    switch (part) {
    case QStyle::SC_SpinBoxUp:
        return upper;
    case QStyle::SC_SpinBoxDown:
        return {upper.left(), upper.bottom() + 1, upper.width(), upper.height()};
    case QStyle::SC_SpinBoxEditField:
        return all.adjusted(fieldPadding, 1, -stepperWidth - 2, -1);
    default:
        return all;
    }
}

void drawThumb(
    QStyle const& style, QStyleOptionSlider const& option, QPainter& painter, QWidget const* widget)
{
    auto const thumb = QRectF(
        style.subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, widget))
                           .adjusted(2.0, 2.0, -2.0, -2.0);
    bool const active = option.state.testFlag(QStyle::State_MouseOver)
        || option.state.testFlag(QStyle::State_Sunken);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(SettingsLook::ink(active ? 0.5 : 0.3));
    painter.drawRoundedRect(thumb, thumb.width() / 2, thumb.width() / 2);
    painter.restore();
}

QRect scrollBarPart(QStyleOptionSlider const& option, QStyle::SubControl part)
{
    QRect const all = option.rect;
    int const range = option.maximum - option.minimum;
    if (part == QStyle::SC_ScrollBarGroove || range <= 0)
        return all;
    int const share = static_cast<int>(
        static_cast<qint64>(option.pageStep) * all.height() / (range + option.pageStep));
    int const length = std::clamp(share, std::min(leastThumb, all.height()), all.height());
    int const start = QStyle::sliderPositionFromValue(option.minimum, option.maximum,
        option.sliderPosition, all.height() - length, option.upsideDown);
    switch (part) {
    case QStyle::SC_ScrollBarSlider:
        return {all.left(), all.top() + start, all.width(), length};
    case QStyle::SC_ScrollBarSubPage:
        return {all.left(), all.top(), all.width(), start};
    case QStyle::SC_ScrollBarAddPage:
        return all.adjusted(0, start + length, 0, 0);
    default:
        return {};
    }
}

} // namespace

SettingsStyle::SettingsStyle()
    : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
{
}

void SettingsStyle::apply(QWidget& widget)
{
    auto* style = new SettingsStyle;
    style->setParent(&widget);
    widget.setStyle(style);
}

void SettingsStyle::drawPrimitive(PrimitiveElement element, QStyleOption const* option,
    QPainter* painter, QWidget const* widget) const
{
    // The text of a picker stands on the field that the picker draws.
    if (element != PE_PanelLineEdit && element != PE_FrameLineEdit)
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void SettingsStyle::drawComplexControl(ComplexControl control, QStyleOptionComplex const* option,
    QPainter* painter, QWidget const* widget) const
{
    if (auto const* spinBox = qstyleoption_cast<QStyleOptionSpinBox const*>(option))
        drawField(*this, *spinBox, *painter, widget);
    else if (auto const* bar = qstyleoption_cast<QStyleOptionSlider const*>(option);
             bar && control == CC_ScrollBar)
        drawThumb(*this, *bar, *painter, widget);
    else
        QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect SettingsStyle::subControlRect(ComplexControl control, QStyleOptionComplex const* option,
    SubControl part, QWidget const* widget) const
{
    if (control == CC_SpinBox)
        return visualRect(option->direction, option->rect, fieldPart(*option, part));
    if (auto const* bar = qstyleoption_cast<QStyleOptionSlider const*>(option);
        bar && control == CC_ScrollBar)
        return scrollBarPart(*bar, part);
    return QProxyStyle::subControlRect(control, option, part, widget);
}

QSize SettingsStyle::sizeFromContents(ContentsType type, QStyleOption const* option,
    QSize const& contents, QWidget const* widget) const
{
    if (type == CT_SpinBox) {
        // The text keeps two points clear on either side by itself.
        return {contents.width() + fieldPadding + stepperWidth + 2 + 4,
            std::max(contents.height() + 4, leastFieldHeight)};
    }
    return QProxyStyle::sizeFromContents(type, option, contents, widget);
}

int SettingsStyle::pixelMetric(
    PixelMetric metric, QStyleOption const* option, QWidget const* widget) const
{
    if (metric == PM_ScrollBarExtent || metric == PM_ScrollView_ScrollBarOverlap)
        return scrollBarWidth;
    return QProxyStyle::pixelMetric(metric, option, widget);
}

} // namespace velmora
