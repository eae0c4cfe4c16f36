#pragma once

#include <QToolButton>

namespace vemo_client {

class RecorderLogins;

/// "More": writes the list of recorders to a CSV file, and adds those of one. The disk is asked on a thread of its own;
/// how it went comes as a notice, and a box tells which lines were left out. GUI thread.
class DeviceListBt final : public QToolButton
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DeviceListBt)

public:
    explicit DeviceListBt(RecorderLogins* logins, QWidget* parent = nullptr);

    void exportTo(const QString& path);
    /// Recorders that are known already, by address and user, are left as they are. Passwords are asked for afterwards.
    void importFrom(const QString& path);

private:
    void chooseExport();
    void chooseImport();
    void add(const QByteArray& bytes);

    RecorderLogins* m_logins;
};

} // namespace vemo_client
