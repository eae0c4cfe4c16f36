#pragma once

#include "ChannelDay.h"

#include <TableWidget.h>

#include <QVector>
#include <QWidget>

namespace vemo_client {

/// The found recordings of the chosen channels as a table, with a check box each: what is checked is what the person
/// wants. GUI thread.
class RecordingsTable final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RecordingsTable)

public:
    /// A recording as the place of its channel in setDays() and its place there.
    struct Place
    {
        int day = 0;
        int recording = 0;
    };

    explicit RecordingsTable(QWidget* parent = nullptr);

    /// Shows the recordings of all days in their order, as far as there is room; those are checked that were chosen.
    void setDays(const QVector<ChannelDay>& days);
    QVector<Place> chosen() const;
    void clearChosen();
    int rows() const;

    static constexpr int mostRows = 10'000;

signals:
    void signalChosenChanged();
    /// Enter or a double click on a row.
    void signalActivated(const vemo_client::RecordingsTable::Place& place);

private:
    void addRow(const ChannelDay& day, const Place& place);
    Place placeOf(int row) const;

    vemo_base::TableWidget* m_table;
};

} // namespace vemo_client
