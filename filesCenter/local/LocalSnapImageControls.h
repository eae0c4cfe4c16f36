#pragma once

#include <QCheckBox>
#include <QToolButton>

namespace vemo_filesCenter {

/// The check box on a snapshot's picture: a dark ground of its own, so that it stands out from any picture.
class LocalSnapImageCheckBox final : public QCheckBox
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LocalSnapImageCheckBox)

public:
    static constexpr int extent = 26; ///< of what can be hit; the box is smaller

    explicit LocalSnapImageCheckBox(QWidget* parent);

protected:
    bool hitButton(const QPoint& pos) const override { return rect().contains(pos); }
    void paintEvent(QPaintEvent* event) override;
};

/// A button on a snapshot's picture: 30 px, its icon on a dark ground, filled while the pointer is over it.
class LocalSnapImageButton final : public QToolButton
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LocalSnapImageButton)

public:
    static constexpr int extent = 30;

    LocalSnapImageButton(const QString& iconName, const QString& tip, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const QString m_iconName;
};

} // namespace vemo_filesCenter
