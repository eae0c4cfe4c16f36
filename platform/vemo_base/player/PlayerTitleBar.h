#pragma once

#include <QWidget>

class QLabel;

namespace vemo_base {

/// The title bar of the player and the image viewer: what is shown, what is known of the file, and Close. Its window is
/// moved by it.
class PlayerTitleBar final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PlayerTitleBar)

public:
    static constexpr int barHeight = 48;

    explicit PlayerTitleBar(QWidget* parent = nullptr);

    void setIcon(const QString& iconName);
    void setTitle(const QString& title);
    /// Such as "1 gap, H.265 2560 x 1440, 1869.73 MB".
    void setFacts(const QString& facts);

signals:
    void signalCloseRequested();

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void elide();

    QString m_iconName = QStringLiteral("playback");
    QString m_title;
    QLabel* m_titleLabel;
    QLabel* m_factsLabel;
};

} // namespace vemo_base
