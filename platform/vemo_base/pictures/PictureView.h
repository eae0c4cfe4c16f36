#pragma once

#include "LoadedPicture.h"

#include <QPoint>
#include <QPointF>
#include <QWidget>

namespace vemo_base {

/// Shows one picture: fitted into the room or at a scale, turned by quarters, moved by hand when it is larger than the
/// room. What is shown is never cropped while it is fitted, and never enlarged by fitting. GUI thread; loads nothing.
class PictureView final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PictureView)

public:
    explicit PictureView(QWidget* parent = nullptr);

    /// Another picture: fitted and upright again. Until setPicture() follows, `standIn` is shown in the place of a
    /// picture of `size`, blurred as it is, or else the message.
    void setStandIn(const QImage& standIn, const QSize& size, const QString& message);
    /// A copy shares the pixels.
    void setPicture(const LoadedPicture& picture);
    /// In place of a picture.
    void setMessage(const QString& iconName, const QString& text);

    bool hasPicture() const { return !m_picture.levels.isEmpty(); }
    QImage turnedPicture() const; ///< as it is shown, at its full size
    double scale() const;         ///< pixels of the screen for a pixel of the picture
    bool isFitted() const { return m_isFitted; }

    void fit();
    void setScale(double scale); ///< about the middle
    void zoom(int steps);
    void turn(int quarters); ///< clockwise
    void pan(const QPointF& by);

signals:
    void signalScaleChanged();
    void signalStepRequested(int pictures);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void setScaleAt(double scale, const QPointF& place);
    QSizeF turnedSize() const; ///< of the whole picture, in its own pixels
    double fittingScale() const;
    double smallestScale() const;
    void keepInside();
    void showCursor();
    void paintPicture(QPainter* painter) const;

    LoadedPicture m_picture;
    QImage m_standIn;
    QSize m_standInSize;
    QString m_messageIcon;
    QString m_message;
    int m_quarters = 0;
    bool m_isFitted = true;
    double m_scale = 1;
    QPointF m_middle; ///< of the picture, from the middle of the room, in pixels of the screen
    QPoint m_grip;
    bool m_isGripped = false;
    int m_wheelRest = 0;
    double m_pinchStart = 1;
};

} // namespace vemo_base
