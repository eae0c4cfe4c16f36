#pragma once

#include <LocalSnapImageIndexInfo.h>

#include <QList>
#include <QObject>
#include <QStringList>
#include <QUuid>

class QWidget;

namespace VCOMMON {
class VCopyLocalFiles;
}

namespace vemo_filesCenter {

/// Copies snapshots into a folder that the person chooses, under names made of channel and time. Covers the window
/// meanwhile, with the progress and a button that ends it; shows the folder at the end. What failed is told once a
/// batch. One batch at a time. GUI thread, owned by the page.
class LocalSnapImagesSaveAs final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LocalSnapImagesSaveAs)

public:
    explicit LocalSnapImagesSaveAs(QWidget* page);
    ~LocalSnapImagesSaveAs() override;

    /// Asks for the folder and begins. Returns when the folder was chosen.
    void save(const QList<VCOMMON::LocalSnapImageIndexInfo>& snapshots);

private:
    void showProgress(int fileNumber, int fileCount, int percent);
    void noteFailure(const QString& source, const QString& reason);
    void tellFailures();
    void unveil();

    QWidget* const m_page;
    VCOMMON::VCopyLocalFiles* const m_copier;
    QStringList m_failures; ///< of the batch, a sentence each
    QString m_saveAsDir;
    QUuid m_reqId; ///< of the batch: its waiting widget's
};

} // namespace vemo_filesCenter
