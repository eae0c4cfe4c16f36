#pragma once

#include <QLocalServer>
#include <QLockFile>
#include <QObject>

namespace vemo_client {

/// Sees to it that one window runs on a data folder. The first one takes the folder; another one finds it taken, asks
/// the first to come to the front, and is to end. GUI thread.
class SingleWindow final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SingleWindow)

public:
    explicit SingleWindow(const QString& dataDir, QObject* parent = nullptr);
    ~SingleWindow() override;

    /// True: this window is the one. False: another one is, and was asked to come to the front.
    bool take();

signals:
    void signalRaise();

private:
    QString m_name;
    QLockFile m_lock;
    QLocalServer m_server;
};

} // namespace vemo_client
