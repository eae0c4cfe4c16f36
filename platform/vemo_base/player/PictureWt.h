#pragma once

#include <QElapsedTimer>
#include <QImage>
#include <QTimer>
#include <QWidget>

namespace vemo_base {

/// Shows pictures on black, whole and in their proportions, with the channel's name and the clock on them; in their
/// place a sentence when there are none. A dark island in both themes. GUI thread.
class PictureWt final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PictureWt)

public:
    explicit PictureWt(QWidget* parent = nullptr);

    void setPicture(const QImage& picture);
    /// Size with square pixels, of which only the proportions count; empty: no picture.
    void setPictureShape(const QSize& shape);
    void setChannelName(const QString& name);
    void setClockText(const QString& text);
    /// In place of the picture; `iconName` may be empty. An empty text takes it away.
    void setMessage(const QString& iconName, const QString& text);
    /// A line on the picture for a few seconds.
    void showNote(const QString& text);

    /// What a picture should have to fill its place, in device pixels.
    QSize pictureSize() const;

signals:
    void signalPictureSizeChanged(const QSize& size);
    void signalDoubleClicked();

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QRect pictureRect() const;
    QRect clockRect() const;
    void paintMessage(QPainter& painter) const;
    void paintNote(QPainter& painter, const QRect& picture) const;

    QImage m_picture;
    QSize m_shape;
    QString m_channelName;
    QString m_clockText;
    QString m_messageIcon;
    QString m_message;
    QString m_note;
    QTimer m_noteTimer;
};

} // namespace vemo_base
