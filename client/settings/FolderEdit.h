#pragma once

#include "SettingField.h"

#include <FolderCheck.h>

#include <QWidget>

class QLineEdit;
class QPushButton;

namespace vemo_base {
class DiskFreeSpaceBar;
}

namespace vemo_client {

/// The editor of a folder: typed or browsed for, with the bar of its disk. What FolderCheck has to say is told by the
/// field that it belongs to; a missing folder can be made from there. GUI thread.
class FolderEdit final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FolderEdit)

public:
    FolderEdit(const QString& name, qint64 lowBytes, SettingField* field);

    QString folder() const;
    void setFolder(const QString& folder);

signals:
    void signalEdited();

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void browse();
    void make();
    void takeMade(bool isMade);
    void takeText();
    void check();
    void take(const vemo_worker::FolderCheck::Result& result);
    void showDisk();

    SettingField* m_field;
    QLineEdit* m_path;
    QPushButton* m_make;
    vemo_base::DiskFreeSpaceBar* m_disk;
    QString m_name;
    qint64 m_lowBytes;
    QString m_checked; ///< the folder of the last check that was started
    int m_checks = 0;
    bool m_hasDisk = true; ///< as far as the last check could tell
};

} // namespace vemo_client
