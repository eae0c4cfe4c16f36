#include "FrameBudget.h"

namespace vemo_client {

namespace {

using Keep = FrameThinner::Keep;

/// 1080p H.264 at high bit rates, with room for the rest of the program.
constexpr double pixelsACore = 100e6;
/// Of the pictures, about half are referred to by others.
constexpr double referenceShare = 0.5;
constexpr qint64 windowUs = 1'500'000;
constexpr int mostWaitedPercent = 30;

} // namespace

Keep FrameBudget::keep(double pixelsASecond, int cores) const
{
    const double most = pixelsACore * qMax(1, cores);
    const int less = m_less + (pixelsASecond <= most ? 0 : pixelsASecond * referenceShare <= most ? 1 : 2);
    return less == 0 ? Keep::All : less == 1 ? Keep::References : Keep::KeyFrames;
}

bool FrameBudget::note(qint64 elapsedUs, bool waited)
{
    m_watchedUs += elapsedUs;
    m_waitedUs += waited ? elapsedUs : 0;
    if (m_watchedUs < windowUs)
        return false;
    const bool isTooMuch = m_waitedUs * 100 > m_watchedUs * mostWaitedPercent;
    m_watchedUs = 0;
    m_waitedUs = 0;
    if (!isTooMuch || m_less >= 2)
        return false;
    ++m_less;
    return true;
}

void FrameBudget::reset()
{
    *this = FrameBudget();
}

} // namespace vemo_client
