#include "Velmora/views/GeneralCard.h"

#include "Velmora/model/AppModel.h"
#include "Velmora/views/SettingsLabel.h"
#include "Velmora/views/SettingsSwitch.h"

namespace velmora {

namespace {

constexpr SettingsLabel::Look loginNoteLook = {.size = 11.0, .opacity = 0.7};

} // namespace

GeneralCard::GeneralCard(AppModel& model, QWidget* parent)
    : SettingsCard(tr("General"), parent)
    , m_model(model)
    , m_openAtLogin(new SettingsSwitch(tr("Open at login"), this))
    , m_loginNote(new SettingsLabel({}, loginNoteLook, this))
    , m_paused(new SettingsSwitch(tr("Pause reminders"), this))
{
    addControl(m_openAtLogin);
    addText(m_loginNote);
    addControl(m_paused);

    connect(m_openAtLogin, &SettingsSwitch::edited, &m_model, &AppModel::setOpenAtLogin);
    connect(m_paused, &SettingsSwitch::edited, &m_model, &AppModel::setPaused);
    connect(&m_model, &AppModel::changed, this, [this](AppModel::Property property) {
        if (property == AppModel::Property::openAtLogin || property == AppModel::Property::loginNote
            || property == AppModel::Property::paused)
            refresh();
    });
    refresh();
}

void GeneralCard::refresh()
{
    m_openAtLogin->showState(m_model.openAtLogin());
    m_paused->showState(m_model.paused());
    auto const note = QString::fromStdString(m_model.loginNote().value_or(std::string()));
    m_loginNote->setText(note);
    m_loginNote->setVisible(!note.isEmpty());
}

} // namespace velmora
