#include "RecordingFileName.h"

#include <QDateTime>

namespace vms_sdk::onvif {

namespace {

constexpr int maxNameLength = 1024;

bool isPlain(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
}

QString timeText(qint64 utcMs)
{
    return QDateTime::fromMSecsSinceEpoch(utcMs, Qt::UTC).toString(QStringLiteral("yyyyMMdd'T'HHmmsszzz'Z'"));
}

std::optional<qint64> timeOf(const QString& text)
{
    QDateTime time = QDateTime::fromString(text, QStringLiteral("yyyyMMdd'T'HHmmsszzz'Z'"));
    if (!time.isValid())
        return std::nullopt;
    time.setTimeSpec(Qt::UTC);
    return time.toMSecsSinceEpoch();
}

std::optional<QString> tokenOf(const QString& text)
{
    QByteArray token;
    for (int i = 0; i < text.size(); ++i) {
        const char c = text.at(i).toLatin1();
        if (isPlain(c)) {
            token += c;
        } else if (c == '~') {
            bool isHex = false;
            const uint value = text.midRef(i + 1, 2).toUInt(&isHex, 16);
            if (!isHex || i + 2 >= text.size())
                return std::nullopt;
            token += static_cast<char>(value);
            i += 2;
        } else {
            return std::nullopt;
        }
    }
    return QString::fromUtf8(token.constData(), token.size());
}

} // namespace

QString RecordingFileName::encode() const
{
    QString token;
    for (const char c : recordingToken.toUtf8()) {
        if (isPlain(c))
            token += QLatin1Char(c);
        else
            token += QStringLiteral("~%1").arg(static_cast<uchar>(c), 2, 16, QLatin1Char('0')).toUpper();
    }
    return token + QLatin1Char('_') + timeText(beginMs) + QLatin1Char('_') + timeText(endMs);
}

std::optional<RecordingFileName> RecordingFileName::decode(const QString& name)
{
    if (name.size() > maxNameLength)
        return std::nullopt;
    const int endAt = name.lastIndexOf(QLatin1Char('_'));
    const int beginAt = endAt > 0 ? name.lastIndexOf(QLatin1Char('_'), endAt - 1) : -1;
    if (beginAt < 0)
        return std::nullopt;
    const std::optional<QString> token = tokenOf(name.left(beginAt));
    const std::optional<qint64> begin = timeOf(name.mid(beginAt + 1, endAt - beginAt - 1));
    const std::optional<qint64> end = timeOf(name.mid(endAt + 1));
    if (!token || !begin || !end || *end <= *begin)
        return std::nullopt;
    return RecordingFileName{*token, *begin, *end};
}

} // namespace vms_sdk::onvif
