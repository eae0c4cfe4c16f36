#include "PictureLoader.h"

#include "PictureFile.h"

#include <QRunnable>

#include <functional>

namespace vemo_base {

namespace {

class Load final : public QRunnable
{
public:
    explicit Load(std::function<void()> work)
        : m_work(std::move(work))
    {}

    void run() override { m_work(); }

private:
    const std::function<void()> m_work;
};

LoadedPicture load(const QString& path)
{
    const Picture read = PictureFile::read(path, PictureLoader::pixelLimit);
    LoadedPicture picture;
    if (!read.image.isNull())
        picture = LoadedPicture::of(read.image);
    picture.size = read.size;
    picture.error = read.error;
    return picture;
}

} // namespace

PictureLoader::PictureLoader(QObject* parent)
    : QObject(parent)
{
    m_thread.setMaxThreadCount(1);
}

PictureLoader::~PictureLoader()
{
    m_thread.waitForDone();
}

void PictureLoader::setFiles(const QStringList& paths)
{
    ++m_generation;
    m_files = paths;
    m_images.clear();
    m_kept.clear();
}

void PictureLoader::setImages(const QVector<QImage>& images)
{
    setFiles({});
    m_images = images;
}

void PictureLoader::show(int index)
{
    m_shown = index;
    const QVector<int> wanted = wishes();
    for (auto kept = m_kept.begin(); kept != m_kept.end();) {
        if (wanted.contains(kept.key()))
            ++kept;
        else
            kept = m_kept.erase(kept);
    }
    loadNext();
}

const LoadedPicture* PictureLoader::picture(int index) const
{
    const auto found = m_kept.constFind(index);
    return found == m_kept.constEnd() ? nullptr : &*found;
}

QVector<int> PictureLoader::wishes() const
{
    QVector<int> indexes;
    for (const int index : {m_shown, m_shown + 1, m_shown - 1}) {
        if (index >= 0 && index < count())
            indexes.append(index);
    }
    return indexes;
}

qint64 PictureLoader::keptBytes() const
{
    qint64 bytes = 0;
    for (const LoadedPicture& picture : m_kept)
        bytes += picture.bytes();
    return bytes;
}

void PictureLoader::loadNext()
{
    if (m_isLoading)
        return;
    const QVector<int> wanted = wishes();
    for (const int index : wanted) {
        if (m_kept.contains(index))
            continue;
        // The size of a neighbour is not known before it is decoded; half of the room is left for it.
        if (index != m_shown && keptBytes() > memoryLimitBytes / 2)
            return;
        m_isLoading = true;
        const QString path = m_files.value(index);
        const QImage image = m_images.value(index);
        m_thread.start(new Load([this, generation = m_generation, index, path, image] {
            const LoadedPicture picture = path.isEmpty() ? LoadedPicture::of(image) : load(path);
            QMetaObject::invokeMethod(
                this, [this, generation, index, picture] { keep(generation, index, picture); }, Qt::QueuedConnection);
        }));
        return;
    }
}

void PictureLoader::keep(int generation, int index, const LoadedPicture& picture)
{
    m_isLoading = false;
    if (generation == m_generation && wishes().contains(index)) {
        m_kept.insert(index, picture);
        emit signalLoaded(index);
    }
    loadNext();
}

} // namespace vemo_base
