#pragma once

#include "vemo_worker_global.h"

#include <QCoreApplication>
#include <QString>

namespace vemo_worker {

/// Titles of alerts and questions, translated.
class VEMO_WORKER_EXPORT DictDef final
{
    Q_DECLARE_TR_FUNCTIONS(vemo_worker::DictDef)

public:
    DictDef() = delete;

    static QString titleAlert();   ///< something can't be done
    static QString titlePrompt();  ///< the person is to do something first
    static QString titleWarning(); ///< something needs care, such as a disk that runs full
};

} // namespace vemo_worker
