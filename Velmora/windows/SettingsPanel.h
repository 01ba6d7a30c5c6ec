#pragma once

#include "Velmora/geometry/SettingsPlacement.h"

#include <QMargins>
#include <QWidget>

#include <functional>

class QScrollArea;

namespace velmora {

class AppModel;
class ChimePlayer;
class DesktopWindow;
class SettingsView;

/// The window that holds the settings form: an ordinary one with the window manager's frame, as
/// tall as the form where the display allows, opened beside the orb.
///
/// Closing it in any way only hides it and clears the model's `showingSettings`, so that it opens
/// again as it was left.
class SettingsPanel final : public QWidget {
    Q_OBJECT

public:
    /// What the panel needs from outside; everything outlives it.
    struct Seams {
        AppModel& model;
        ChimePlayer& chime;
        DesktopWindow& desktop;
        /// The orb and its display at the moment of the call.
        std::function<SettingsPlacement::Surroundings()> surroundings;
        /// The user's form of an hour and a minute, such as "h:mm AP".
        QString timeFormat;
    };

    /// Hidden until the model asks for it.
    explicit SettingsPanel(Seams seams);

    /// The answer to a change of the model's `showingSettings`: fits, places, shows and activates
    /// the panel, or hides it.
    void setShown(bool shown);

    /// Opens the settings, or brings them to the front, fitted and placed anew, where they are open
    /// already.
    void openSettings();

    /// Gives the panel the height that the form and the display ask for.
    void fitSettingsPanel();

    /// Puts the panel beside the orb.
    void positionSettings();

    /// Reads the displays' limits again. A panel that no display shows whole any more goes back to
    /// its place beside the orb.
    void displaysChanged();

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The user asked the program to end.
    void quitRequested();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void addShortcuts();
    void dismiss();
    void learnFrame();
    void followForm();
    [[nodiscard]] int formHeight() const;

    Seams m_seams;
    SettingsView* m_view;
    QScrollArea* m_scroll;
    /// The window manager's frame, once a window manager has put one around the panel.
    QMargins m_frame;
    bool m_followPending = false;
};

} // namespace velmora
