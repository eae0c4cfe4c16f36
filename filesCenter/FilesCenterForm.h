#pragma once

#include <BaseForm.h>

#include <QMap>

#include <memory>

namespace vemo_filesCenter {

namespace Ui {
class FilesCenterForm;
}

/// The module's page of the main window: a navigation column and a stack of seven pages. Which entries the column
/// offers goes by the powers of the user who is current when the form is made; all pages exist always. GUI thread,
/// owned by whoever asked for it. The page shown follows the column's current entry.
class FilesCenterForm final : public vemo_base::BaseForm
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FilesCenterForm)

public:
    explicit FilesCenterForm(QWidget* parent);
    ~FilesCenterForm() override;

    /// 0: local recordings, 1: downloading; anything else, or a missing power, changes nothing.
    void switchToSubPage(int subPage);
    void setDownloadingTitle(int count);
    void setDownloadSuccessTitle(int count);
    void setDownloadFailureTitle(int count);

private:
    void setUpNavigation();
    void setUpConnections();
    void showPage(const QString& key);

    std::unique_ptr<Ui::FilesCenterForm> m_ui;
    QMap<QString, int> m_pageIndexByKey;
};

} // namespace vemo_filesCenter
