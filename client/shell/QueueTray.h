#pragma once

#include "QueueWatch.h"

#include <QObject>
#include <QSystemTrayIcon>
#include <QTimer>

namespace vemo_client {

/// The download queue outside the window: an icon in the tray while something is to be done, where there is a tray, and
/// a notification of the desktop when the queue has run empty. GUI thread.
class QueueTray final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(QueueTray)

public:
    explicit QueueTray(QueueWatch* queue, QObject* parent = nullptr);
    ~QueueTray() override;

    /// What is told of a queue that has run empty.
    static QString emptiedTitle(int done, int failed);
    static QString emptiedText(int failed);

signals:
    /// The person clicked the icon.
    void signalRaise();

private:
    void showFigures();
    void tellEmptied(int done, int failed);

    QueueWatch* m_queue;
    QSystemTrayIcon m_icon;
    QTimer m_leaveTimer; ///< a message of the icon goes with it
};

} // namespace vemo_client
