#include "Velmora/views/SettingsLabel.h"

#include "Velmora/views/SettingsLook.h"

namespace velmora {

SettingsLabel::SettingsLabel(QString const& text, Look look, QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setText(text);

    auto font = SettingsLook::font(look.size, look.weight);
    if (look.tracking != 0.0)
        font.setLetterSpacing(QFont::AbsoluteSpacing, look.tracking);
    setFont(font);

    auto palette = SettingsLook::palette();
    palette.setColor(QPalette::WindowText, SettingsLook::ink(look.opacity));
    setPalette(palette);
}

SettingsLabel* SettingsLabel::singleLine(QString const& text, Look look, QWidget* parent)
{
    auto* label = new SettingsLabel(text, look, parent);
    label->setWordWrap(false);
    return label;
}

} // namespace velmora
