#pragma once

#include <QAbstractListModel>

namespace vemo_client {

/// The kept notices as rows, newest first; follows vemo_base::Notices. GUI thread.
class NoticesModel final : public QAbstractListModel
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(NoticesModel)

public:
    enum Role : int {
        KindRole = Qt::UserRole + 1, ///< int of vemo_base::Notice::Kind
        TextRole,
        TimeRole,    ///< as words: the clock time, of another day with its date
        ActionsRole, ///< QStringList, the words that act
    };

    explicit NoticesModel(QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    void runAction(int row, int action) const;
};

} // namespace vemo_client
