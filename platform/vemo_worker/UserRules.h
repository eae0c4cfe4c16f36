#pragma once

#include "vemo_worker_global.h"

#include <QString>

namespace vemo_worker {

/// What names and passwords of users must be like. Each check answers with a sentence for the person, empty when all is
/// well. Pure functions, any thread.
class VEMO_WORKER_EXPORT UserRules final
{
public:
    UserRules() = delete;

    static constexpr int longestName = 64;
    static constexpr int longestPassword = 256;
    static constexpr int shortestPassword = 8;
    static constexpr int shortestAdministratorPassword = 12;

    /// The form in which a name is kept: NFC, blanks at the ends away.
    static QString tidyName(const QString& name);
    /// Names that have the same key are the same name.
    static QString nameKey(const QString& name);
    static QString nameProblem(const QString& name);
    static QString passwordProblem(const QString& password, const QString& name, bool isAdministrator);
};

} // namespace vemo_worker
