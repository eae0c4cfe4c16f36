#include "FolderEdit.h"

#include <DiskCall.h>
#include <DiskFreeSpaceBar.h>
#include <Icons.h>

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVariant>

namespace vemo_client {

namespace {

using vemo_worker::DiskCall;
using vemo_worker::FolderCheck;

constexpr int fieldWidth = 400;
constexpr int leastFieldWidth = 160;
constexpr int longestPath = 4096;
constexpr int gap = 8;
constexpr int diskGap = 20;
constexpr int diskWidth = 236;
constexpr int widthForDisk = 560;

} // namespace

FolderEdit::FolderEdit(const QString& name, qint64 lowBytes, SettingField* field)
    : QWidget(field)
    , m_field(field)
    , m_path(new QLineEdit(this))
    , m_make(new QPushButton(vemo_base::Icons::icon(QStringLiteral("add")), tr("Make folder"), this))
    , m_disk(new vemo_base::DiskFreeSpaceBar(this))
    , m_name(name)
    , m_lowBytes(lowBytes)
{
    QAction* icon =
        m_path->addAction(vemo_base::Icons::icon(QStringLiteral("local-files")), QLineEdit::LeadingPosition);
    icon->setToolTip(name);
    m_path->setMaxLength(longestPath);
    m_path->setMaximumWidth(fieldWidth);
    m_path->setMinimumWidth(leastFieldWidth);
    m_path->setAccessibleName(name);
    m_path->setLayoutDirection(Qt::LeftToRight); // a path is never mirrored
    auto* browseBt = new QPushButton(vemo_base::Icons::icon(QStringLiteral("open-folder")), tr("Browse"), this);
    browseBt->setAccessibleName(tr("Browse: %1").arg(name));
    m_make->hide();
    m_disk->setMaximumWidth(diskWidth);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(gap);
    layout->addWidget(m_path, 10);
    layout->addWidget(browseBt);
    layout->addWidget(m_make);
    layout->addSpacing(diskGap);
    layout->addWidget(m_disk, 6);
    layout->addStretch(1);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFocusProxy(m_path);
    connect(browseBt, &QPushButton::clicked, this, &FolderEdit::browse);
    connect(m_make, &QPushButton::clicked, this, &FolderEdit::make);
    connect(m_path, &QLineEdit::textEdited, this, &FolderEdit::signalEdited);
    connect(m_path, &QLineEdit::editingFinished, this, &FolderEdit::takeText);
}

QString FolderEdit::folder() const
{
    return QDir::fromNativeSeparators(m_path->text().trimmed());
}

void FolderEdit::setFolder(const QString& folder)
{
    m_path->setText(QDir::toNativeSeparators(folder));
    m_path->setCursorPosition(0);
    m_path->setToolTip(m_path->text());
    if (isVisible())
        takeText();
}

void FolderEdit::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    check();
}

void FolderEdit::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    showDisk();
}

/// The path goes before the figures of its disk.
void FolderEdit::showDisk()
{
    m_disk->setVisible(m_hasDisk && width() >= widthForDisk);
}

void FolderEdit::browse()
{
    const QString chosen = QFileDialog::getExistingDirectory(this, m_name, folder());
    if (chosen.isEmpty())
        return;
    setFolder(chosen);
    emit signalEdited();
}

void FolderEdit::make()
{
    m_path->setFocus();
    const auto work = [folder = folder(), this](const std::atomic<bool>&) -> DiskCall::Answer {
        const bool isMade = QDir().mkpath(folder);
        return [this, isMade] { takeMade(isMade); };
    };
    DiskCall::start(this, FolderCheck::giveUpMs, work, [this] { takeMade(false); });
}

void FolderEdit::takeMade(bool isMade)
{
    if (isMade)
        check();
    else
        m_field->tell(SettingField::Tone::Error, tr("The folder can't be made here. Choose another one."));
}

void FolderEdit::takeText()
{
    if (folder() != m_checked)
        check();
}

void FolderEdit::check()
{
    m_checked = folder();
    const int number = ++m_checks;
    m_disk->setPath(m_checked, m_lowBytes);
    FolderCheck::start(m_checked, this, [this, number](const FolderCheck::Result& result) {
        if (number == m_checks)
            take(result);
    });
}

void FolderEdit::take(const FolderCheck::Result& result)
{
    using Tone = SettingField::Tone;
    m_make->setVisible(result.state == FolderCheck::State::Missing);
    m_hasDisk = result.state != FolderCheck::State::NotAFolder && result.state != FolderCheck::State::NotConnected;
    showDisk();
    m_path->setProperty("invalid", !result.isUsable());
    m_path->update();
    m_field->tell(result.isUsable() ? Tone::Warning : Tone::Error, result.sentence);
    emit signalEdited();
}

} // namespace vemo_client
