#pragma once

#include <QDateTime>
#include <QString>
#include <QVector>

#include <functional>

namespace vemo_base {

/// Something the person should know without being asked. `title` says what happened, `text` the figures and what comes
/// next; actions are words that do something. Two notices with the same kind, title and text are one that repeats.
struct Notice
{
    enum class Kind : int { Information = 0, Success, Warning, Error };

    struct Action
    {
        QString text;
        std::function<void()> run;
    };

    Kind kind = Kind::Information;
    QString title;
    QString text;
    QVector<Action> actions;
    int repeats = 1;
    QDateTime time; ///< set by Notices, of the last repeat
    quint64 id = 0; ///< set by Notices
};

} // namespace vemo_base
