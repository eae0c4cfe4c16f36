#pragma once

#include <QDateTime>
#include <QString>

namespace vemo_client {

/// Times as people type them and programs read them (ISO 8601).
class TimeText final
{
public:
    struct Parsed
    {
        QDateTime time; ///< local; invalid when the text is no time
        QString error;  ///< a sentence, empty when all is well
    };

    /// "2026-01-10T08:00", with seconds and a fraction if wanted, "T" or a space between, "Z" or an offset behind it;
    /// without an offset it is local time. A local time that comes twice, at the end of summer time, is the first of
    /// the two; one that is left out at its beginning is refused.
    static Parsed parse(const QString& text);

    /// Local time with offset and milliseconds: "2026-01-10T08:00:00.000+01:00".
    static QString iso(const QDateTime& time);
    /// For people: "2026-01-10 08:00:00".
    static QString plain(const QDateTime& time);
};

} // namespace vemo_client
