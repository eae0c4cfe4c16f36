#pragma once

#include <LocalRecordingIndexInfo.h>

#include <QHash>
#include <QObject>
#include <QStringList>
#include <QUuid>

class QWidget;

namespace VCOMMON {
class VCopyLocalFiles;
}

namespace vemo_filesCenter {

/// Copies local recordings into a folder that the person chooses, under names made of channel and times. Covers the
/// window meanwhile, with the progress and a button that ends it. What failed is told once a batch. One batch at a
/// time. GUI thread, owned by the page.
class LocalRecordingsSaveAs final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LocalRecordingsSaveAs)

public:
    struct Recording
    {
        QString filePath;
        QString channelName;
        QDateTime begin;
        QDateTime end;
    };

    explicit LocalRecordingsSaveAs(QWidget* page);
    ~LocalRecordingsSaveAs() override;

    /// Asks for the folder and begins. Returns when the folder was chosen.
    void save(const QList<Recording>& recordings);

private:
    void copy(const QList<Recording>& recordings);
    void showProgress(int fileNumber, int fileCount, int percent);
    void noteFailure(const QString& source, const QString& reason);
    void finish();
    void tellFailures();
    void unveil();

    QWidget* m_page;
    VCOMMON::VCopyLocalFiles* m_copier;
    QHash<QString, Recording> m_recordings; ///< of the batch, by source
    QStringList m_failures;                 ///< of the batch, a sentence each
    QString m_saveAsDir;
    QUuid m_veil;
};

} // namespace vemo_filesCenter
