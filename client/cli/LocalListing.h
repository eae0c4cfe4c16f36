#pragma once

#include <QDateTime>
#include <QString>

namespace vemo_client {

/// A local file as the verbs tell it and work on it, of either kind.
struct LocalFile
{
    QString path;
    QString devName;
    int channelNo = 0;
    QString channel; ///< as it is called now, else as the file tells
    QDateTime begin; ///< a snapshot's time
    QDateTime end;   ///< invalid for a snapshot
    qint64 bytes = 0;
    QString problem;
    bool isGuessed = false;

    bool isSnapshot() const { return !end.isValid(); }
};

/// Local files as lines of text.
namespace LocalListing {

QString json(const LocalFile& file);
QString header();
QString row(const LocalFile& file);

} // namespace LocalListing

} // namespace vemo_client
