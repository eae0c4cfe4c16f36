#pragma once

#include "vemo_base_global.h"

#include <QString>
#include <QTimer>
#include <QWidget>

namespace vemo_base {

/// How full the disk of a folder is: its name and figures, below them a bar with a mark where the disk gets low. Under
/// the mark the bar turns warning, under 1 GB error, and the words say it. The disk is asked on another thread, every
/// ten seconds while the bar is in view. GUI thread.
class VEMO_BASE_EXPORT DiskFreeSpaceBar final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DiskFreeSpaceBar)

public:
    explicit DiskFreeSpaceBar(QWidget* parent = nullptr);

    /// `markBytes` of free space is where the disk gets low.
    void setPath(const QString& path, qint64 markBytes);
    /// What is shown; for tests and for drawing without a disk.
    void setFigures(const QString& diskName, qint64 freeBytes, qint64 totalBytes);
    QString words() const { return m_words; }

    /// A disk's size or room as the client writes it: decimal gigabytes, or terabytes. Any thread.
    static QString sizeText(qint64 bytes);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void ask();

    QString m_path;
    qint64 m_markBytes = 0;
    qint64 m_freeBytes = -1; ///< -1: not known
    qint64 m_totalBytes = -1;
    QString m_words;
    bool m_isAsking = false;
    QTimer m_timer;
};

} // namespace vemo_base
