#pragma once

#include "TilePainter.h"

#include "devices/ChannelRef.h"

#include <QPointer>
#include <QTimer>
#include <QVector>
#include <QWidget>

#include <optional>

class QPushButton;

namespace vemo_client {

class StreamDecoder;
class TileActionsWt;

/// One place for video: the picture, whole and in its proportions on black, with title, clock, format and badges on it,
/// or a state in words. Buttons for what can be done with it show under the pointer and with the focus. A dark island
/// in both themes. GUI thread.
///
/// It takes pictures from a decoder that somebody else owns and tells it the room for them. Channels are dropped on it,
/// and one that was given to setDragChannel() is dragged from it, as ChannelMime says.
class VideoTileWt final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(VideoTileWt)

public:
    struct Action
    {
        QString id;
        QString iconName;
        QString tip; ///< accessible name as well
        bool isChecked = false;
        bool isEnabled = true;
        bool isAlert = false; ///< in the colour of a running recording
    };

    explicit VideoTileWt(QWidget* parent = nullptr);

    /// Not owned; nullptr: none. What was shown of the one before goes.
    void setDecoder(StreamDecoder* decoder);
    StreamDecoder* decoder() const;
    /// The picture that is shown, in its size on the screen.
    VideoPicture currentPicture() const { return m_face.picture; }
    /// Asks the decoder for it as large as it was sent; answered by signalFullPicture.
    void requestFullPicture();
    /// Black again.
    void clearPicture();

    void setTitle(const QString& title);
    QString title() const { return m_face.title; }
    /// Bottom leading.
    void setClockText(const QString& text);
    /// Bottom trailing.
    void setFormatText(const QString& text, const QString& tip = QString());
    /// "1920 x 1080, 25 fps" with the codec in front of it.
    static QString formatWords(const VideoFormat& format);
    /// The badge of a running recording, with a red dot; empty: none.
    void setRecordingText(const QString& text);
    /// In the order of the bar.
    void setActions(const QVector<Action>& actions);
    void setSelected(bool selected);
    bool isSelected() const { return m_face.isSelected; }
    /// The channel that is dragged from here; nothing: none.
    void setDragChannel(const std::optional<ChannelRef>& channel) { m_dragChannel = channel; }

    /// Nothing but the picture.
    void clearState();
    /// A ring and words, as while connecting.
    void setBusy(const QString& text);
    /// An icon, a sentence and, unless `buttonText` is empty, a button. Covers the picture.
    void setMessage(const QString& iconName, const QString& text, const QString& buttonText = QString(),
                    const QString& buttonIcon = QString());
    QString stateText() const { return m_face.stateText; }
    /// A line on the picture for a few seconds.
    void showNote(const QString& text);

signals:
    void signalSelected();
    void signalDoubleClicked();
    void signalContextMenuWanted(const QPoint& globalPosition);
    void signalAction(const QString& id);
    void signalButtonClicked();
    /// `source` is the widget that the drag began in, nullptr when it came from elsewhere.
    void signalChannelDropped(const vemo_client::ChannelRef& channel, QWidget* source);
    void signalFullPicture(const QImage& image, qint64 utcNs);

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void enterEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    TilePainter painter() const;
    void setState(TileFace::State state, const QString& iconName, const QString& text);
    void takePicture();
    void tellTargetSize();
    void placeParts();
    void showBar();
    void describe();

    QPointer<StreamDecoder> m_decoder;
    TileFace m_face;
    QString m_formatTip;
    QTimer m_noteTimer;
    QTimer m_ringTimer;
    std::optional<ChannelRef> m_dragChannel;
    QPoint m_pressed;
    TileActionsWt* m_bar;
    QPushButton* m_button;
};

} // namespace vemo_client
