#include "DecodeLibrary.h"

#include <OwnLibrary.h>

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
    QString error;
    using Entry = const vemo_decode::DecodeEntry* (*)();
    const QFunctionPointer found =
        vemo_base::OwnLibrary::resolve(QStringLiteral("vemo_decode"), vemo_decode::decodeEntryName, error);
    if (found) {
        const vemo_decode::DecodeEntry* entry = reinterpret_cast<Entry>(found)();
        entry->setLog(log);
        return entry;
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
