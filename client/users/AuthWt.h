#pragma once

#include <QStringList>
#include <QWidget>

class QStackedWidget;

namespace vemo_client {

class AuthHeader;

/// What fills the window before anybody is logged in: the first start in three steps (administrator, folders, first
/// recorder), else the login, else why the accounts can't be opened. UserAccounts must be open. GUI thread.
class AuthWt final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(AuthWt)

public:
    /// `languages` are offered; see LanguageButton.
    AuthWt(const QStringList& languages, const QString& language, QWidget* parent = nullptr);

    /// The last step of a first start asked for recorders: the window is to open where they are found.
    bool wantsRecorders() const { return m_wantsRecorders; }

signals:
    /// Once. The user is the current one already.
    void signalLoggedIn();
    /// The person reads another language: all of this is to be made anew.
    void signalLanguageChosen(const QString& name);

private:
    void showStart();
    void showFolders();
    void showRecorders();
    void showPage(QWidget* page);
    void finish(bool wantsRecorders);

    AuthHeader* m_header;
    QStackedWidget* m_pages;
    bool m_wantsRecorders = false;
};

} // namespace vemo_client
