#include <backup/BackupManifestFile.h>
#include <devices/DeviceListFile.h>
#include <devices/RecorderAddress.h>

#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>

using vemo_client::DeviceListFile;
using vemo_filesCenter::BackupManifestFile;

namespace {

void readDeviceList(const QByteArray& bytes)
{
    const DeviceListFile::Content content = DeviceListFile::read(bytes);
    if (content.records.size() > DeviceListFile::mostRecords)
        std::abort();
    for (const vemo_data::DevRecord& record : content.records) {
        const bool isAddress = !record.address.host().isEmpty() && record.address.userInfo().isEmpty();
        if (!isAddress || record.channelCount < 0 || record.channelCount > vemo_data::DevRecord::mostChannels)
            std::abort();
    }
    // What was taken in is written and taken in again as it is.
    if (DeviceListFile::read(DeviceListFile::write(content.records)).records.size() != content.records.size())
        std::abort();
}

void readManifest(const QByteArray& bytes)
{
    static const QTemporaryDir folder;
    QFile file(folder.filePath(BackupManifestFile::jsonName()));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        std::abort();
    file.close();
    const auto records = BackupManifestFile::read(folder.path());
    for (const BackupManifestFile::Record& record : records) {
        if (record.file.isEmpty() || record.file.contains(QLatin1Char('/')) || record.sha256.size() != 32)
            std::abort();
    }
    if (!BackupManifestFile::merge(folder.path(), {}) ||
        BackupManifestFile::read(folder.path()).size() != records.size())
        std::abort();
}

} // namespace

/// Whatever people take from elsewhere into the store: a list of recorders, or, behind a "{", the manifest of a disk.
extern "C" int LLVMFuzzerTestOneInput(const quint8* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    if (bytes.startsWith('{'))
        readManifest(bytes);
    else
        readDeviceList(bytes);
    return 0;
}
