#include "DeviceListFile.h"

#include "RecorderAddress.h"

#include "logs/CsvLine.h"

#include <QCoreApplication>
#include <QHash>
#include <QRegularExpression>

namespace vemo_client {

namespace {

using vemo_data::DevKind;
using vemo_data::DevRecord;

constexpr int longestText = 256;
constexpr int mostProblems = 20;
constexpr int mostFields = 64;

QString tr(const char* text)
{
    return QCoreApplication::translate("vemo_client::DeviceListFile", text);
}

// The names of the columns and of what stands in them are the file's format, not words of a language.
QString nameColumn()
{
    return QStringLiteral("name");
}
QString addressColumn()
{
    return QStringLiteral("address");
}
QString userColumn()
{
    return QStringLiteral("user");
}
QString groupColumn()
{
    return QStringLiteral("group");
}
QString useColumn()
{
    return QStringLiteral("use");
}
QString channelsColumn()
{
    return QStringLiteral("channels");
}
QString enabledColumn()
{
    return QStringLiteral("enabled");
}
QString liveAlone()
{
    return QStringLiteral("live");
}
QString recorder()
{
    return QStringLiteral("recorder");
}

/// The fields of the line that begins at `at`, which then stands behind it; quotes may span lines.
QStringList takeLine(const QString& text, QChar separator, int* at)
{
    QStringList fields;
    QString field;
    bool isQuoted = false;
    for (; *at < text.size(); ++*at) {
        const QChar c = text.at(*at);
        if (isQuoted) {
            const bool isDoubled = c == QLatin1Char('"') && text.midRef(*at + 1, 1) == QLatin1String("\"");
            if (isDoubled)
                ++*at;
            if (c == QLatin1Char('"') && !isDoubled)
                isQuoted = false;
            else
                field += c;
        } else if (c == QLatin1Char('"') && field.isEmpty()) {
            isQuoted = true;
        } else if (c == separator && fields.size() < mostFields) {
            fields.append(field);
            field.clear();
        } else if (c == QLatin1Char('\n')) {
            ++*at;
            break;
        } else if (c != QLatin1Char('\r')) {
            field += c;
        }
    }
    fields.append(field);
    return fields;
}

/// Without the apostrophe that keeps a spreadsheet from taking it for a formula.
QString plain(const QString& field)
{
    static const QRegularExpression control(QStringLiteral("[\\p{Cc}\\p{Cf}]"));
    const QString text = field.simplified().remove(control).left(longestText);
    const bool isGuarded =
        text.size() > 1 && text.startsWith(QLatin1Char('\'')) && QStringLiteral("=+-@").contains(text.at(1));
    return isGuarded ? text.mid(1) : text;
}

} // namespace

QByteArray DeviceListFile::write(const QVector<DevRecord>& records)
{
    QByteArray bytes = CsvLine::byteOrderMark();
    bytes += CsvLine::of(
        {nameColumn(), addressColumn(), userColumn(), groupColumn(), useColumn(), channelsColumn(), enabledColumn()});
    for (const DevRecord& record : records)
        bytes += CsvLine::of({record.name, RecorderAddress::typed(record.address), record.user, record.group,
                              record.kind == DevKind::RtspSource ? liveAlone() : recorder(),
                              record.channelCount > 0 ? QString::number(record.channelCount) : QString(),
                              record.enabled ? QStringLiteral("yes") : QStringLiteral("no")});
    return bytes;
}

DeviceListFile::Content DeviceListFile::read(const QByteArray& bytes)
{
    Content content;
    if (bytes.size() > largestBytes) {
        content.problems.append(tr("The file is larger than a list of recorders can be."));
        return content;
    }
    const QString text = QString::fromUtf8(bytes.constData(), bytes.size()); // behind a NUL as well, without the mark
    const int firstEnd = text.indexOf(QLatin1Char('\n'));
    const QChar separator = text.leftRef(firstEnd).contains(QLatin1Char(';')) ? QLatin1Char(';') : QLatin1Char(',');
    int at = 0;
    QHash<QString, int> columns;
    const QStringList names = takeLine(text, separator, &at);
    for (int i = 0; i < names.size(); ++i)
        columns.insert(names.at(i).simplified().toLower(), i);
    if (!columns.contains(addressColumn())) {
        content.problems.append(tr("The first line names no column \"address\"."));
        return content;
    }
    for (int line = 2; at < text.size(); ++line) {
        const QStringList fields = takeLine(text, separator, &at);
        const auto value = [&](const QString& column) { return plain(fields.value(columns.value(column, -1))); };
        if (fields.join(QString()).trimmed().isEmpty())
            continue;
        const RecorderAddress address = RecorderAddress::parse(fields.value(columns.value(addressColumn())));
        if (!address.problem.isEmpty() || content.records.size() >= mostRecords) {
            if (content.problems.size() < mostProblems)
                content.problems.append(
                    tr("Line %1: %2")
                        .arg(line)
                        .arg(address.problem.isEmpty() ? tr("More recorders than can be kept.") : address.problem));
            continue;
        }
        DevRecord record;
        record.address = address.url;
        record.name = value(nameColumn());
        record.user = value(userColumn());
        record.group = value(groupColumn());
        const bool isDirect = RecorderAddress::isDirect(address.url);
        if (isDirect && value(useColumn()).toLower() == liveAlone())
            record.kind = DevKind::RtspSource;
        if (isDirect)
            record.channelCount = qBound(1, value(channelsColumn()).toInt(), DevRecord::mostChannels);
        record.enabled = value(enabledColumn()).toLower() != QLatin1String("no");
        content.records.append(record);
    }
    return content;
}

} // namespace vemo_client
