#pragma once

#include <SettingToolWt.h>

class QGridLayout;
class QLabel;
class QPushButton;

namespace vemo_base {
class TableWidget;
}

namespace vemo_client {

class NoticeCard;
class RecorderLogins;
struct DeviceFacts;

/// What is known of a recorder, beside the list: state with cause and way out, data, and its channels, which can be
/// renamed. Follows stores and logins while it is shown. GUI thread.
class DeviceDetailsWt final : public vemo_base::SettingToolWt
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DeviceDetailsWt)

public:
    DeviceDetailsWt(RecorderLogins* logins, QWidget* host);
    ~DeviceDetailsWt() override;

    void showDevice(const QString& devId);

signals:
    void signalEdit(const QString& devId);
    void signalCertificate(const QString& devId);

private:
    void refresh();
    void showNotice(const DeviceFacts& facts);
    void showFacts(const DeviceFacts& facts);
    void showChannels();
    void act();

    RecorderLogins* m_logins;
    QString m_devId;
    QWidget* m_facts;
    QGridLayout* m_grid;
    NoticeCard* m_notice;
    QLabel* m_channelsTitle;
    vemo_base::TableWidget* m_channels;
    QPushButton* m_reconnect;
};

} // namespace vemo_client
