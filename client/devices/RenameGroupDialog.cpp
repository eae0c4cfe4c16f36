#include "RenameGroupDialog.h"

#include <DevsMgrData.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVariant>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

constexpr int dialogWidth = 440;
constexpr int longestName = 64;

} // namespace

RenameGroupDialog::RenameGroupDialog(const QString& group, QWidget* parent)
    : TitledDialog(tr("Rename the group"), tr("All recorders of the group go along."), dialogWidth, parent)
    , m_from(group)
    , m_name(new QLineEdit(group, this))
    , m_words(new QLabel(this))
    , m_rename(new QPushButton(tr("Rename"), this))
{
    m_name->setAccessibleName(tr("Name of the group"));
    m_name->setMaxLength(longestName);
    m_name->selectAll();
    m_words->setForegroundRole(QPalette::PlaceholderText);
    m_words->setWordWrap(true);
    body()->addWidget(m_name);
    body()->addWidget(m_words);
    m_rename->setProperty("kind", QStringLiteral("primary"));
    m_rename->setDefault(true);
    buttons()->addWidget(m_rename);
    connect(m_rename, &QPushButton::clicked, this, &RenameGroupDialog::accept);
    connect(m_name, &QLineEdit::textChanged, this, &RenameGroupDialog::check);
    check();
    m_name->setFocus(Qt::TabFocusReason);
}

void RenameGroupDialog::check()
{
    const QString name = m_name->text().simplified();
    const bool isTaken = name != m_from && vemo_data::DevsMgrData::instance().groups().contains(name);
    m_words->setText(isTaken ? tr("There is a group of this name; the two become one.") : QString());
    m_rename->setEnabled(!name.isEmpty() && name != m_from);
}

void RenameGroupDialog::accept()
{
    vemo_data::DevsMgrData::instance().renameGroup(m_from, m_name->text());
    TitledDialog::accept();
}

} // namespace vemo_client
