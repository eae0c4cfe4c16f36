#include "DecodeLibrary.h"

#include <QCoreApplication>
#include <QLibrary>
#include <QLoggingCategory>

namespace vemo_client {

Q_LOGGING_CATEGORY(lcDecode, "vemo.video.decode")

namespace {

void log(const char* line)
{
    qCInfo(lcDecode).noquote() << QString::fromUtf8(line);
}

const vemo_decode::DecodeEntry* load()
{
    const QString folder = QCoreApplication::applicationDirPath();
    const QString name = QStringLiteral("vemo_decode");
    QString error;
    for (const QString& place :
         {QString(folder + QStringLiteral("/../lib/") + name), QString(folder + QLatin1Char('/') + name)}) {
        QLibrary library(place);
        using Entry = const vemo_decode::DecodeEntry* (*)();
        if (const auto function = reinterpret_cast<Entry>(library.resolve(vemo_decode::decodeEntryName))) {
            const vemo_decode::DecodeEntry* entry = function();
            entry->setLog(log);
            return entry;
        }
        error = library.errorString();
    }
    qCWarning(lcDecode).noquote() << "Video is not decoded:" << error;
    return nullptr;
}

} // namespace

std::unique_ptr<vemo_decode::Decoder> DecodeLibrary::createDecoder()
{
    static const vemo_decode::DecodeEntry* const entry = load();
    return entry ? entry->create() : nullptr;
}

} // namespace vemo_client
