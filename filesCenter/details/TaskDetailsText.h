#pragma once

#include <QCoreApplication>
#include <QString>
#include <QVector>

namespace vemo_data {
struct DownloadTaskInfo;
struct TaskFacts;
} // namespace vemo_data

namespace vemo_filesCenter {

/// One fact of a task as a person reads it: what it is, and its words.
struct DetailLine
{
    enum class Kind : int { Plain = 0, Good, Warning, Error, Path };

    QString label;
    QString text;
    Kind kind = Kind::Plain;
};

/// Facts of a task as lines of text. Pure: reads no file and no store but the date format.
class TaskDetailsText final
{
    Q_DECLARE_TR_FUNCTIONS(vemo_filesCenter::TaskDetailsText)

public:
    TaskDetailsText() = delete;

    static QVector<DetailLine> lines(const vemo_data::DownloadTaskInfo& task, const vemo_data::TaskFacts& facts);
    /// The lines as one plain text for a tool tip, without the checksum.
    static QString plainText(const QVector<DetailLine>& lines);

    /// Why a task of this state is not finished and what comes next, one or two sentences; empty where all is well.
    static QString nextStep(int state);
    static QString size(qint64 bytes);
};

} // namespace vemo_filesCenter
