#pragma once

#include "PictureFile.h"
#include "vemo_base_global.h"

#include <QImage>
#include <QObject>
#include <QSize>
#include <QStringList>

#include <memory>

namespace vemo_base {

/// Which thumbnail: of which file, for what box in pixels of the screen.
struct ThumbnailKey
{
    QString path; ///< absolute
    QSize box;
    PictureFit fit = PictureFit::Whole;

    bool operator==(const ThumbnailKey& other) const
    {
        return box == other.box && fit == other.fit && path == other.path;
    }
};
VEMO_BASE_EXPORT uint qHash(const ThumbnailKey& key, uint seed = 0);

struct Thumbnail
{
    enum class State : int { Unknown = 0, Ready, Unreadable };

    State state = State::Unknown;
    QImage image;      ///< fits the box, ready to be painted
    QSize pictureSize; ///< of the whole picture; empty when not known
};

/// Small pictures of image files and of recordings (their first key frame), for cards and icons. One object a process,
/// on the GUI thread, which never waits here: files are read and decoded on a few threads of low priority.
///
/// What is asked for last comes first, since that is what has just come into view; what leaves the view is withdrawn.
/// Results are kept in memory up to a limit and on the disk in the desktop's cache of thumbnails. A recording that is
/// still being written, and a file that can't be read, come back as unreadable.
class VEMO_BASE_EXPORT Thumbnails final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(Thumbnails)

public:
    enum class Priority : int {
        Later = 0, ///< will come into view soon
        Visible
    };

    static constexpr int memoryLimitBytes = 64 * 1024 * 1024;
    static constexpr int waitingLimit = 2048; ///< of those that wait, the oldest is let go

    static Thumbnails& instance();
    ~Thumbnails() override;

    /// What is in memory; state Unknown when nothing is.
    Thumbnail find(const ThumbnailKey& key) const;
    /// One of the file's, whatever its box; whole ones first.
    Thumbnail findAny(const QString& path) const;
    /// Answered by one signalThumbnail, also when it is in memory already; asked for twice, it moves to the front.
    void request(const ThumbnailKey& key, Priority priority = Priority::Visible);
    /// Nobody waits for it any more. One that is being decoded already is finished and kept.
    void withdraw(const ThumbnailKey& key);
    /// The files are others now, or have gone: forgets what is kept of them, in memory and on the disk.
    void forget(const QStringList& paths);
    int waitingCount() const;
    qint64 memoryBytes() const;

signals:
    void signalThumbnail(const vemo_base::ThumbnailKey& key, const vemo_base::Thumbnail& thumbnail);

private:
    class Private;

    explicit Thumbnails(QObject* parent);

    const std::unique_ptr<Private> d;
};

} // namespace vemo_base

Q_DECLARE_METATYPE(vemo_base::ThumbnailKey)
Q_DECLARE_METATYPE(vemo_base::Thumbnail)
