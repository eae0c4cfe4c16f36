#include "FilesCenterForm.h"

#include "download/DownloadManager.h"
#include "download/DownloadSignals.h"
#include "ui_FilesCenterForm.h"

#include <ModuleAccess.h>
#include <SystemWorker.h>

namespace vemo_filesCenter {

namespace {

enum PageIndex : int {
    DownloadingPage = 0,
    DownloadSuccessPage = 1,
    DownloadFailurePage = 2,
    LocalRecordingsPage = 3,
    LocalSnapImagesPage = 4,
    LocalFilesPage = 5,
    RecordingsBackupPage = 6,
};

enum SubPage : int { LocalRecordingSubPage = 0, DownloadingSubPage = 1 };

bool hasPower(int power)
{
    return vemo_worker::SystemWorker::instance().isCurUserHasPower(power);
}

vemo_base::NavigationActionInfo icons(const QString& name)
{
    const QString path = QStringLiteral(":/filesCenter_images/images/") + name;
    return {path + QStringLiteral("_n.png"), path + QStringLiteral("_h.png")};
}

QString downloadingKey()
{
    return QStringLiteral("downloading");
}

QString successKey()
{
    return QStringLiteral("download_success");
}

QString failureKey()
{
    return QStringLiteral("download_failure");
}

QString localRecordingKey()
{
    return QStringLiteral("local_recording");
}

QString counted(const QString& text, int count)
{
    return text.arg(count, 0, 10, QLatin1Char(' '));
}

} // namespace

FilesCenterForm::FilesCenterForm(QWidget* parent)
    : BaseForm(vemo_base::FilesCenterFormType, parent)
    , m_ui(std::make_unique<Ui::FilesCenterForm>())
{
    m_ui->setupUi(this);
    setUpNavigation();
    setUpConnections();
    if (hasPower(vemo_worker::PowerDownload))
        DownloadManager::instance().loadTasks();
}

FilesCenterForm::~FilesCenterForm() = default;

void FilesCenterForm::setUpNavigation()
{
    vemo_base::NavigationWidget* navigation = m_ui->navigationWt;
    const auto addPage = [this, navigation](const QString& key, const QString& text, int page) {
        navigation->addNavigationBar(key, text, icons(key), {}, this);
        m_pageIndexByKey.insert(key, page);
    };

    const bool mayDownload = hasPower(vemo_worker::PowerDownload);
    if (mayDownload) {
        const QString group = QStringLiteral("download_mgr");
        navigation->addNavigationBar(group, tr("Download Mgr"), icons(group),
                                     {{downloadingKey(), tr("Downloading"), {}},
                                      {successKey(), tr("Download Success"), {}},
                                      {failureKey(), tr("Download Failure"), {}}},
                                     this);
        m_pageIndexByKey.insert(downloadingKey(), DownloadingPage);
        m_pageIndexByKey.insert(successKey(), DownloadSuccessPage);
        m_pageIndexByKey.insert(failureKey(), DownloadFailurePage);
    }
    if (hasPower(vemo_worker::PowerLocalRecordings))
        addPage(localRecordingKey(), tr("Local Recording"), LocalRecordingsPage);
    if (hasPower(vemo_worker::PowerLocalSnapshots))
        addPage(QStringLiteral("local_snapshot"), tr("Local Snapshot"), LocalSnapImagesPage);
    addPage(QStringLiteral("local_files"), tr("Local Files"), LocalFilesPage);
    if (mayDownload)
        addPage(QStringLiteral("recordings_backup"), tr("Recordings Backup"), RecordingsBackupPage);

    showPage(navigation->setDefaultAction(downloadingKey()));
}

void FilesCenterForm::setUpConnections()
{
    connect(&vemo_contact::ModuleAccess::instance(), &vemo_contact::ModuleAccess::signalSwitchToSubPageInFilesCenter,
            this, &FilesCenterForm::switchToSubPage);
    connect(m_ui->navigationWt, &vemo_base::NavigationWidget::signalCurAction, this, &FilesCenterForm::showPage);

    const DownloadSignals& downloads = DownloadSignals::instance();
    connect(&downloads, &DownloadSignals::signalDownloadingTasksCnt, this, &FilesCenterForm::setDownloadingTitle);
    connect(&downloads, &DownloadSignals::signalSuccessTasksCnt, this, &FilesCenterForm::setDownloadSuccessTitle);
    connect(&downloads, &DownloadSignals::signalFailedTasksCnt, this, &FilesCenterForm::setDownloadFailureTitle);
}

void FilesCenterForm::showPage(const QString& key)
{
    const auto found = m_pageIndexByKey.constFind(key);
    if (found != m_pageIndexByKey.constEnd())
        m_ui->stackedWidget->setCurrentIndex(*found);
}

void FilesCenterForm::switchToSubPage(int subPage)
{
    if (subPage == LocalRecordingSubPage && hasPower(vemo_worker::PowerLocalRecordings))
        m_ui->navigationWt->setCurAction(localRecordingKey());
    else if (subPage == DownloadingSubPage && hasPower(vemo_worker::PowerDownload))
        m_ui->navigationWt->setCurAction(downloadingKey());
}

void FilesCenterForm::setDownloadingTitle(int count)
{
    m_ui->navigationWt->setActionText(downloadingKey(), counted(tr("Downloading(%1)"), count));
}

void FilesCenterForm::setDownloadSuccessTitle(int count)
{
    m_ui->navigationWt->setActionText(successKey(), counted(tr("Download Success(%1)"), count));
}

void FilesCenterForm::setDownloadFailureTitle(int count)
{
    m_ui->navigationWt->setActionText(failureKey(), counted(tr("Download Failure(%1)"), count));
}

} // namespace vemo_filesCenter
