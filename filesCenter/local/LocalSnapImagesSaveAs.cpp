#include "LocalSnapImagesSaveAs.h"

#include "LocalSnapImageNames.h"

#include <BaseTools.h>
#include <DictDef.h>
#include <DisabledWaitingWt.h>
#include <DisabledWaitingWtManager.h>
#include <LocalSnapImageIndexes.h>
#include <SystemAssistant.h>
#include <ToolsCollection.h>
#include <VCopyLocalFiles.h>
#include <VFileDialog.h>

#include <QDir>
#include <QWidget>

namespace vemo_filesCenter {

using VCOMMON::VCopyLocalFiles;
using vemo_base::BaseTools;
using vemo_base::DisabledWaitingWt;
using vemo_base::DisabledWaitingWtManager;

namespace {

constexpr int mostFailuresTold = 8;

} // namespace

LocalSnapImagesSaveAs::LocalSnapImagesSaveAs(QWidget* page)
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
    connect(m_copier, &VCopyLocalFiles::signalCopyFilesFinished, this, [this] {
        unveil();
        VCOMMON::ToolsCollection::openFolder(m_saveAsDir);
        tellFailures();
    });
    connect(m_copier, &VCopyLocalFiles::signalCopyFilesCancelled, this, [this] {
        unveil();
        tellFailures();
    });
}

LocalSnapImagesSaveAs::~LocalSnapImagesSaveAs()
{
    unveil();
}

void LocalSnapImagesSaveAs::save(const QList<VCOMMON::LocalSnapImageIndexInfo>& snapshots)
{
    QWidget* root = BaseTools::instance().getRootParentWt(m_page);
    const QString folder = VCOMMON::VFileDialog::getExistingDirectory(root, tr("Select Save As Path"), m_saveAsDir);
    if (folder.isEmpty())
        return;
    m_saveAsDir = folder;
    m_failures.clear();
    QStringList sources;
    QStringList destinations;
    for (const VCOMMON::LocalSnapImageIndexInfo& snapshot : snapshots) {
        sources.append(snapshot.filePath);
        destinations.append(folder + QLatin1Char('/') + LocalSnapImageNames::fileName(snapshot));
    }
    auto* veil = new DisabledWaitingWt(root, QString(), QDir::toNativeSeparators(folder), true);
    m_reqId = veil->getUuid();
    connect(veil, &DisabledWaitingWt::signalCancelled, m_copier, &VCopyLocalFiles::cancelCopyFiles);
    showProgress(1, sources.size(), 0);
    veil->show();
    if (!m_copier->copyFiles(sources, destinations))
        unveil();
}

void LocalSnapImagesSaveAs::showProgress(int fileNumber, int fileCount, int percent)
{
    DisabledWaitingWtManager::instance().updateDisabledWaitingWtDescription(
        m_reqId, tr("Saving As:%1/%2(%3%)").arg(fileNumber).arg(fileCount).arg(percent));
}

void LocalSnapImagesSaveAs::noteFailure(const QString& source, const QString& reason)
{
    const auto info = VCOMMON::LocalSnapImageIndexes::instance().getLocalSnapImageIndexeInfo(source);
    QString text = tr("Save as file failed:%1(%2)")
                       .arg(LocalSnapImageNames::channelName(info), LocalSnapImageNames::captureTime(info));
    if (!reason.isEmpty())
        text += QLatin1Char('\n') + reason;
    m_failures.append(text);
}

void LocalSnapImagesSaveAs::tellFailures()
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

void LocalSnapImagesSaveAs::unveil()
{
    DisabledWaitingWtManager::instance().destroyDisabledWaitingWt(m_reqId);
    m_reqId = QUuid();
}

} // namespace vemo_filesCenter
