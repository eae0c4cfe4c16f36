#pragma once

#include "LoadedPicture.h"

#include <QHash>
#include <QObject>
#include <QStringList>
#include <QThreadPool>
#include <QVector>

namespace vemo_base {

/// Loads the pictures of a list as the viewer steps through it: the shown one, then the next and the one before, on a
/// thread of its own. Lives on the GUI thread. What is neither shown nor a neighbour is let go of, and a neighbour that
/// would pass the limit of memory is not loaded. Its end waits for the picture that is being decoded.
class PictureLoader final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PictureLoader)

public:
    static constexpr qint64 pixelLimit = 40'000'000; ///< larger pictures are scaled down while they are decoded
    static constexpr qint64 memoryLimitBytes = 320LL * 1024 * 1024;

    explicit PictureLoader(QObject* parent = nullptr);
    ~PictureLoader() override;

    void setFiles(const QStringList& paths);
    void setImages(const QVector<QImage>& images);
    int count() const { return m_files.isEmpty() ? m_images.size() : m_files.size(); }
    void show(int index);
    /// nullptr while it is not loaded.
    const LoadedPicture* picture(int index) const;

signals:
    void signalLoaded(int index);

private:
    void loadNext();
    void keep(int generation, int index, const LoadedPicture& picture);
    qint64 keptBytes() const;
    QVector<int> wishes() const; ///< in the order of loading

    QStringList m_files;
    QVector<QImage> m_images;
    QHash<int, LoadedPicture> m_kept;
    QThreadPool m_thread;
    int m_generation = 0; ///< of the list
    int m_shown = 0;
    bool m_isLoading = false;
};

} // namespace vemo_base
