#include "FolderField.h"

#include "MessageLine.h"

#include <DiskFreeSpaceBar.h>
#include <FolderCheck.h>
#include <Icons.h>

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVariant>
#include <QVBoxLayout>

#include <utility>

namespace vemo_client {

using vemo_base::DiskFreeSpaceBar;
using vemo_worker::FolderCheck;

FolderField::FolderField(const QString& name, Get get, Set set, QWidget* parent)
    : QWidget(parent)
    , m_name(name)
    , m_get(std::move(get))
    , m_set(std::move(set))
    , m_path(new QLineEdit(this))
    , m_message(new MessageLine(this))
{
    QAction* folder =
        m_path->addAction(vemo_base::Icons::icon(QStringLiteral("local-files")), QLineEdit::LeadingPosition);
    folder->setToolTip(name);
    m_path->setAccessibleName(name);
    auto* browse = new QPushButton(vemo_base::Icons::icon(QStringLiteral("open-folder")), tr("Browse"), this);
    browse->setAccessibleName(tr("Browse: %1").arg(name));
    auto* row = new QHBoxLayout;
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    row->addWidget(m_path, 1);
    row->addWidget(browse);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    layout->addLayout(row);
    layout->addWidget(m_message);
    setFocusProxy(m_path);
    connect(browse, &QPushButton::clicked, this, &FolderField::browse);
    connect(m_path, &QLineEdit::editingFinished, this, [this] {
        if (QDir::fromNativeSeparators(m_path->text().trimmed()) != m_get())
            check();
    });
}

void FolderField::refresh()
{
    m_path->setText(QDir::toNativeSeparators(m_get()));
    check();
}

void FolderField::browse()
{
    const QString folder = QFileDialog::getExistingDirectory(this, m_name, m_get());
    if (folder.isEmpty())
        return;
    m_path->setText(QDir::toNativeSeparators(folder));
    check();
}

void FolderField::check()
{
    const QString folder = QDir::fromNativeSeparators(m_path->text().trimmed());
    const int number = ++m_checks;
    m_path->setToolTip(m_path->text());
    FolderCheck::start(folder, this, [this, folder, number](const FolderCheck::Result& result) {
        if (number != m_checks)
            return;
        m_isUsable = result.isUsable();
        m_path->setProperty("invalid", !m_isUsable);
        m_path->update();
        const QString room =
            tr("%1 free of %2")
                .arg(DiskFreeSpaceBar::sizeText(result.freeBytes), DiskFreeSpaceBar::sizeText(result.totalBytes));
        if (!m_isUsable)
            m_message->tell(MessageLine::Tone::Error, result.sentence);
        else if (!result.sentence.isEmpty())
            m_message->tell(MessageLine::Tone::Warning, result.sentence);
        else
            m_message->tell(MessageLine::Tone::Plain, room, QStringLiteral("disk"));
        if (m_isUsable && folder != m_get())
            m_set(folder);
        emit signalChecked();
    });
}

} // namespace vemo_client
