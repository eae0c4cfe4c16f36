#include "RemoveQuestion.h"

#include "RecorderLogins.h"

#include <DevsMgrData.h>
#include <VMessageBox.h>

#include <QCoreApplication>

namespace vemo_client {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("vemo_client::RemoveQuestion", text);
}

} // namespace

void RemoveQuestion::ask(RecorderLogins* logins, const QStringList& devIds, QWidget* parent)
{
    if (devIds.isEmpty())
        return;
    const vms_sdk::DevInfo info = vemo_data::DevsMgrData::instance().getDevInfoById(devIds.first());
    const QString name = !info.name.isEmpty() ? info.name : info.address.host();
    const bool isOne = devIds.size() == 1;
    const QString what = isOne
                             ? tr("%1 and its password are forgotten. Files, finished downloads and finished backups "
                                  "stay; downloads and backups of it that wait or have failed can't go on.")
                                   .arg(name)
                             : tr("%1 recorders and their passwords are forgotten. Files, finished downloads and "
                                  "finished backups stay; downloads and backups of them that wait or have failed can't "
                                  "go on.")
                                   .arg(devIds.size());
    auto* box = new vemo_base::VMessageBox(vemo_base::VMessageBox::Kind::DangerousQuestion,
                                           isOne ? tr("Remove the recorder") : tr("Remove the recorders"), what,
                                           tr("Remove"), parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(box, &QDialog::accepted, logins, [logins, devIds] {
        for (const QString& devId : devIds)
            logins->remove(devId);
    });
    box->open();
}

} // namespace vemo_client
