#include "LocalRecordingsSaveAs.h"

#include "SaveAsName.h"

#include "download/DiskWork.h"

#include <BaseTools.h>
#include <DictDef.h>
#include <DisabledWaitingWt.h>
#include <DisabledWaitingWtManager.h>
#include <DiskManager.h>
#include <SystemAssistant.h>
#include <ToolsCollection.h>
#include <VCopyLocalFiles.h>
#include <VFileDialog.h>

#include <QDir>
#include <QWidget>

#include <memory>

namespace vemo_filesCenter {

using VCOMMON::VCopyLocalFiles;
using vemo_base::BaseTools;
using vemo_base::DisabledWaitingWt;
using vemo_base::DisabledWaitingWtManager;

namespace {

constexpr int diskPatienceMs = 100;
constexpr int mostFailuresTold = 8;

} // namespace

LocalRecordingsSaveAs::LocalRecordingsSaveAs(QWidget* page)
    : QObject(page)
    , m_page(page)
    , m_copier(new VCopyLocalFiles(QUuid::createUuid().toString(), this))
{
    connect(m_copier, &VCopyLocalFiles::signalCopyFilesProgress, this,
            [this](const QString&, int fileNumber, int fileCount, int percent) {
                showProgress(fileNumber, fileCount, percent);
            });
    connect(m_copier, &VCopyLocalFiles::signalCopyFileFailed, this,
            [this](const QString&, const QString& source, const QString& reason) { noteFailure(source, reason); });
    connect(m_copier, &VCopyLocalFiles::signalCopyFilesFinished, this, &LocalRecordingsSaveAs::finish);
    connect(m_copier, &VCopyLocalFiles::signalCopyFilesCancelled, this, [this] {
        unveil();
        tellFailures();
    });
}

LocalRecordingsSaveAs::~LocalRecordingsSaveAs()
{
    unveil();
}

void LocalRecordingsSaveAs::save(const QList<Recording>& recordings)
{
    const QString folder =
        VCOMMON::VFileDialog::getExistingDirectory(BaseTools::instance().getRootParentWt(m_page),
                                                   tr("Select Save As Path"), m_saveAsDir, QFileDialog::ShowDirsOnly);
    if (folder.isEmpty())
        return;
    m_saveAsDir = folder;
    auto isAvailable = std::make_shared<bool>(false);
    DiskWork::run(
        [folder, isAvailable] { *isAvailable = vemo_worker::DiskManager::instance().isPathAvailable(folder, true); },
        this,
        [this, isAvailable, recordings] {
            if (*isAvailable)
                copy(recordings);
        },
        diskPatienceMs);
}

void LocalRecordingsSaveAs::copy(const QList<Recording>& recordings)
{
    m_recordings.clear();
    m_failures.clear();
    QStringList sources;
    QStringList destinations;
    for (const Recording& recording : recordings) {
        const QString times =
            SaveAsName::timeText(recording.begin) + QLatin1Char('~') + SaveAsName::timeText(recording.end);
        sources.append(recording.filePath);
        destinations.append(m_saveAsDir + QLatin1Char('/') +
                            SaveAsName::fileName(recording.channelName, times, QStringLiteral(".mp4")));
        m_recordings.insert(recording.filePath, recording);
    }
    auto* veil = new DisabledWaitingWt(BaseTools::instance().getRootParentWt(m_page), QString(),
                                       QDir::toNativeSeparators(m_saveAsDir), true);
    m_veil = veil->getUuid();
    connect(veil, &DisabledWaitingWt::signalCancelled, m_copier, &VCopyLocalFiles::cancelCopyFiles);
    showProgress(1, sources.size(), 0);
    veil->show();
    if (!m_copier->copyFiles(sources, destinations))
        unveil();
}

void LocalRecordingsSaveAs::showProgress(int fileNumber, int fileCount, int percent)
{
    DisabledWaitingWtManager::instance().updateDisabledWaitingWtDescription(
        m_veil, tr("Saving As:%1/%2(%3%)").arg(fileNumber).arg(fileCount).arg(percent));
}

void LocalRecordingsSaveAs::noteFailure(const QString& source, const QString& reason)
{
    const Recording recording = m_recordings.value(source);
    QString text = tr("Save as file failed:%1(%2)")
                       .arg(recording.channelName, BaseTools::instance().strTimeRange(recording.begin, recording.end));
    if (!reason.isEmpty())
        text += QLatin1Char('\n') + reason;
    m_failures.append(text);
}

void LocalRecordingsSaveAs::finish()
{
    unveil();
    VCOMMON::ToolsCollection::openFolder(m_saveAsDir);
    tellFailures();
}

void LocalRecordingsSaveAs::tellFailures()
{
    if (m_failures.isEmpty())
        return;
    QStringList told = m_failures.mid(0, mostFailuresTold);
    if (m_failures.size() > told.size())
        told.append(tr("and %n more", nullptr, m_failures.size() - told.size()));
    m_failures.clear();
    vemo_worker::SystemAssistant::instance().messageAlert(vemo_worker::DictDef::titleAlert(),
                                                          told.join(QLatin1Char('\n')));
}

void LocalRecordingsSaveAs::unveil()
{
    DisabledWaitingWtManager::instance().destroyDisabledWaitingWt(m_veil);
    m_veil = QUuid();
}

} // namespace vemo_filesCenter
