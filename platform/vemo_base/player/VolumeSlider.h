#pragma once

#include <QAbstractSlider>

namespace vemo_base {

/// How loud, 0 to 100. A small slider that mirrors with the layout; the wheel and, with focus, the arrow keys move it.
class VolumeSlider final : public QAbstractSlider
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(VolumeSlider)

public:
    explicit VolumeSlider(QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void follow(int x);
};

} // namespace vemo_base
