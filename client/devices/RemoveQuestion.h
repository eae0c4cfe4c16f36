#pragma once

#include <QStringList>

class QWidget;

namespace vemo_client {

class RecorderLogins;

/// The question before stored recorders are removed, and their removal on yes. Plain function, GUI thread.
class RemoveQuestion final
{
public:
    RemoveQuestion() = delete;

    static void ask(RecorderLogins* logins, const QStringList& devIds, QWidget* parent);
};

} // namespace vemo_client
