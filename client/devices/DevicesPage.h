#pragma once

#include <QWidget>

class QPushButton;
class QStackedLayout;

namespace vemo_base {
class PageHeader;
class SearchBox;
class TableFooter;
} // namespace vemo_base

namespace vemo_client {

class DeviceDetailsWt;
class DevicesTable;
class RecorderLogins;

/// The page on which recorders and sources are found, added, changed, grouped, disabled and removed, and their state is
/// seen. GUI thread.
class DevicesPage final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DevicesPage)

public:
    explicit DevicesPage(RecorderLogins* logins, QWidget* parent = nullptr);
    ~DevicesPage() override;

    void showRecorder(const QString& devId);
    void findOnNetwork();
    void addByAddress();

private:
    QWidget* makeBar();
    QWidget* makeContent();
    QPushButton* addDeed(QWidget* bar, const QString& objectName, const QString& icon, const QString& text);
    void showContent();
    void showChecked();
    void showMenu(const QString& devId, const QPoint& globalPos);
    void edit(const QString& devId);
    void checkCertificate(const QString& devId);
    void setEnabledOfChecked(bool enabled);

    RecorderLogins* m_logins;
    vemo_base::PageHeader* m_header;
    vemo_base::SearchBox* m_filter = nullptr;
    QWidget* m_bar = nullptr;
    QStackedLayout* m_content = nullptr;
    DevicesTable* m_table = nullptr;
    vemo_base::TableFooter* m_footer = nullptr;
    DeviceDetailsWt* m_details = nullptr; ///< made when it is first wanted
    QList<QPushButton*> m_deeds;          ///< that act on the checked rows
};

} // namespace vemo_client
