#pragma once

#include "Velmora/views/SettingsView.h"
#include "tests/model/Desk.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLayout>

#include <memory>

namespace velmora {

/// A desk with the settings form open on it.
class FormDesk : public Desk {
public:
    /// Launches the program over what is stored and opens the form.
    SettingsView& open(QString const& timeFormat = QStringLiteral("HH:mm"))
    {
        m_form.reset();
        m_model = &launch();
        m_form = std::make_unique<SettingsView>(*m_model, chime(), timeFormat);
        m_form->resize(m_form->width(), m_form->layout()->totalHeightForWidth(m_form->width()));
        m_form->show();
        QApplication::processEvents();
        return *m_form;
    }

    [[nodiscard]] AppModel& model() const { return *m_model; }
    [[nodiscard]] SettingsView& form() const { return *m_form; }

    /// The control of this type with this accessible name or, failing that, these words.
    template <typename Control>
    [[nodiscard]] Control& control(char const* name) const
    {
        auto const wanted = QString::fromUtf8(name);
        for (auto* each : m_form->findChildren<Control*>()) {
            if (each->accessibleName() == wanted)
                return *each;
            if (auto* button = qobject_cast<QAbstractButton*>(each);
                button && button->text() == wanted)
                return *each;
        }
        throw std::logic_error(std::string("no control is called ") + name);
    }

    /// Whether a label with these words, or with words that start so, is to be seen.
    [[nodiscard]] bool shows(char const* words) const
    {
        auto const labels = m_form->findChildren<QLabel*>();
        return std::ranges::any_of(labels, [&](QLabel const* label) {
            return label->isVisible() && label->text().startsWith(QString::fromUtf8(words));
        });
    }

    /// The sentence under the cards.
    [[nodiscard]] std::string summary() const
    {
        for (auto const* label : m_form->findChildren<QLabel*>()) {
            if (label->text().startsWith(QStringLiteral("Reminds you")))
                return label->text().toStdString();
        }
        return {};
    }

private:
    AppModel* m_model = nullptr;
    std::unique_ptr<SettingsView> m_form;
};

} // namespace velmora
