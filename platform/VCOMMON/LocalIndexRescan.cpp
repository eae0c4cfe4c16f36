#include "LocalIndexRescan.h"

#include "LocalSnapImageIndexes.h"
#include "scan/LocalFolderScan.h"
#include "ThreadPriority.h"

#include <DevsMgrData.h>

#include <QCoreApplication>
#include <QThread>

#include <utility>

namespace VCOMMON {

namespace {

KnownDevices knownDevices()
{
    const vemo_data::DevsMgrData& data = vemo_data::DevsMgrData::instance();
    KnownDevices known;
    QStringList doubled;
    const QStringList ids = data.devIds();
    for (const QString& id : ids) {
        const QString name = data.getDevInfoById(id).name;
        if (known.idByName.contains(name))
            doubled.append(name);
        known.idByName.insert(name, id);
        const QList<vms_sdk::ChannelInfo> channels = data.channels(id);
        for (const vms_sdk::ChannelInfo& channel : channels)
            known.channelsByDevId[id].insert(channel.name, channel.channelNo);
    }
    for (const QString& name : qAsConst(doubled))
        known.idByName.remove(name);
    known.idByName.remove(QString());
    return known;
}

} // namespace

/// The thread of one rescan. Whoever lets it go waits for its end.
class LocalIndexRescan::Run final
{
public:
    Run(const QStringList& folders, LocalIndexRescan* owner)
        : m_thread(QThread::create([this, folders, owner, devices = knownDevices()] {
            const auto takeSnapshots = [owner](const QList<LocalSnapImageIndexInfo>& records, const QStringList& gone) {
                QMetaObject::invokeMethod(
                    owner, [records, gone] { LocalSnapImageIndexes::instance().takeScanned(records, gone); },
                    Qt::QueuedConnection);
            };
            lowerThreadPriority();
            m_result = LocalFolderScan(devices, m_cancelled, takeSnapshots).scan(folders);
        }))
    {
        m_thread->setObjectName(QStringLiteral("local files"));
    }
    ~Run()
    {
        m_cancelled = true;
        m_thread->wait();
    }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    void start() { m_thread->start(); }
    void cancel() { m_cancelled = true; }
    QThread* thread() const { return m_thread.get(); }
    const LocalRescanResult& result() const { return m_result; } ///< when the thread is over

private:
    std::atomic<bool> m_cancelled{false}; ///< any thread
    LocalRescanResult m_result;           ///< the scan's thread, until it is over
    std::unique_ptr<QThread> m_thread;
};

LocalIndexRescan::LocalIndexRescan()
{
    qAddPostRoutine([] { LocalIndexRescan::instance().stop(); });
}

LocalIndexRescan::~LocalIndexRescan() = default;

LocalIndexRescan& LocalIndexRescan::instance()
{
    static LocalIndexRescan rescan;
    return rescan;
}

void LocalIndexRescan::start(const QStringList& folders)
{
    m_again = m_run != nullptr;
    m_folders = folders;
    if (!m_again)
        run();
}

void LocalIndexRescan::startIfOlder(const QStringList& folders, int ms)
{
    if (!m_run && (!m_sinceEnd.isValid() || m_sinceEnd.elapsed() >= ms))
        start(folders);
}

void LocalIndexRescan::cancel()
{
    m_again = false;
    if (m_run)
        m_run->cancel();
}

bool LocalIndexRescan::isRunning() const
{
    return m_run != nullptr;
}

void LocalIndexRescan::run()
{
    LocalSnapImageIndexes::instance(); // reads what is stored before more comes
    m_run = std::make_shared<Run>(m_folders, this);
    connect(
        m_run->thread(), &QThread::finished, this,
        [this, ended = m_run.get()] {
            if (ended != m_run.get())
                return;
            const std::shared_ptr<Run> over = std::exchange(m_run, nullptr);
            over->thread()->wait();
            m_sinceEnd.start();
            if (std::exchange(m_again, false))
                run();
            emit signalFinished(over->result());
        },
        Qt::QueuedConnection);
    m_run->start();
}

void LocalIndexRescan::stop()
{
    m_run.reset();
}

} // namespace VCOMMON
