#pragma once

#include "ExitCode.h"

#include <QDateTime>
#include <QSet>
#include <QString>

namespace vemo_client {

/// Where a download goes. Decides the path before anything is fetched and promises two things: nothing that is there is
/// overwritten, and no two downloads of one run get the same path.
class OutPath final
{
public:
    /// `out` as the person gave it; `several` when more than one file is to be made.
    OutPath(const QString& out, bool several);

    /// Checks the place, making the folder that was asked for; an outcome other than Done says what is wrong.
    Outcome prepare();

    /// The files get names of their own: `out` is a folder.
    bool namesItself() const { return m_isFolder; }

    /// The path for a file: `name` in the folder, or the file that was asked for; " (2)" and so on before ".mp4" when
    /// it is taken.
    QString take(const QString& name);

    /// Name of a download by the channel's and the device's name: "Gate
    /// North@Recorder_1@20260110080000~20260110083100@Device.mp4".
    static QString fileName(const QString& channelName, const QString& devLabel, int channelNo, const QDateTime& begin,
                            const QDateTime& end, const QString& location);

private:
    QString m_out;
    bool m_several = false;
    bool m_isFolder = false;
    QSet<QString> m_taken;
};

} // namespace vemo_client
