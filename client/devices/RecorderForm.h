#pragma once

#include "RecorderLogins.h"

#include <QTimer>
#include <QWidget>

class QComboBox;
class QLabel;
class QLineEdit;
class QSpinBox;

namespace vemo_client {

class NoticeCard;

/// The fields by which a recorder is added or changed: address, user, password, name, and for an rtsp address what it
/// is for and how many channels it has. What is typed is checked as it is typed; a login in a pasted address goes into
/// its own fields. Submitting logs in, and the form tells how that goes, including the key of an unknown certificate,
/// until the recorder is online. GUI thread; the logins outlive it.
///
/// A recorder that was added and did not come online stays in the list only when the person says so (keep()); otherwise
/// discard() takes it away again.
class RecorderForm final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RecorderForm)

public:
    enum class Stage : int { Unknown = 0, Filling, Connecting, Failed, Done };

    explicit RecorderForm(RecorderLogins* logins, QWidget* parent = nullptr);

    /// Fills the fields from a stored recorder, which submit() then changes.
    void edit(const QString& devId);
    /// Shows the field for the group that the recorder is listed in.
    void offerGroup();
    void submit();
    /// Takes an added recorder that is not online out of the list again.
    void discard();

    Stage stage() const { return m_stage; }
    bool isComplete() const;
    /// The recorder may well be right although it does not answer now.
    bool mayBeKept() const;
    const QString& devId() const { return m_devId; }
    void focusFirst();

signals:
    void signalStageChanged();

private:
    QLineEdit* addField(const QString& label, const QString& hint);
    QLabel* addWords();
    QWidget* makeDirectFields();
    void takeLoginOutOfAddress();
    void showDirectFields(const QUrl& address);
    void checkAddress(bool isSettled);
    void takeLogin();
    /// False: there is no failure to tell of.
    bool tellFailure();
    void setStage(Stage stage);
    void togglePassword();

    RecorderLogins* m_logins;
    QString m_devId;
    bool m_isNew = true;
    Stage m_stage = Stage::Filling;
    QLineEdit* m_address = nullptr;
    QLabel* m_addressWords = nullptr;
    QLineEdit* m_user = nullptr;
    QLineEdit* m_password = nullptr;
    QLineEdit* m_name = nullptr;
    QWidget* m_direct = nullptr; ///< the fields of an rtsp address
    QComboBox* m_kind = nullptr;
    QSpinBox* m_channels = nullptr;
    QComboBox* m_group = nullptr; ///< only where it is offered
    bool m_loginTaken = false;    ///< out of the address
    QByteArray m_shownKey;        ///< that the notice asks about
    NoticeCard* m_notice = nullptr;
    QTimer m_settleTimer; ///< a half-typed address is not yet a wrong one
};

} // namespace vemo_client
