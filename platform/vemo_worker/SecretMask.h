#pragma once

#include "vemo_worker_global.h"

#include <QString>

namespace vemo_worker {

/// Takes secrets out of texts before they are written anywhere. Two ways at once: forms in which secrets stand
/// (user part of URLs, authorization headers, "password=" in its spellings, XML and JSON), and the secrets themselves
/// once they are known, also percent- and base64-encoded. Any thread.
class VEMO_WORKER_EXPORT SecretMask final
{
public:
    SecretMask() = delete;

    static QString masked(const QString& text);
    /// From now on this secret is taken out wherever it stands. Shorter ones than four letters are not remembered: they
    /// would tear words apart. At most 2,000 are kept.
    static void hide(const QString& secret);
};

} // namespace vemo_worker
