#pragma once

#include "LocalSnapImageCardsBox.h"

#include <QWidget>

class QCheckBox;
class QLabel;

namespace vemo_filesCenter {

/// The snapshots of one channel: its name with a check box for all of them, how many there are, and the cards. The
/// check box shows the cards' state; clicked, it checks or unchecks all. GUI thread, owned by the box of groups, which
/// uses it again for other channels.
class ChannelSnapImagesWt final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ChannelSnapImagesWt)

public:
    using Snapshot = LocalSnapImageCardsBox::Snapshot;

    explicit ChannelSnapImagesWt(QWidget* parent = nullptr);

    void setChannel(const QString& name, const QList<Snapshot>& snapshots);
    QString name() const { return m_name; }
    LocalSnapImageCardsBox* cards() const { return m_cards; }

signals:
    void signalRequestDeleteChannelSnapImagesWt(ChannelSnapImagesWt* group);

private:
    QString m_name;
    QCheckBox* m_channelName;
    QLabel* m_count;
    LocalSnapImageCardsBox* m_cards;
};

} // namespace vemo_filesCenter
