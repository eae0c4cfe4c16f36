#pragma once

#include <VmsTypes.h>

#include <QObject>
#include <QVector>

namespace vemo_client {

/// Looks which recorders answer on the networks of this computer, and whether they are known. A known recorder is
/// recognised by its address, and wherever it answers by its endpoint, which is learned when it is first found. GUI
/// thread; the answers come by the event loop.
class NetworkSearch final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(NetworkSearch)

public:
    enum class Standing : int {
        Unknown = 0,
        New,
        Known,
        Moved, ///< a known recorder that answers at another address than the stored one
    };

    struct Found
    {
        vms_sdk::DiscoveredDev dev;
        Standing standing = Standing::Unknown;
        QUrl address;  ///< to add it by; for Moved: to find it by
        QString devId; ///< of the known recorder
    };

    static constexpr int durationMs = 4000;
    static constexpr int mostFound = 1000;

    explicit NetworkSearch(QObject* parent = nullptr);
    ~NetworkSearch() override;

    /// Begins anew, also while one runs.
    void start();
    bool isRunning() const { return !m_requestId.isEmpty(); }
    const QVector<Found>& found() const { return m_found; }
    /// Judges what was found once more: a recorder was added or moved since.
    void judgeAgain();

    static Found judge(const vms_sdk::DiscoveredDev& dev);

signals:
    void signalFound();
    /// With what kept the networks from being asked.
    void signalFinished(const vms_sdk::Error& error);

private:
    void takeDiscovered(const QString& requestId, const vms_sdk::DiscoveredDev& dev);
    void takeFinished(const QString& requestId, const vms_sdk::Error& error);

    QString m_requestId;
    QVector<Found> m_found;
};

} // namespace vemo_client
