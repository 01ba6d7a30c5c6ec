#pragma once

#include <QWidget>

namespace velmora {

/// A drawn loudspeaker with two waves, as tall as a caption; decoration that assistive programs
/// pass over.
class SpeakerSymbol final : public QWidget {
    Q_OBJECT

public:
    explicit SpeakerSymbol(QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace velmora
