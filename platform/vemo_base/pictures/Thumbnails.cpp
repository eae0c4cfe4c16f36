#include "Thumbnails.h"

#include "ThumbnailMaker.h"
#include "ThumbnailStore.h"

#include <ThreadPriority.h>

#include <QCache>
#include <QCoreApplication>
#include <QMutex>
#include <QMutexLocker>
#include <QPointer>
#include <QRunnable>
#include <QSet>
#include <QThread>
#include <QThreadPool>
#include <QVector>

#include <functional>

namespace vemo_base {

namespace {

constexpr int emptyEntryBytes = 256;

class Job final : public QRunnable
{
public:
    explicit Job(std::function<void()> work)
        : m_work(std::move(work))
    {}

    void run() override
    {
        VCOMMON::lowerThreadPriority();
        m_work();
    }

private:
    const std::function<void()> m_work;
};

int costOf(const Thumbnail& thumbnail)
{
    return emptyEntryBytes + static_cast<int>(thumbnail.image.sizeInBytes());
}

} // namespace

uint qHash(const ThumbnailKey& key, uint seed)
{
    return ::qHash(key.path, seed) ^ ::qHash(key.box.width() * 31 + key.box.height(), seed) ^
           static_cast<uint>(key.fit);
}

class Thumbnails::Private final
{
public:
    explicit Private(Thumbnails* service);
    ~Private();

    void add(const ThumbnailKey& key, Priority priority);
    void remove(const ThumbnailKey& key);
    void discard(const QStringList& paths);
    int waiting() const;

    Thumbnails* const q;
    QCache<ThumbnailKey, Thumbnail> kept{memoryLimitBytes}; ///< GUI thread

private:
    void place(const ThumbnailKey& key, Priority priority);
    void work();
    bool takeNext(ThumbnailKey& key);
    void deliver(const ThumbnailKey& key, const Thumbnail& thumbnail);

    const ThumbnailStore m_store;
    QThreadPool m_threads;

    // Owned by m_mutex. The newest stands last.
    mutable QMutex m_mutex;
    QVector<ThumbnailKey> m_visible;
    QVector<ThumbnailKey> m_later;
    QSet<ThumbnailKey> m_running;
    QSet<ThumbnailKey> m_outdated; ///< of the running ones: forgotten meanwhile
    int m_workers = 0;
};

Thumbnails::Private::Private(Thumbnails* service)
    : q(service)
{
    m_threads.setMaxThreadCount(qMax(1, QThread::idealThreadCount()));
}

Thumbnails::Private::~Private()
{
    {
        const QMutexLocker lock(&m_mutex);
        m_visible.clear();
        m_later.clear();
    }
    m_threads.waitForDone();
}

void Thumbnails::Private::add(const ThumbnailKey& key, Priority priority)
{
    const QMutexLocker lock(&m_mutex);
    place(key, priority);
}

void Thumbnails::Private::place(const ThumbnailKey& key, Priority priority)
{
    m_visible.removeOne(key);
    m_later.removeOne(key);
    if (m_running.contains(key))
        return;
    QVector<ThumbnailKey>& keys = priority == Priority::Visible ? m_visible : m_later;
    keys.append(key);
    if (m_visible.size() + m_later.size() > waitingLimit)
        (m_later.isEmpty() ? m_visible : m_later).removeFirst();
    if (m_workers < m_threads.maxThreadCount()) {
        ++m_workers;
        m_threads.start(new Job([this] { work(); }));
    }
}

void Thumbnails::Private::remove(const ThumbnailKey& key)
{
    const QMutexLocker lock(&m_mutex);
    m_visible.removeOne(key);
    m_later.removeOne(key);
}

void Thumbnails::Private::discard(const QStringList& paths)
{
    const QSet<QString> gone(paths.cbegin(), paths.cend());
    const QList<ThumbnailKey> keys = kept.keys();
    for (const ThumbnailKey& key : keys) {
        if (gone.contains(key.path))
            kept.remove(key);
    }
    {
        const QMutexLocker lock(&m_mutex);
        for (const ThumbnailKey& key : qAsConst(m_running)) {
            if (gone.contains(key.path))
                m_outdated.insert(key);
        }
    }
    m_threads.start(new Job([this, paths] {
        for (const QString& path : paths)
            m_store.remove(path);
    }));
}

int Thumbnails::Private::waiting() const
{
    const QMutexLocker lock(&m_mutex);
    return m_visible.size() + m_later.size();
}

bool Thumbnails::Private::takeNext(ThumbnailKey& key)
{
    const QMutexLocker lock(&m_mutex);
    QVector<ThumbnailKey>& keys = m_visible.isEmpty() ? m_later : m_visible;
    if (keys.isEmpty()) {
        --m_workers;
        return false;
    }
    key = keys.takeLast();
    m_running.insert(key);
    return true;
}

void Thumbnails::Private::work()
{
    ThumbnailKey key;
    while (takeNext(key)) {
        const Thumbnail thumbnail = ThumbnailMaker::make(key, m_store);
        // The service outlives its threads, which its end waits for.
        QMetaObject::invokeMethod(
            q, [this, key, thumbnail] { deliver(key, thumbnail); }, Qt::QueuedConnection);
    }
}

void Thumbnails::Private::deliver(const ThumbnailKey& key, const Thumbnail& thumbnail)
{
    {
        const QMutexLocker lock(&m_mutex);
        m_running.remove(key);
        if (m_outdated.remove(key)) {
            place(key, Priority::Visible);
            return;
        }
    }
    kept.insert(key, new Thumbnail(thumbnail), costOf(thumbnail));
    emit q->signalThumbnail(key, thumbnail);
}

Thumbnails::Thumbnails(QObject* parent)
    : QObject(parent)
    , d(std::make_unique<Private>(this))
{}

Thumbnails::~Thumbnails() = default;

Thumbnails& Thumbnails::instance()
{
    // Goes with the application, whose event loop it needs.
    static QPointer<Thumbnails> service;
    if (!service)
        service = new Thumbnails(QCoreApplication::instance());
    return *service;
}

Thumbnail Thumbnails::find(const ThumbnailKey& key) const
{
    const Thumbnail* found = d->kept.object(key);
    return found ? *found : Thumbnail();
}

Thumbnail Thumbnails::findAny(const QString& path) const
{
    Thumbnail found;
    const QList<ThumbnailKey> keys = d->kept.keys();
    for (const ThumbnailKey& key : keys) {
        if (key.path == path && (found.state == Thumbnail::State::Unknown || key.fit == PictureFit::Whole))
            found = find(key);
    }
    return found;
}

void Thumbnails::request(const ThumbnailKey& key, Priority priority)
{
    const Thumbnail known = find(key);
    if (known.state == Thumbnail::State::Unknown) {
        d->add(key, priority);
        return;
    }
    QMetaObject::invokeMethod(
        this, [this, key, known] { emit signalThumbnail(key, known); }, Qt::QueuedConnection);
}

void Thumbnails::withdraw(const ThumbnailKey& key)
{
    d->remove(key);
}

void Thumbnails::forget(const QStringList& paths)
{
    d->discard(paths);
}

int Thumbnails::waitingCount() const
{
    return d->waiting();
}

qint64 Thumbnails::memoryBytes() const
{
    return d->kept.totalCost();
}

} // namespace vemo_base
