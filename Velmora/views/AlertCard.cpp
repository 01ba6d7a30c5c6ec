#include "Velmora/views/AlertCard.h"

#include "Velmora/model/AppModel.h"
#include "Velmora/services/ChimePlayer.h"
#include "Velmora/views/FocusRing.h"
#include "Velmora/views/SettingsButton.h"
#include "Velmora/views/SettingsSlider.h"
#include "Velmora/views/SettingsSwitch.h"
#include "Velmora/views/SpeakerSymbol.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace velmora {

namespace {

/// The pointer moves the volume as finely as it can tell; the keys by a twentieth.
constexpr SettingsSlider::Scale volumeScale
    = {.minimum = 0.1, .maximum = 1.0, .step = 0.001, .arrowSteps = 50, .pageSteps = 150};

constexpr int partGap = 8;

} // namespace

AlertCard::AlertCard(AppModel& model, ChimePlayer& chime, QWidget* parent)
    : SettingsCard(tr("Alert"), parent)
    , m_model(model)
    , m_sound(new SettingsSwitch(tr("Gentle chime"), this))
    , m_chimeRows(new QWidget(this))
    , m_volume(new SettingsSlider(m_chimeRows))
{
    addControl(m_sound);
    addVolume();
    addControl(m_chimeRows);

    connect(m_sound, &SettingsSwitch::edited, &m_model, &AppModel::setSoundEnabled);
    connect(m_volume, &SettingsSlider::edited, &m_model, &AppModel::setSoundVolume);
    connect(m_volume, &SettingsSlider::editingEnded, this,
        [this, &chime] { chime.play(m_model.soundVolume()); });
    connect(&m_model, &AppModel::changed, this, [this](AppModel::Property property) {
        if (property == AppModel::Property::soundEnabled
            || property == AppModel::Property::soundVolume)
            refresh();
    });
    refresh();
}

void AlertCard::addVolume()
{
    m_volume->setScale(volumeScale);
    m_volume->setAccessibleName(tr("Chime volume"));
    auto* preview
        = new SettingsButton(SettingsButton::Kind::plain, tr("Preview reminder"), m_chimeRows);
    connect(preview, &SettingsButton::clicked, &m_model, &AppModel::velmoraNow);

    auto* volumeRow = new QHBoxLayout;
    volumeRow->setSpacing(0);
    volumeRow->addSpacing(FocusRing::room);
    volumeRow->addWidget(new SpeakerSymbol(m_chimeRows));
    volumeRow->addSpacing(partGap - FocusRing::room);
    volumeRow->addWidget(m_volume);

    auto* column = new QVBoxLayout(m_chimeRows);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(partGap - 2 * FocusRing::room);
    column->addLayout(volumeRow);
    column->addWidget(preview, 0, Qt::AlignLeading);
}

void AlertCard::refresh()
{
    m_sound->showState(m_model.soundEnabled());
    m_chimeRows->setVisible(m_model.soundEnabled());
    m_volume->showNumber(m_model.soundVolume());
}

} // namespace velmora
