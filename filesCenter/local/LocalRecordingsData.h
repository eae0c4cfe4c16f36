#pragma once

#include <LocalRecordingIndexInfo.h>

#include <QObject>
#include <QVector>

namespace vemo_filesCenter {

/// The records behind the page of local recordings: in one fixed order, filtered by a word in the channel's name, cut
/// into pages. Owned by the page, on the GUI thread. A search's answer replaces everything. What a channel is called is
/// asked anew by each sorting and each filtering, once a channel.
class LocalRecordingsData final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LocalRecordingsData)

public:
    explicit LocalRecordingsData(QObject* parent = nullptr);

    /// Sorts the records by the channel's name, then by begin, and lists all of them.
    void setRecordings(const QList<VCOMMON::LocalRecordingIndexInfo>& recordings);
    /// Lists the records whose channel's name has `keyword` in it, capital or small; an empty one lists all.
    void filter(const QString& keyword);
    /// The records of a page, counted from 1; empty behind the last one.
    QList<VCOMMON::LocalRecordingIndexInfo> getPage(int pageSize, int pageNumber) const;
    /// Forgets the records at these rows (ascending) of that page, and filters again. Rows that there are not are
    /// passed over.
    void removeRecords(int pageSize, int pageNumber, const QString& keyword, const QList<int>& rows);
    int filteredCount() const;

    /// What the recording's channel is called now; as the recording tells it when the client no longer knows the
    /// channel.
    static QString displayName(const VCOMMON::LocalRecordingIndexInfo& record);

private:
    QList<VCOMMON::LocalRecordingIndexInfo> m_recordings; ///< as they came, so that they are shared with the answer
    QVector<int> m_order;                                 ///< all of them by name and begin
    QVector<int> m_filteredIndexes;                       ///< those of m_order that pass the filter
};

} // namespace vemo_filesCenter
