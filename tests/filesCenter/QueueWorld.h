#pragma once

#include "../platform/TestWorld.h"
#include "FakeSdks.h"

#include <DownloadTaskInfo.h>

#include <QFile>
#include <QHash>
#include <QStringList>

#include <memory>

/// A client without a person and without a recorder, for tests of the three task tables: a store, a download folder and
/// two devices of its own ("dev" and "dev2", with every channel), alerts and questions noted and answered.
class QueueWorld final
{
public:
    QueueWorld();
    ~QueueWorld();

    QueueWorld(const QueueWorld&) = delete;
    QueueWorld& operator=(const QueueWorld&) = delete;

    static QDateTime at(int hour, int minute = 0, int second = 0);
    /// A task of a day of "dev", by time range, waiting, eight to nine.
    static vemo_data::DownloadTaskInfo task(const QString& key, int channel = 1);

    QString folder() const { return m_folder; }
    QString filePath(const QString& name) const { return m_folder + QLatin1Char('/') + name; }
    QString writeFile(const QString& path, int bytes = 2000) const;
    /// A finished recording file that says which span it holds; an invalid end: still open.
    QString writeRecording(const QString& path, const QDateTime& begin, const QDateTime& end) const;

    /// The stored tasks by key, all writes included.
    static QHash<QString, vemo_data::DownloadTaskInfo> stored();
    /// Stores the tasks and waits until they are announced.
    static void store(const QList<vemo_data::DownloadTaskInfo>& tasks);
    /// Waits until the store has carried out and announced everything.
    static void settle();

    FakeSdks& sdks = FakeSdks::instance();
    QStringList alerts;
    QStringList questions;
    int answer = 1; ///< to every question
    std::function<void()> whileAsked;

private:
    TestWorld m_world;
    QString m_folder;
};
