#pragma once

#include "VideoTileWt.h"

class QHBoxLayout;

namespace vemo_client {

/// The buttons of a tile on a dark ground. Made anew when their names change, changed in place otherwise. GUI thread,
/// child of its tile.
class TileActionsWt final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TileActionsWt)

public:
    explicit TileActionsWt(QWidget* parent);

    void setActions(const QVector<VideoTileWt::Action>& actions);
    bool isEmpty() const { return m_actions.isEmpty(); }
    /// One of its buttons has the focus.
    bool holdsFocus() const;

signals:
    void signalAction(const QString& id);
    void signalFocusChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QVector<VideoTileWt::Action> m_actions;
    QVector<QWidget*> m_buttons;
    QHBoxLayout* m_layout;
};

} // namespace vemo_client
