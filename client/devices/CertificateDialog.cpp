#include "CertificateDialog.h"

#include "CertificateWords.h"
#include "LoginWords.h"
#include "NoticeCard.h"

#include <DevsMgrData.h>

#include <QDateTime>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVariant>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

constexpr int dialogWidth = 560;

QLabel* label(const QString& text, QWidget* parent)
{
    auto* words = new QLabel(text, parent);
    words->setTextFormat(Qt::PlainText);
    words->setWordWrap(true);
    words->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return words;
}

void addFact(QGridLayout* grid, const QString& what, const QString& value, bool isKey, QWidget* parent)
{
    const int row = grid->rowCount();
    QLabel* name = label(what, parent);
    name->setForegroundRole(QPalette::PlaceholderText);
    QLabel* words = label(value, parent);
    words->setAccessibleName(what);
    if (isKey)
        words->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    grid->addWidget(name, row, 0, Qt::AlignTop);
    grid->addWidget(words, row, 1);
}

} // namespace

CertificateDialog::CertificateDialog(RecorderLogins* logins, const QString& devId, QWidget* parent)
    : TitledDialog(tr("Is this the recorder?"), QString(), dialogWidth, parent)
    , m_logins(logins)
{
    const RecorderLogins::Login login = m_logins->login(devId);
    m_shownKey = login.offeredKeySha256;
    const bool hasChanged = !login.trustedKeySha256.isEmpty();
    const vms_sdk::DevInfo info = vemo_data::DevsMgrData::instance().getDevInfoById(devId);
    const QString name = !info.name.isEmpty() ? info.name : info.address.host();
    setSentence(hasChanged
                    ? tr("%1 shows another key than the one that was trusted. Nothing was sent to it.").arg(name)
                    : tr("%1 is reached by TLS, and its key is not known yet. Nothing was sent to it.").arg(name));

    auto* notice = new NoticeCard(this);
    QStringList problems =
        CertificateWords::problems(login.offeredCertificate, login.host, QDateTime::currentDateTime());
    if (problems.isEmpty() && !login.certificateReason.isEmpty())
        problems.append(login.certificateReason);
    notice->tell(hasChanged ? NoticeCard::Weight::Error : NoticeCard::Weight::Warning,
                 hasChanged ? tr("Its certificate was renewed, or something stands between you and it")
                            : tr("Compare the key with the one that the recorder shows on its own screen or web page"),
                 problems.join(QLatin1Char(' ')));
    body()->addWidget(notice);

    auto* grid = new QGridLayout;
    grid->setContentsMargins(4, 8, 4, 0);
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(8);
    grid->setColumnStretch(1, 1);
    const QVector<CertificateWords::Fact> facts = CertificateWords::facts(login.offeredCertificate);
    for (const CertificateWords::Fact& fact : facts)
        addFact(grid, fact.first, fact.second, false, this);
    if (hasChanged)
        addFact(grid, tr("Trusted key (SHA-256)"), CertificateWords::fingerprint(login.trustedKeySha256), true, this);
    addFact(grid, hasChanged ? tr("New key (SHA-256)") : tr("Key (SHA-256)"),
            CertificateWords::fingerprint(login.offeredKeySha256), true, this);
    body()->addLayout(grid);

    cancelButton()->setText(tr("Don't trust it"));
    cancelButton()->setAutoDefault(true);
    cancelButton()->setDefault(true);
    cancelButton()->setFocus(Qt::TabFocusReason);
    auto* trust = new QPushButton(hasChanged ? tr("Trust the new key") : tr("Trust this key"), this);
    trust->setAutoDefault(false);
    trust->setProperty("kind", hasChanged ? QStringLiteral("danger") : QStringLiteral("primary"));
    buttons()->addWidget(trust);
    connect(trust, &QPushButton::clicked, this, [this, devId] {
        m_logins->trust(devId, m_shownKey);
        accept();
    });
}

} // namespace vemo_client
