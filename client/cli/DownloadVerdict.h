#pragma once

#include "Coverage.h"
#include "DownloadReport.h"
#include "ExitCode.h"
#include "Failures.h"

#include <Error.h>

#include <optional>

namespace vemo_client {

/// All that is known about one download when it is over.
struct DownloadFacts
{
    Place place;
    Span asked;
    DownloadReport report;
    bool refused = false;       ///< the library did not take the task
    qint64 freeBytes = -1;      ///< on the disk of the target
    vms_sdk::Error streamError; ///< what ended the stream, if anything did
    /// What the recorder lists for the span; nothing when it could not be asked.
    std::optional<QList<Span>> listed;
};

/// The verdict on a download: done only when all footage that the recorder lists is in the file.
Outcome judgeDownload(const DownloadFacts& facts);

} // namespace vemo_client
