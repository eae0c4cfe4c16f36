#pragma once

#include "devices/ChannelRef.h"

#include <QString>
#include <QVariant>
#include <QVector>

namespace vemo_client {

/// Which channels are watched in which tiles.
struct LiveView
{
    QString name; ///< empty: the one that is shown, which has no name yet
    int tileCount = 4;
    QVector<ChannelRef> channels; ///< by tile; an empty devId: none

    bool hasSameTiles(const LiveView& other) const
    {
        return tileCount == other.tileCount && channels == other.channels;
    }
};

/// The views that people named, in the order of their names, and the one that was shown last; kept in the settings of
/// the user interface. GUI thread.
class LiveViews final
{
public:
    static constexpr int mostViews = 100;
    static constexpr int mostNameChars = 60;

    LiveViews();

    const QVector<LiveView>& all() const { return m_views; }
    int indexOf(const QString& name) const;
    /// Adds it, or replaces the one of this name; false when there are too many.
    bool save(const LiveView& view);
    /// False when `to` is taken or no name.
    bool rename(const QString& from, const QString& to);
    void remove(const QString& name);

    static LiveView lastShown();
    static void keepLastShown(const LiveView& view);

    /// Without what a name can't have; empty when nothing is left.
    static QString legalName(const QString& text);

private:
    void sortAndKeep();

    QVector<LiveView> m_views;
};

} // namespace vemo_client
