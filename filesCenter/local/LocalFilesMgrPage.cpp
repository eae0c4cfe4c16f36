#include "LocalFilesMgrPage.h"

#include "FileIconProvider.h"
#include "LocalFilesModel.h"
#include "ui_LocalFilesMgrPage.h"

#include "download/DiskWork.h"

#include <BaseTools.h>
#include <DictDef.h>
#include <DisabledWaitingWt.h>
#include <DisabledWaitingWtManager.h>
#include <DiskManager.h>
#include <EmptyStateWt.h>
#include <Icons.h>
#include <ImageViewerDlg.h>
#include <LocalPlaybackDlg.h>
#include <PageHeader.h>
#include <SystemAssistant.h>
#include <ToolsCollection.h>
#include <VCopyLocalFile.h>
#include <VFileDialog.h>
#include <VMessageBox.h>

#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMenu>
#include <QMimeData>
#include <QShortcut>
#include <QStandardPaths>
#include <QTimer>
#include <QUrl>

namespace vemo_filesCenter {

using VCOMMON::VCopyLocalFile;
using vemo_base::BaseTools;
using vemo_base::DisabledWaitingWt;
using vemo_base::DisabledWaitingWtManager;
using vemo_base::EmptyStateWt;

namespace {

constexpr qint64 bytesPerKib = 1024;
constexpr qint64 largeFromKib = 10240;
constexpr int percent = 100;
constexpr int countAfterMs = 100;
constexpr int lookAgainMs = 2000;
constexpr int diskPatienceMs = 100;
constexpr int separatorHeight = 24;
constexpr int questionBeforeDeed = 3;
constexpr int answerYes = 1;

enum Content : int { FilesContent = 0, NothingContent, NoHitContent, GoneContent };

void alert(const QString& text)
{
    vemo_worker::SystemAssistant::instance().messageAlert(vemo_worker::DictDef::titlePrompt(), text);
}

QString desktopDir()
{
    return QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
}

} // namespace

LocalFilesMgrPage::LocalFilesMgrPage(QWidget* parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::LocalFilesMgrPage>())
    , m_icons(std::make_unique<FileIconProvider>())
    , m_model(new LocalFilesModel(m_icons.get(), this))
    , m_copier(new VCopyLocalFile(QUuid::createUuid().toString(), this))
{
    m_ui->setupUi(this);
    setUpControls();
    setUpEmptyStates();
    setUpConnections();
    openDir(desktopDir());
}

LocalFilesMgrPage::~LocalFilesMgrPage()
{
    DisabledWaitingWtManager::instance().destroyDisabledWaitingWt(m_waiting);
    delete m_model; // before the icons that its thread asks
}

void LocalFilesMgrPage::setUpControls()
{
    m_header = new vemo_base::PageHeader(tr("Local Files"), this);
    m_ui->pageLayout->insertWidget(0, m_header);
    const auto setIcon = [](QPushButton* button, const char* name) {
        button->setIcon(vemo_base::Icons::icon(QLatin1String(name)));
    };
    setIcon(m_ui->openDirBt, "open-folder");
    setIcon(m_ui->deleteBt, "clean");
    setIcon(m_ui->saveAsBt, "save-as");
    m_ui->dirLabel->setForegroundRole(QPalette::PlaceholderText);
    m_ui->dir->addAction(vemo_base::Icons::icon(QStringLiteral("local-files")), QLineEdit::LeadingPosition);
    m_ui->separator->setForegroundRole(QPalette::Mid);
    m_ui->separator->setFixedHeight(separatorHeight);
    m_ui->listView->setModel(m_model);
}

void LocalFilesMgrPage::setUpEmptyStates()
{
    const auto add = [this](const char* icon, const QString& missing, const QString& advice, const QString& button) {
        auto* state = new EmptyStateWt(QLatin1String(icon), missing, advice, button, m_ui->content);
        state->setButtonSecondary();
        m_ui->content->addWidget(state);
        return state;
    };
    const EmptyStateWt* nothing =
        add("local-files", tr("There are no recordings or images in this folder."),
            tr("Files ending in mp4, jpg or png are shown. Open another folder."), tr("Open Dir"));
    const EmptyStateWt* noHit = add("filter", tr("No file matches the filter."),
                                    tr("The filter looks for a part of the file's name."), tr("Clear the filter"));
    const EmptyStateWt* gone =
        add("warning", tr("This folder is no longer there."),
            tr("It was removed, or its disk is not connected. Open another folder."), tr("Open Dir"));
    connect(nothing, &EmptyStateWt::signalButtonClicked, this, &LocalFilesMgrPage::chooseDir);
    connect(noHit, &EmptyStateWt::signalButtonClicked, m_ui->filterWt, &QLineEdit::clear);
    connect(gone, &EmptyStateWt::signalButtonClicked, this, &LocalFilesMgrPage::chooseDir);
}

void LocalFilesMgrPage::setUpConnections()
{
    connect(m_ui->openDirBt, &QPushButton::clicked, this, &LocalFilesMgrPage::chooseDir);
    connect(m_ui->filterWt, &QLineEdit::textChanged, m_model, &LocalFilesModel::setKeyword);
    connect(m_ui->filterWt, &QLineEdit::textChanged, this, &LocalFilesMgrPage::countLater);
    connect(m_ui->deleteBt, &QPushButton::clicked, this, &LocalFilesMgrPage::deleteFile);
    connect(m_ui->saveAsBt, &QPushButton::clicked, this, &LocalFilesMgrPage::saveFile);
    connect(m_ui->listView, &QListView::activated, this, &LocalFilesMgrPage::openFile);
    connect(m_ui->listView, &LocalFilesView::signalDeleteRequested, this, &LocalFilesMgrPage::deleteFile);
    connect(m_ui->listView, &LocalFilesView::signalMenuRequested, this, &LocalFilesMgrPage::openMenu);

    connect(m_model, &QAbstractItemModel::rowsInserted, this, &LocalFilesMgrPage::countLater);
    connect(m_model, &QAbstractItemModel::rowsRemoved, this, &LocalFilesMgrPage::countLater);
    connect(m_model, &QFileSystemModel::directoryLoaded, this, &LocalFilesMgrPage::countLater);
    connect(m_model, &LocalFilesModel::signalRemoveFailed, this, [] { alert(tr("Failed to delete file")); });

    connect(m_copier, &VCopyLocalFile::signalCopyFileProgress, this, [this](const QString&, qint64 done, qint64 total) {
        DisabledWaitingWtManager::instance().updateDisabledWaitingWtDescription(
            m_waiting, tr("Saving As:%1%").arg(total > 0 ? done * percent / total : 0));
    });
    connect(m_copier, &VCopyLocalFile::signalCopyFileFinished, this, [this](const QString&, const QString&, bool ok) {
        DisabledWaitingWtManager::instance().destroyDisabledWaitingWt(m_waiting);
        alert(ok ? tr("Save file as successful") : tr("Save file as failure"));
    });
    connect(m_copier, &VCopyLocalFile::signalCopyFileCancelled, this,
            [this] { DisabledWaitingWtManager::instance().destroyDisabledWaitingWt(m_waiting); });

    m_looking.setInterval(lookAgainMs);
    connect(&m_looking, &QTimer::timeout, this, [this] {
        if (isVisible())
            lookForDir();
    });
    m_looking.start();

    auto* find = new QShortcut(QKeySequence::Find, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(find, &QShortcut::activated, m_ui->filterWt, [this] {
        m_ui->filterWt->setFocus(Qt::ShortcutFocusReason);
        m_ui->filterWt->selectAll();
    });
}

void LocalFilesMgrPage::chooseDir()
{
    const QString dir = VCOMMON::VFileDialog::getExistingDirectory(BaseTools::instance().getRootParentWt(this),
                                                                   tr("Open Directory"), m_dir);
    if (dir.isEmpty() || (dir == m_dir && !m_isDirGone))
        return;
    auto isAvailable = std::make_shared<bool>(false);
    DiskWork::run(
        [dir, isAvailable] { *isAvailable = vemo_worker::DiskManager::instance().isPathAvailable(dir, true); }, this,
        [this, dir, isAvailable] {
            if (*isAvailable)
                openDir(dir);
        },
        diskPatienceMs);
}

void LocalFilesMgrPage::openDir(const QString& dir)
{
    m_dir = dir;
    m_isDirGone = false;
    m_ui->dir->setText(QDir::toNativeSeparators(dir));
    m_ui->dir->setToolTip(m_ui->dir->text());
    m_ui->listView->setRootIndex(m_model->openFolder(dir));
    countLater();
}

void LocalFilesMgrPage::openFile(const QModelIndex& index)
{
    QWidget* root = BaseTools::instance().getRootParentWt(this);
    const QString path = m_model->filePath(index);
    const QString name = m_model->fileName(index);
    if (FileIconProvider::isRecording(name)) {
        if (!m_playbackDlg)
            m_playbackDlg = new vemo_base::LocalPlaybackDlg(root);
        m_playbackDlg->setLocalVideoRecordingPath(path, {}, name);
        m_playbackDlg->showLocalPlaybackDlg();
        return;
    }
    if (!m_imageViewerDlg)
        m_imageViewerDlg = new vemo_base::ImageViewerDlg(root);
    m_imageViewerDlg->setImageFiles({path}, {name}, 0);
    m_imageViewerDlg->show();
}

void LocalFilesMgrPage::deleteFile()
{
    const QPersistentModelIndex index = m_ui->listView->currentIndex();
    if (!index.isValid()) {
        alert(tr("Please select a file to delete"));
        return;
    }
    const int answer = vemo_base::VMessageBox::question(
        BaseTools::instance().getRootParentWt(this), tr("Do you want to delete file:%1?").arg(m_model->fileName(index)),
        questionBeforeDeed, false);
    if (answer == answerYes && index.isValid())
        m_model->removeFile(index);
}

void LocalFilesMgrPage::saveFile()
{
    const QModelIndex index = m_ui->listView->currentIndex();
    if (!index.isValid()) {
        alert(tr("Please select a file to save as"));
        return;
    }
    const QString source = m_model->filePath(index);
    const QString name = m_model->fileName(index);
    const qint64 kib = m_model->size(index) / bytesPerKib;
    const QString filter = FileIconProvider::isRecording(name) ? tr("Video(*.mp4)") : tr("Images(*.jpg *.png)");
    const QString target = VCOMMON::VFileDialog::getSaveFileName(
        BaseTools::instance().getRootParentWt(this), tr("Save As"), desktopDir() + QLatin1Char('/') + name, filter);
    if (target.isEmpty())
        return;
    if (kib >= largeFromKib)
        copyLarge(source, target);
    else
        copySmall(source, target);
}

void LocalFilesMgrPage::copySmall(const QString& source, const QString& target)
{
    auto isCopied = std::make_shared<bool>(false);
    DiskWork::run([source, target, isCopied] { *isCopied = VCOMMON::ToolsCollection::copyFile(source, target); }, this,
                  [isCopied] {
                      if (!*isCopied)
                          alert(tr("Save file as failure"));
                  },
                  diskPatienceMs);
}

void LocalFilesMgrPage::copyLarge(const QString& source, const QString& target)
{
    auto* waiting = new DisabledWaitingWt(BaseTools::instance().getRootParentWt(this), tr("Saving As:%1%").arg(0),
                                          QDir::toNativeSeparators(target), true);
    m_waiting = waiting->getUuid();
    connect(waiting, &DisabledWaitingWt::signalCancelled, m_copier, &VCopyLocalFile::cancelCopyFile);
    waiting->show();
    if (!m_copier->copyFile(source, target))
        DisabledWaitingWtManager::instance().destroyDisabledWaitingWt(m_waiting);
}

void LocalFilesMgrPage::openMenu(const QModelIndex& index, const QPoint& globalPos)
{
    const QString path = m_model->filePath(index);
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [this, menu](const char* icon, const QString& text, auto act) {
        connect(menu->addAction(vemo_base::Icons::icon(QLatin1String(icon)), text), &QAction::triggered, this, act);
    };
    m_ui->listView->setCurrentIndex(index);
    add("open-file", tr("Open"), [this, at = QPersistentModelIndex(index)] {
        if (at.isValid())
            openFile(at);
    });
    add("open-folder", tr("Show in folder"), [path] { VCOMMON::ToolsCollection::openFolderAndSelectFile(path); });
    add("copy", tr("Copy"), [path] {
        auto* files = new QMimeData;
        files->setUrls({QUrl::fromLocalFile(path)});
        files->setText(QDir::toNativeSeparators(path));
        QGuiApplication::clipboard()->setMimeData(files);
    });
    menu->addSeparator();
    add("save-as", tr("Save AS"), [this] { saveFile(); });
    add("clean", tr("Delete"), [this] { deleteFile(); });
    menu->popup(globalPos);
}

void LocalFilesMgrPage::countLater()
{
    if (m_isCounting)
        return;
    m_isCounting = true;
    QTimer::singleShot(countAfterMs, this, [this] {
        m_isCounting = false;
        showContent();
    });
}

void LocalFilesMgrPage::showContent()
{
    const QModelIndex root = m_ui->listView->rootIndex();
    const int files = root.isValid() ? m_model->rowCount(root) : 0;
    int videos = 0;
    for (int row = 0; row < files; ++row)
        videos += FileIconProvider::isRecording(m_model->fileName(m_model->index(row, 0, root))) ? 1 : 0;
    const int images = files - videos;
    const bool isFiltered = !m_ui->filterWt->text().isEmpty();
    m_ui->content->setCurrentIndex(m_isDirGone  ? GoneContent
                                   : files > 0  ? FilesContent
                                   : isFiltered ? NoHitContent
                                                : NothingContent);
    const bool shows = files > 0 && !m_isDirGone;
    m_ui->deleteBt->setEnabled(shows);
    m_ui->saveAsBt->setEnabled(shows);
    m_header->setSummary(!shows ? QString()
                                : tr("%1: %2, %3")
                                      .arg(files == 1 ? tr("1 file") : tr("%1 files").arg(files),
                                           videos == 1 ? tr("1 video") : tr("%1 videos").arg(videos),
                                           images == 1 ? tr("1 image") : tr("%1 images").arg(images)));
    if (files == 0 && !m_isDirGone)
        lookForDir();
}

void LocalFilesMgrPage::lookForDir()
{
    if (m_isLooking)
        return;
    m_isLooking = true;
    auto isThere = std::make_shared<bool>(true);
    DiskWork::run([dir = m_dir, isThere] { *isThere = QFileInfo(dir).isDir(); }, this,
                  [this, dir = m_dir, isThere] {
                      m_isLooking = false;
                      if (dir != m_dir || *isThere != m_isDirGone)
                          return;
                      if (*isThere) {
                          openDir(dir); // its disk is connected again
                          return;
                      }
                      m_isDirGone = true;
                      showContent();
                  },
                  0);
}

} // namespace vemo_filesCenter
