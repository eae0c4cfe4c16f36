#pragma once

#include "devices/ChannelRef.h"

#include <QCoreApplication>
#include <QImage>

namespace vemo_client {

/// Saves shown pictures as snapshots: into the folder and in the format of the settings, with their facts, known to the
/// index of local snapshots. Called on the GUI thread; a thread of the pool writes, and a notice tells what became of
/// it.
class PictureSaver final
{
    Q_DECLARE_TR_FUNCTIONS(vemo_client::PictureSaver)

public:
    PictureSaver() = delete;

    static void save(const ChannelRef& channel, const QImage& picture, qint64 utcNs);
};

} // namespace vemo_client
