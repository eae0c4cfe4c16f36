#pragma once

#include "QueueWatch.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

class QLabel;

namespace vemo_client {

class StatusItem;

/// The bar below everything: the download queue, the rate of all downloads, the disk that downloads go to; at the
/// trailing end the recorders that are offline and the clock with its offset. A click leads to what an item speaks of.
/// GUI thread; the disk is asked on a thread of the pool, because it may be a slow or a lost one.
class StatusBar final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(StatusBar)

public:
    explicit StatusBar(QWidget* parent = nullptr);

    void showQueue(const QueueWatch::Figures& figures);
    void showRecorders(int offline, int all);

signals:
    void signalQueueClicked();
    void signalOfflineClicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private slots:
    void slotDownloadBitRate(qint64 kbitPerSecond);
    void slotDownloadTimeLeft(qint64 seconds);

private:
    void tick();
    void showWords();
    void showClock();
    void askDisk();
    void showDisk(const QString& name, qint64 freeBytes, qint64 totalBytes);
    void openDownloadFolder();

    StatusItem* m_queue = nullptr;
    StatusItem* m_rate = nullptr;
    QString m_rateText;
    QString m_leftText;
    StatusItem* m_disk = nullptr;
    QString m_diskWords;
    QString m_diskShortWords;
    double m_diskFraction = -1;
    StatusItem* m_offline = nullptr;
    QLabel* m_clock = nullptr;
    bool m_showsDate = true;
    QTimer m_tickTimer;
    QTimer m_diskTimer;
    QElapsedTimer m_sinceRate;
    bool m_askingDisk = false;
};

} // namespace vemo_client
