#pragma once

#include <QVector>
#include <QWidget>

class QLabel;

namespace vemo_base {

class TransportButton;

/// The image viewer's bar: stepping leading, zoom and turning in the middle, what is done with the picture trailing.
/// Shows what it is told and says what was pressed; GUI thread.
class ViewerBar final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ViewerBar)

public:
    static constexpr int barHeight = 56;

    explicit ViewerBar(QWidget* parent = nullptr);

    void setPlace(int index, int count);
    /// `percent` 0: there is no picture, and nothing to zoom or copy.
    void setScale(int percent, bool isFitted);
    void setFullScreen(bool on);
    void setHasFile(bool hasFile);

signals:
    void signalStepRequested(int pictures);
    void signalZoomRequested(int steps);
    void signalFitRequested();
    void signalActualSizeRequested();
    void signalTurnRequested(int quarters);
    void signalCopyRequested();
    void signalFolderRequested();
    void signalFullScreenRequested();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    TransportButton* add(const QString& iconName, const QString& tip, bool needsPicture);

    QVector<TransportButton*> m_needPicture;
    TransportButton* m_back;
    TransportButton* m_on;
    TransportButton* m_folder = nullptr;
    TransportButton* m_fullScreen = nullptr;
    QLabel* m_place;
    QLabel* m_scale;
};

} // namespace vemo_base
