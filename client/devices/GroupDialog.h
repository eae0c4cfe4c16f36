#pragma once

#include "TitledDialog.h"

#include <QStringList>

class QComboBox;

namespace vemo_client {

/// Puts recorders into a group, a known one or one that is typed. GUI thread.
class GroupDialog final : public TitledDialog
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(GroupDialog)

public:
    GroupDialog(const QStringList& devIds, QWidget* parent);

    void accept() override;

private:
    QStringList m_devIds;
    QComboBox* m_group;
};

} // namespace vemo_client
