#include "DeviceListBt.h"

#include "DeviceListFile.h"
#include "RecorderLogins.h"

#include <DevsMgrData.h>
#include <DiskCall.h>
#include <Icons.h>
#include <Notices.h>
#include <VMessageBox.h>

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QMenu>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>

namespace vemo_client {

namespace {

using vemo_base::Notice;
using vemo_base::VMessageBox;
using vemo_worker::DiskCall;

constexpr int diskMs = 20'000;
constexpr int iconExtent = 20;

void tell(Notice::Kind kind, const QString& title, const QString& text)
{
    Notice notice;
    notice.kind = kind;
    notice.title = title;
    notice.text = text;
    vemo_base::Notices::instance().add(notice);
}

QString firstFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

} // namespace

DeviceListBt::DeviceListBt(RecorderLogins* logins, QWidget* parent)
    : QToolButton(parent)
    , m_logins(logins)
{
    setIcon(vemo_base::Icons::icon(QStringLiteral("more")));
    setIconSize(QSize(iconExtent, iconExtent));
    setAutoRaise(true);
    setToolTip(tr("Export or import the list"));
    setAccessibleName(toolTip());
    setPopupMode(InstantPopup);
    auto* menu = new QMenu(this);
    connect(menu->addAction(tr("Export the list...")), &QAction::triggered, this, &DeviceListBt::chooseExport);
    connect(menu->addAction(tr("Import a list...")), &QAction::triggered, this, &DeviceListBt::chooseImport);
    setMenu(menu);
}

void DeviceListBt::chooseExport()
{
    const QString path = QFileDialog::getSaveFileName(
        window(), tr("Export the list of recorders"),
        QDir(firstFolder()).filePath(tr("recorders") + QLatin1String(".csv")), tr("CSV files (*.csv)"));
    if (!path.isEmpty())
        exportTo(path);
}

void DeviceListBt::chooseImport()
{
    const QString path = QFileDialog::getOpenFileName(window(), tr("Import a list of recorders"), firstFolder(),
                                                      tr("CSV files (*.csv)"));
    if (!path.isEmpty())
        importFrom(path);
}

void DeviceListBt::exportTo(const QString& path)
{
    const vemo_data::DevsMgrData& devices = vemo_data::DevsMgrData::instance();
    QVector<vemo_data::DevRecord> records;
    const QStringList devIds = devices.devIds();
    for (const QString& devId : devIds)
        records.append(devices.devRecord(devId));
    const QByteArray bytes = DeviceListFile::write(records);
    const auto failed = [](const QString& cause) {
        tell(Notice::Kind::Error, tr("The list of recorders could not be written"), cause);
    };
    DiskCall::start(
        this, diskMs,
        [path, bytes, failed, count = records.size()](const std::atomic<bool>&) -> DiskCall::Answer {
            QSaveFile file(path);
            if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
                return [failed, cause = file.errorString()] { failed(cause); };
            return [path, count] {
                tell(Notice::Kind::Success,
                     count == 1 ? tr("1 recorder was exported") : tr("%1 recorders were exported").arg(count),
                     tr("%1 holds no passwords.").arg(QDir::toNativeSeparators(path)));
            };
        },
        [failed] { failed(tr("The disk does not answer.")); });
}

void DeviceListBt::importFrom(const QString& path)
{
    const auto failed = [](const QString& cause) {
        tell(Notice::Kind::Error, tr("The list of recorders could not be read"), cause);
    };
    DiskCall::start(
        this, diskMs,
        [this, path, failed](const std::atomic<bool>&) -> DiskCall::Answer {
            QFile file(path);
            if (!file.open(QIODevice::ReadOnly))
                return [failed, cause = file.errorString()] { failed(cause); };
            const QByteArray bytes = file.read(DeviceListFile::largestBytes + 1);
            return [this, bytes] { add(bytes); };
        },
        [failed] { failed(tr("The disk does not answer.")); });
}

void DeviceListBt::add(const QByteArray& bytes)
{
    const DeviceListFile::Content content = DeviceListFile::read(bytes);
    const vemo_data::DevsMgrData& devices = vemo_data::DevsMgrData::instance();
    int added = 0;
    for (const vemo_data::DevRecord& record : content.records) {
        const QStringList known = devices.devIds();
        const bool isKnown = std::any_of(known.cbegin(), known.cend(), [&](const QString& devId) {
            const vemo_data::DevRecord other = devices.devRecord(devId);
            return other.address == record.address && other.user == record.user;
        });
        if (isKnown)
            continue;
        m_logins->addWithoutPassword(record);
        ++added;
    }
    const int left = content.records.size() - added;
    const QString title = added == 1 ? tr("1 recorder was added") : tr("%1 recorders were added").arg(added);
    const QString known = left == 1 ? tr("1 was known already.") : tr("%1 were known already.").arg(left);
    if (content.problems.isEmpty()) {
        tell(Notice::Kind::Success, title,
             left > 0    ? known
             : added > 0 ? tr("Their passwords are asked for in the list.")
                         : tr("The file lists none."));
        return;
    }
    VMessageBox::tell(VMessageBox::Kind::Warning, title,
                      tr("These lines were left out:") + QLatin1Char('\n') + content.problems.join(QLatin1Char('\n')),
                      window());
}

} // namespace vemo_client
