#pragma once

#include "vemo_data_global.h"

#include <QDateTime>
#include <QHash>
#include <QMutex>
#include <QString>
#include <QThreadPool>
#include <QVariant>

namespace vemo_data {

/// The client's settings file, held in memory. It is read at the first use, and again when another process changed it;
/// changes are written in their order by a thread of its own, because a busy disk takes long to have them safely.
/// One object a process, any thread. The end of the application waits for what is still to be written.
class VEMO_DATA_EXPORT SettingsFile final
{
    Q_DISABLE_COPY_MOVE(SettingsFile)

public:
    static SettingsFile& instance();

    QVariant value(const QString& key, const QVariant& defaultValue = {}) const;
    void setValue(const QString& key, const QVariant& value);
    /// Waits until all changes are written.
    void flush();

private:
    /// How the file was when it was read.
    struct Look
    {
        QDateTime time;
        qint64 bytes = -1;
        bool operator==(const Look& other) const { return time == other.time && bytes == other.bytes; }
    };

    SettingsFile();
    static Look look(const QString& path);
    /// With the lock held.
    void refresh() const;

    mutable QMutex m_mutex;
    mutable QString m_path;
    mutable Look m_look;
    mutable QHash<QString, QVariant> m_values;
    int m_unwritten = 0;
    QThreadPool m_writer; ///< one thread
};

} // namespace vemo_data
