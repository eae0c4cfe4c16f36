#pragma once

#include <QtGlobal>

class QFileDevice;

namespace VCOMMON {

/// Keeps the part of a growing file that is not on the disk yet bounded, so that the sync at its end, and whatever else
/// writes to the disk, never waits for gigabytes. For the thread that writes. Without effect where the system has no
/// call for it.
class WriteBehind final
{
    Q_DISABLE_COPY_MOVE(WriteBehind)

public:
    explicit WriteBehind(QFileDevice& file)
        : m_file(file)
    {}

    /// To be called as the file grows from its beginning; waits when the disk is behind. False when the disk refused
    /// something, the system's error code tells what.
    bool advance(qint64 writtenBytes);

private:
    static constexpr qint64 stepBytes = 1024 * 1024;
    static constexpr qint64 limitBytes = 32 * 1024 * 1024;

    QFileDevice& m_file;
    qint64 m_startedBytes = 0;
    qint64 m_settledBytes = 0;
};

} // namespace VCOMMON
