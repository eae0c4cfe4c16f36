#pragma once

#include "TitledDialog.h"

class QLabel;
class QLineEdit;

namespace vemo_client {

/// Gives a group another name; one that is taken joins the two, which it says. GUI thread.
class RenameGroupDialog final : public TitledDialog
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RenameGroupDialog)

public:
    RenameGroupDialog(const QString& group, QWidget* parent);

    void accept() override;

private:
    void check();

    QString m_from;
    QLineEdit* m_name;
    QLabel* m_words;
    QPushButton* m_rename;
};

} // namespace vemo_client
