#pragma once

#include "AuthForm.h"

#include <QVector>

namespace vemo_client {

class FolderField;

/// The second step of a first start: where files are written. What will do is stored at once. GUI thread.
class FoldersPage final : public AuthForm
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FoldersPage)

public:
    explicit FoldersPage(QWidget* parent = nullptr);

private:
    QVector<FolderField*> m_fields;
};

} // namespace vemo_client
