#pragma once

#include <QSize>
#include <QString>
#include <QVector>

namespace vemo_base {

struct PlayerChapter
{
    double startS = 0;
    QString title;
};

/// How a player stands and what it knows of its file. A plain value.
struct PlayerState
{
    enum class Phase : int { Empty = 0, Opening, Ready, Failed };

    Phase phase = Phase::Empty;
    QString error; ///< a sentence, when it failed

    double positionS = 0; ///< in the file's own time
    double durationS = 0;
    bool paused = false;
    bool atEnd = false;
    double speed = 1;
    int volume = 100;
    bool muted = false;

    QSize shownSize; ///< of the picture with square pixels; empty: no picture
    QSize codedSize;
    QString videoFormat; ///< as "h264"; empty: no picture
    QString audioFormat; ///< empty: no sound
    double framesPerSecond = 0;
    qint64 fileBytes = 0;

    // What the file tells of the recording; empty where it does not.
    QString recordingStart; ///< ISO 8601, UTC
    QString recordingEnd;
    QString creationTime;
    QVector<PlayerChapter> chapters;

    int factsVersion = 0; ///< changes with everything that the recording's clock depends on
};

} // namespace vemo_base
