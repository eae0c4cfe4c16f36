#pragma once

#include <QCoreApplication>
#include <QString>
#include <QVector>

namespace vemo_client {

/// What users may do, in words, in the order in which it is offered. Pure functions.
class PowerWords final
{
    Q_DECLARE_TR_FUNCTIONS(vemo_client::PowerWords)

public:
    PowerWords() = delete;

    struct Entry
    {
        int power = 0;
        QString shortWords; ///< for lists: "playback"
        QString words;      ///< for a check box
    };

    /// Without the power over users, which is an administrator's alone.
    static QVector<Entry> all();
    /// "Administrator", "Live view, playback", "Nothing but local files"
    static QString summary(int powers);
};

} // namespace vemo_client
