#include "LocalListing.h"

#include "TimeText.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>

namespace vemo_client {

namespace {

constexpr double megabyte = 1e6;

QString tr(const char* text)
{
    return QCoreApplication::translate("vemo_client::LocalListing", text);
}

QString line(const QString& begin, const QString& end, const QString& size, const QString& channel, const QString& rest)
{
    return begin.leftJustified(19) % QLatin1String("  ") % end.leftJustified(19) % QLatin1String("  ") %
           size.rightJustified(10) % QLatin1String("  ") % channel.leftJustified(20) % QLatin1String("  ") % rest;
}

} // namespace

QString LocalListing::json(const LocalFile& file)
{
    QJsonObject object{{QStringLiteral("path"), file.path},
                       {QStringLiteral("channel"), file.channel},
                       {QStringLiteral("bytes"), file.bytes},
                       {QStringLiteral("ok"), file.problem.isEmpty()}};
    if (file.isSnapshot()) {
        object.insert(QStringLiteral("captured"), TimeText::iso(file.begin));
    } else {
        object.insert(QStringLiteral("begin"), TimeText::iso(file.begin));
        object.insert(QStringLiteral("end"), TimeText::iso(file.end));
        object.insert(QStringLiteral("guessed"), file.isGuessed);
    }
    if (!file.problem.isEmpty())
        object.insert(QStringLiteral("problem"), file.problem);
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

QString LocalListing::header()
{
    return line(tr("Begin"), tr("End"), tr("Size"), tr("Channel"), tr("File"));
}

QString LocalListing::row(const LocalFile& file)
{
    return line(TimeText::plain(file.begin), file.isSnapshot() ? QString() : TimeText::plain(file.end),
                QString::number(double(file.bytes) / megabyte, 'f', 1) % QLatin1String(" MB"), file.channel,
                file.problem.isEmpty() ? file.path : QString(file.path % QLatin1String("  ") % file.problem));
}

} // namespace vemo_client
