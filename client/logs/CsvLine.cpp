#include "CsvLine.h"

namespace vemo_client {

namespace {

bool looksLikeFormula(const QString& field)
{
    if (field.isEmpty())
        return false;
    switch (field.at(0).unicode()) {
    case '=':
    case '+':
    case '-':
    case '@':
    case '\t':
    case '\r':
    case '\n':
    case 0xff0b: // full-width forms of the same signs
    case 0xff0d:
    case 0xff1d:
    case 0xff20:
        return true;
    default:
        return false;
    }
}

QString written(QString field)
{
    field.remove(QChar(0));
    if (looksLikeFormula(field))
        field.prepend(QLatin1Char('\''));
    const bool needsQuotes = field.contains(QLatin1Char(',')) || field.contains(QLatin1Char('"')) ||
                             field.contains(QLatin1Char('\n')) || field.contains(QLatin1Char('\r')) ||
                             field.startsWith(QLatin1Char(' ')) || field.endsWith(QLatin1Char(' '));
    if (!needsQuotes)
        return field;
    field.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + field + QLatin1Char('"');
}

} // namespace

QByteArray CsvLine::byteOrderMark()
{
    return QByteArrayLiteral("\xef\xbb\xbf");
}

QByteArray CsvLine::of(const QStringList& fields)
{
    QStringList all;
    all.reserve(fields.size());
    for (const QString& field : fields)
        all.append(written(field));
    return all.join(QLatin1Char(',')).toUtf8() + "\r\n";
}

} // namespace vemo_client
