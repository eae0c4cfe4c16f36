#pragma once

#include <FolderLock.h>

#include <QLocalServer>
#include <QObject>

namespace vemo_client {

/// Sees to it that one window runs on a data folder. The first one takes the folder; another one finds it taken, asks
/// the first to come to the front, and is to end. The request reaches a first one that is busy once it is no more. GUI
/// thread.
class SingleWindow final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SingleWindow)

public:
    explicit SingleWindow(const QString& dataDir, QObject* parent = nullptr);
    ~SingleWindow() override;

    enum class Outcome : int {
        Unknown = 0,
        Taken,  ///< this window is the one
        Raised, ///< another one is, and was asked to come to the front
        Held,   ///< something without a window works on the folder, or the window there does not answer
    };
    Outcome take();

signals:
    void signalRaise();

private:
    QString m_name;
    QString m_lockPath;
    vemo_data::FolderLock m_lock;
    QLocalServer m_server;
};

} // namespace vemo_client
