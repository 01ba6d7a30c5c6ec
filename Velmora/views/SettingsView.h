#pragma once

#include "Velmora/model/AppModel.h"

#include <QWidget>

class QLabel;
class QVBoxLayout;

namespace velmora {

class SizeCard;

/// The settings form: five cards, a sentence that sums them up, and two actions.
///
/// It shows the model at every moment, whoever changed it, and hands every change to the model at
/// once. It is 340 desktop points wide; `heightForWidth` tells the height it needs.
class SettingsView final : public QWidget {
    Q_OBJECT

public:
    /// `timeFormat` is the user's form of an hour and a minute, such as "h:mm AP".
    SettingsView(
        AppModel& model, ChimePlayer& chime, QString const& timeFormat, QWidget* parent = nullptr);

    /// Reads the limits of the displays again.
    void displaysChanged();

Q_SIGNALS:
    /// The user asked the program to end.
    void quitRequested();

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void addCards(QVBoxLayout& column, ChimePlayer& chime, QString const& timeFormat);
    void addActions(QVBoxLayout& column);
    void refreshSummary();

    AppModel& m_model;
    SizeCard* m_size = nullptr;
    QLabel* m_summary = nullptr;
};

} // namespace velmora
