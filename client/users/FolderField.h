#pragma once

#include <QWidget>

#include <functional>

class QLineEdit;

namespace vemo_client {

class MessageLine;

/// A folder that the person types or picks; what its disk says stands below. A folder that will do is taken at once.
/// GUI thread; the disk is asked on another.
class FolderField final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FolderField)

public:
    using Get = std::function<QString()>;
    using Set = std::function<void(const QString& folder)>;

    FolderField(const QString& name, Get get, Set set, QWidget* parent = nullptr);

    /// Shows the folder that holds now.
    void refresh();
    bool isUsable() const { return m_isUsable; }

signals:
    void signalChecked();

private:
    void browse();
    void check();

    QString m_name;
    Get m_get;
    Set m_set;
    QLineEdit* m_path;
    MessageLine* m_message;
    int m_checks = 0; ///< only the last check's answer counts
    bool m_isUsable = false;
};

} // namespace vemo_client
