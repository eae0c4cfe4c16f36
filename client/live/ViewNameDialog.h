#pragma once

#include "devices/TitledDialog.h"

#include <functional>

class QLabel;
class QLineEdit;

namespace vemo_client {

/// Asks for the name of a view. GUI thread; open it with open(), it deletes itself.
class ViewNameDialog final : public TitledDialog
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ViewNameDialog)

public:
    /// `take` is given the name and answers with a sentence that says why it can't be used; empty: it was taken.
    ViewNameDialog(const QString& title, const QString& sentence, const QString& name, const QString& deed,
                   const std::function<QString(const QString& name)>& take, QWidget* parent);

    void accept() override;

private:
    QLineEdit* m_name;
    QLabel* m_problem;
    std::function<QString(const QString&)> m_take;
};

} // namespace vemo_client
