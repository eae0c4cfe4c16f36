#pragma once

#include <LocalRecordingIndexInfo.h>

#include <QHash>
#include <QList>
#include <QObject>
#include <QStringList>

namespace VCOMMON {
class VTableWidget;
}

namespace vemo_filesCenter {

class LocalRecordingItem;
class LocalRecordingOperWt;

/// One page of local recordings as rows of a table: what each cell shows, and which record a row stands for however the
/// person has sorted. What the files' sizes are is asked of the disk away from the GUI thread; until it has answered
/// rows show the size that the index knows. GUI thread, owned by the page, lives shorter than the table.
class LocalRecordingRows final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LocalRecordingRows)

public:
    enum Column : int { CheckColumn = 0, ChannelColumn, BeginColumn, SizeColumn, OperColumn };

    LocalRecordingRows(VCOMMON::VTableWidget* table, QObject* parent);

    /// Top: another page. Keep: the same page anew, files that are still in it keep check, selection and place.
    enum class Place : int { Top = 0, Keep };

    /// Instead of all rows that were there.
    void show(const QList<VCOMMON::LocalRecordingIndexInfo>& page, Place place);

    /// The cell that carries the row's record; nullptr when there is no such row.
    LocalRecordingItem* item(int row) const;
    /// -1 when no row shows that file.
    int rowOfFile(const QString& filePath) const;
    QStringList files(const QList<int>& rows) const;
    /// Where these rows stand in the page as it was given, ascending.
    QList<int> placesInPage(const QList<int>& rows) const;
    QString text(int row, Column column) const;

signals:
    /// A row of the table has come into view and has got its buttons.
    void signalOperWtMade(vemo_filesCenter::LocalRecordingOperWt* widget);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct FileFacts
    {
        bool isThere = false;
        qint64 bytes = 0;
    };
    using Facts = QHash<QString, FileFacts>; ///< by path

    struct Marks;

    void fitColumns();
    Marks marks() const;
    void putMarks(const Marks& marks);
    void fillRow(int row, const VCOMMON::LocalRecordingIndexInfo& record);
    void askDisk(const QList<VCOMMON::LocalRecordingIndexInfo>& page);
    void takeFacts(const Facts& facts);
    QString existingFile(int row) const;
    QString rowText(int row) const;

    VCOMMON::VTableWidget* m_table;
    Facts m_facts;
    int m_pageNumber = 0; ///< of pages shown so far: an answer to an earlier one comes too late
};

} // namespace vemo_filesCenter
