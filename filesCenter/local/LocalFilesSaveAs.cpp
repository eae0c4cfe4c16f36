#include "LocalFilesSaveAs.h"

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
#include <utility>

namespace vemo_filesCenter {

using VCOMMON::VCopyLocalFiles;
using vemo_base::BaseTools;
using vemo_base::DisabledWaitingWt;
using vemo_base::DisabledWaitingWtManager;

namespace {

constexpr int diskPatienceMs = 100;
constexpr int mostFailuresTold = 8;

} // namespace

LocalFilesSaveAs::LocalFilesSaveAs(QWidget* page)
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
    connect(m_copier, &VCopyLocalFiles::signalCopyFilesFinished, this, &LocalFilesSaveAs::finish);
    connect(m_copier, &VCopyLocalFiles::signalCopyFilesCancelled, this, [this] {
        unveil();
        tellFailures();
    });
}

LocalFilesSaveAs::~LocalFilesSaveAs()
{
    unveil();
}

void LocalFilesSaveAs::save(const QList<File>& files, Describe describe)
{
    const QString folder =
        VCOMMON::VFileDialog::getExistingDirectory(BaseTools::instance().getRootParentWt(m_page),
                                                   tr("Select Save As Path"), m_saveAsDir, QFileDialog::ShowDirsOnly);
    if (folder.isEmpty())
        return;
    m_saveAsDir = folder;
    m_describe = std::move(describe);
    auto isAvailable = std::make_shared<bool>(false);
    DiskWork::run(
        [folder, isAvailable] { *isAvailable = vemo_worker::DiskManager::instance().isPathAvailable(folder, true); },
        this,
        [this, isAvailable, files] {
            if (*isAvailable)
                copy(files);
        },
        diskPatienceMs);
}

void LocalFilesSaveAs::copy(const QList<File>& files)
{
    m_failures.clear();
    QStringList sources;
    QStringList destinations;
    for (const File& file : files) {
        sources.append(file.path);
        destinations.append(m_saveAsDir + QLatin1Char('/') + file.copyName);
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

void LocalFilesSaveAs::showProgress(int fileNumber, int fileCount, int percent)
{
    DisabledWaitingWtManager::instance().updateDisabledWaitingWtDescription(
        m_veil, tr("Saving As:%1/%2(%3%)").arg(fileNumber).arg(fileCount).arg(percent));
}

void LocalFilesSaveAs::noteFailure(const QString& source, const QString& reason)
{
    const QPair<QString, QString> words = m_describe(source);
    QString text = tr("Save as file failed:%1(%2)").arg(words.first, words.second);
    if (!reason.isEmpty())
        text += QLatin1Char('\n') + reason;
    m_failures.append(text);
}

void LocalFilesSaveAs::finish()
{
    unveil();
    VCOMMON::ToolsCollection::openFolder(m_saveAsDir);
    tellFailures();
}

void LocalFilesSaveAs::tellFailures()
{
    if (m_failures.isEmpty())
        return;
    QStringList told = m_failures.mid(0, mostFailuresTold);
    if (m_failures.size() > told.size())
        told.append(tr("and %1 more").arg(m_failures.size() - told.size()));
    m_failures.clear();
    vemo_worker::SystemAssistant::instance().messageAlert(vemo_worker::DictDef::titleAlert(),
                                                          told.join(QLatin1Char('\n')));
}

void LocalFilesSaveAs::unveil()
{
    DisabledWaitingWtManager::instance().destroyDisabledWaitingWt(m_veil);
    m_veil = QUuid();
}

} // namespace vemo_filesCenter
