#include "GroupDialog.h"

#include <DevsMgrData.h>

#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVariant>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

constexpr int dialogWidth = 440;
constexpr int longestName = 64;

} // namespace

GroupDialog::GroupDialog(const QStringList& devIds, QWidget* parent)
    : TitledDialog(tr("Group"), QString(), dialogWidth, parent)
    , m_devIds(devIds)
    , m_group(new QComboBox(this))
{
    const vemo_data::DevsMgrData& devices = vemo_data::DevsMgrData::instance();
    setSentence(
        devIds.size() == 1
            ? tr("The recorder is listed below this group. An empty name takes it out of any.")
            : tr("%1 recorders are listed below this group. An empty name takes them out of any.").arg(devIds.size()));
    m_group->setEditable(true);
    m_group->addItem(QString());
    m_group->addItems(devices.groups());
    m_group->setCurrentText(devices.devRecord(devIds.value(0)).group);
    m_group->setAccessibleName(tr("Name of the group"));
    m_group->lineEdit()->setMaxLength(longestName);
    m_group->lineEdit()->selectAll();
    body()->addWidget(m_group);
    auto* apply = new QPushButton(tr("Apply"), this);
    apply->setProperty("kind", QStringLiteral("primary"));
    apply->setDefault(true);
    buttons()->addWidget(apply);
    connect(apply, &QPushButton::clicked, this, &GroupDialog::accept);
    m_group->setFocus(Qt::TabFocusReason);
}

void GroupDialog::accept()
{
    for (const QString& devId : qAsConst(m_devIds))
        vemo_data::DevsMgrData::instance().setGroup(devId, m_group->currentText());
    TitledDialog::accept();
}

} // namespace vemo_client
