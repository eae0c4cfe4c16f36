#include "SimulatedRecorder.h"
#include "TestCertificate.h"

#include "devices/CertificateDialog.h"
#include "devices/CertificateWords.h"
#include "devices/DevicesPage.h"
#include "devices/DiscoveryDialog.h"
#include "devices/NoticeCard.h"
#include "devices/RecorderDialog.h"
#include "devices/RecorderLogins.h"

#include <BaseTools.h>
#include <Database.h>
#include <DevsMgrData.h>
#include <PasswordStore.h>
#include <SearchBox.h>
#include <SysPaths.h>
#include <TableWidget.h>
#include <VMessageBox.h>
#include <vms_sdk.h>

#include <QComboBox>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using vemo_base::TableWidget;
using vemo_client::DevicesPage;
using vemo_client::RecorderLogins;
using vemo_data::DevRecord;
using vemo_data::DevsMgrData;
using Phase = RecorderLogins::Phase;

namespace {

constexpr int patienceMs = 30'000;
enum Column : int {
    NameColumn = 1,
    StateColumn,
    AddressColumn,
    GroupColumn,
    ChannelsColumn,
    ModelColumn,
    BackupColumn
};

template <typename Widget>
Widget* shown(QWidget* parent, const QString& text)
{
    const QList<Widget*> widgets = parent->findChildren<Widget*>();
    for (Widget* widget : widgets) {
        const bool isIt = widget->accessibleName() == text || widget->objectName() == text ||
                          widget->property("text").toString() == text;
        if (isIt && widget->isVisible())
            return widget;
    }
    qWarning("there is no %s", qPrintable(text));
    return nullptr;
}

template <typename Dialog>
Dialog* dialogOf(QWidget* parent)
{
    const QList<Dialog*> dialogs = parent->findChildren<Dialog*>();
    for (Dialog* dialog : dialogs) {
        if (dialog->isVisible())
            return dialog;
    }
    return nullptr;
}

void click(QWidget* parent, const char* text)
{
    auto* button = shown<QPushButton>(parent, QString::fromLatin1(text));
    QVERIFY2(button && button->isEnabled(), text);
    QTest::mouseClick(button, Qt::LeftButton);
}

} // namespace

/// The page of the recorders as a person uses it, against a recorder on the network that is found by discovery and is
/// reached by TLS as well.
class tst_DevicesPage : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void findsARecorderOnTheNetworkAndAddsIt();
    void asksAboutARecorderAtANewAddress();
    void asksBeforeItTrustsAnotherKey_data();
    void asksBeforeItTrustsAnotherKey();
    void leavesADisabledRecorderAlone();
    void addsASourceForLiveViewOutOfAPastedAddress();
    void namesGroupsAndRemovesRecorders();
    void isQuickWithManyRecorders();
    void wroteThePasswordNowhere();

private:
    QString addStored(const QUrl& address, const QByteArray& pin = QByteArray(), const QString& endpoint = QString());
    TableWidget* table() const { return m_page->findChild<TableWidget*>(); }
    QString text(Column column) const { return table()->item(0, column)->text(); }
    Phase phase(const QString& devId) const { return m_logins->login(devId).phase; }
    /// The row of the simulated recorder; others may answer on this machine too. -1: not yet.
    int foundRow(const TableWidget* found, const QString& address) const;

    QTemporaryDir m_folder;
    std::unique_ptr<SimulatedRecorder> m_recorder;
    std::unique_ptr<RecorderLogins> m_logins;
    std::unique_ptr<DevicesPage> m_page;
};

void tst_DevicesPage::initTestCase()
{
    qputenv("VEMO_KEYRING", "off");
    vemo_worker::SysPaths::setRoot(m_folder.path() + QStringLiteral("/data"));
    const TestCertificate made = TestCertificate::make(QStringLiteral("127.0.0.1"));
    const auto write = [this](const QString& name, const QByteArray& content) {
        QFile file(m_folder.filePath(name));
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() ? file.fileName() : QString();
    };
    m_recorder = std::make_unique<SimulatedRecorder>(
        m_folder.path(), QStringList{QStringLiteral("--discovery"), QStringLiteral("--tls-cert"),
                                     write(QStringLiteral("cert.pem"), made.certificate.toPem()),
                                     QStringLiteral("--tls-key"), write(QStringLiteral("key.pem"), made.key.toPem())});
    QVERIFY2(m_recorder->isReady(), "the simulated recorder did not start");
}

void tst_DevicesPage::init()
{
    m_logins = std::make_unique<RecorderLogins>();
    m_page = std::make_unique<DevicesPage>(m_logins.get());
    m_page->resize(1392, 800);
    m_page->show();
}

void tst_DevicesPage::cleanup()
{
    const QStringList devIds = DevsMgrData::instance().devIds();
    for (const QString& devId : devIds) {
        m_logins->remove(devId);
        DevsMgrData::instance().removeDev(devId);
    }
    m_page.reset();
    m_logins.reset();
}

void tst_DevicesPage::cleanupTestCase()
{
    vms_sdk::uninit_sdk();
    vemo_data::Database::instance().close();
}

QString tst_DevicesPage::addStored(const QUrl& address, const QByteArray& pin, const QString& endpoint)
{
    DevRecord record;
    record.address = address;
    record.user = SimulatedRecorder::user();
    record.name = QStringLiteral("Gate");
    record.pinnedKeySha256 = pin;
    record.endpoint = endpoint;
    return m_logins->add(record, SimulatedRecorder::password());
}

int tst_DevicesPage::foundRow(const TableWidget* found, const QString& address) const
{
    for (int row = 0; row < found->rowCount(); ++row) {
        if (found->item(row, 3)->text() == address)
            return row;
    }
    return -1;
}

void tst_DevicesPage::findsARecorderOnTheNetworkAndAddsIt()
{
    click(m_page.get(), "Find on the network..."); // of the empty page
    auto* dialog = dialogOf<vemo_client::DiscoveryDialog>(m_page.get());
    QVERIFY(dialog);
    const auto* found = dialog->findChild<TableWidget*>();
    const QString address = m_recorder->address().authority();
    QTRY_VERIFY_WITH_TIMEOUT(foundRow(found, address) >= 0, patienceMs);
    QVERIFY(!shown<QPushButton>(dialog, QStringLiteral("Add"))->isEnabled());
    found->item(foundRow(found, address), 0)->setCheckState(Qt::Checked);
    QTest::keyClicks(shown<QLineEdit>(dialog, QStringLiteral("User name")), SimulatedRecorder::user());
    QTest::keyClicks(shown<QLineEdit>(dialog, QStringLiteral("Password")), SimulatedRecorder::password());
    click(dialog, "Add 1 recorder");
    QTRY_COMPARE_WITH_TIMEOUT(text(StateColumn), QStringLiteral("Online"), patienceMs);
    QCOMPARE(text(AddressColumn), address);
    QCOMPARE(text(ChannelsColumn), QStringLiteral("2"));
    QCOMPARE(text(BackupColumn), QStringLiteral("Yes"));
    QVERIFY(!text(ModelColumn).isEmpty());

    click(m_page.get(), "findBt");
    dialog = dialogOf<vemo_client::DiscoveryDialog>(m_page.get());
    found = dialog->findChild<TableWidget*>();
    QTRY_VERIFY_WITH_TIMEOUT(foundRow(found, address) >= 0, patienceMs);
    const int row = foundRow(found, address);
    QCOMPARE(found->item(row, 4)->text(), QStringLiteral("Already added"));
    auto* all = dialog->findChild<TableWidget*>();
    all->checkAll(true);
    QVERIFY2(!found->item(row, 0)->data(Qt::CheckStateRole).isValid(), "it could be added twice");
    QTest::keyClick(dialog, Qt::Key_Escape);
}

void tst_DevicesPage::asksAboutARecorderAtANewAddress()
{
    const QString devId = addStored(m_recorder->address());
    QTRY_COMPARE_WITH_TIMEOUT(phase(devId), Phase::Online, patienceMs);
    QVERIFY2(!DevsMgrData::instance().devRecord(devId).endpoint.isEmpty(), "the login did not tell it");
    m_logins->moveTo(devId, QUrl(QStringLiteral("http://127.0.0.1:1/onvif/device_service")));
    QTRY_COMPARE_WITH_TIMEOUT(phase(devId), Phase::Failed, patienceMs);
    click(m_page.get(), "findBt");
    auto* dialog = dialogOf<vemo_client::DiscoveryDialog>(m_page.get());
    const auto asks = [dialog] {
        const auto* notice = dialog->findChild<vemo_client::NoticeCard*>();
        return notice->isVisible() && notice->title().contains(QLatin1String("Gate answers at"));
    };
    QTRY_VERIFY_WITH_TIMEOUT(asks(), patienceMs);
    QCOMPARE(DevsMgrData::instance().devRecord(devId).address.port(), 1); // nothing without a yes
    click(dialog, "Use the new address");
    QCOMPARE(DevsMgrData::instance().devRecord(devId).address.port(), m_recorder->address().port());
    QTRY_COMPARE_WITH_TIMEOUT(phase(devId), Phase::Online, patienceMs);
    QVERIFY(!asks());
    dialog->reject();
}

void tst_DevicesPage::asksBeforeItTrustsAnotherKey_data()
{
    QTest::addColumn<QByteArray>("pin");
    QTest::addColumn<QString>("trust");
    QTest::newRow("first use") << QByteArray() << "Trust this key";
    QTest::newRow("changed") << QByteArray(32, '\x07') << "Trust the new key";
}

void tst_DevicesPage::asksBeforeItTrustsAnotherKey()
{
    QFETCH(const QByteArray, pin);
    QFETCH(const QString, trust);
    const QString devId = addStored(m_recorder->address(QStringLiteral("onvifs")), pin);
    QTRY_COMPARE_WITH_TIMEOUT(phase(devId), Phase::CertificateUnknown, patienceMs);
    QTRY_COMPARE(text(StateColumn), QStringLiteral("Certificate"));
    m_page->showRecorder(devId);
    click(m_page.get(), "Check the key...");
    auto* dialog = dialogOf<vemo_client::CertificateDialog>(m_page.get());
    QVERIFY(dialog);
    QString words;
    const QList<QLabel*> labels = dialog->findChildren<QLabel*>();
    for (const QLabel* label : labels)
        words += label->text() + QLatin1Char('\n');
    using vemo_client::CertificateWords;
    QVERIFY(words.contains(CertificateWords::fingerprint(m_logins->login(devId).offeredKeySha256)));
    QCOMPARE(words.contains(CertificateWords::fingerprint(QByteArray(32, '\x07'))), !pin.isEmpty());
    QVERIFY(words.contains(QLatin1String("vouches")));
    QTest::keyClick(dialog, Qt::Key_Return); // the safe answer is the default
    QTRY_VERIFY(!dialogOf<vemo_client::CertificateDialog>(m_page.get()));
    QCOMPARE(DevsMgrData::instance().devRecord(devId).pinnedKeySha256, pin);

    m_logins->trust(devId, QByteArray(32, '\x09')); // another key than the one that was shown
    QCOMPARE(phase(devId), Phase::CertificateUnknown);
    click(m_page.get(), "Check the key...");
    click(dialogOf<vemo_client::CertificateDialog>(m_page.get()), trust.toLatin1().constData());
    QTRY_COMPARE_WITH_TIMEOUT(phase(devId), Phase::Online, patienceMs);
}

void tst_DevicesPage::leavesADisabledRecorderAlone()
{
    const QString devId = addStored(m_recorder->address());
    QTRY_COMPARE_WITH_TIMEOUT(phase(devId), Phase::Online, patienceMs);
    table()->item(0, 0)->setCheckState(Qt::Checked);
    click(m_page.get(), "disableBt");
    QCOMPARE(text(StateColumn), QStringLiteral("Disabled"));
    m_logins->retry(devId);
    m_logins->start(); // as after a restart
    QTest::qWait(300);
    QCOMPARE(text(StateColumn), QStringLiteral("Disabled"));
    QCOMPARE(DevsMgrData::instance().getDevStatus(devId), vms_sdk::DevStatus::Unknown);
    QVERIFY(m_logins->offline().isEmpty()); // nothing that needs care
    click(m_page.get(), "enableBt");
    QTRY_COMPARE_WITH_TIMEOUT(text(StateColumn), QStringLiteral("Online"), patienceMs);
}

void tst_DevicesPage::addsASourceForLiveViewOutOfAPastedAddress()
{
    click(m_page.get(), "addBt");
    auto* dialog = dialogOf<vemo_client::RecorderDialog>(m_page.get());
    QUrl address = m_recorder->address(QStringLiteral("rtsp"));
    const QString login = QStringLiteral("rtsp://admin:s3cret%20word@") + address.authority();
    QTest::keyClicks(shown<QLineEdit>(dialog, QStringLiteral("Address")), login + QStringLiteral("/live/{channel}"));
    QTRY_COMPARE(shown<QLineEdit>(dialog, QStringLiteral("User name"))->text(), SimulatedRecorder::user());
    QCOMPARE(shown<QLineEdit>(dialog, QStringLiteral("Password"))->text(), SimulatedRecorder::password());
    QVERIFY(!shown<QLineEdit>(dialog, QStringLiteral("Address"))->text().contains(QLatin1String("s3cret")));
    shown<QSpinBox>(dialog, QStringLiteral("Channels"))->setValue(2);
    QTest::keyClicks(shown<QComboBox>(dialog, QStringLiteral("Group")), QStringLiteral("Yard"));
    click(dialog, "Add");
    QTRY_COMPARE_WITH_TIMEOUT(table()->rowCount(), 1, patienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(text(StateColumn), QStringLiteral("Online"), patienceMs);
    const QString devId = DevsMgrData::instance().devIds().value(0);
    const DevRecord record = DevsMgrData::instance().devRecord(devId);
    QCOMPARE(record.kind, vemo_data::DevKind::RtspSource);
    QVERIFY(record.address.userInfo().isEmpty());
    QCOMPARE(text(ChannelsColumn), QStringLiteral("2"));
    QCOMPARE(text(GroupColumn), QStringLiteral("Yard"));
    QCOMPARE(text(BackupColumn), QStringLiteral("No"));
}

void tst_DevicesPage::namesGroupsAndRemovesRecorders()
{
    const QString devId = addStored(m_recorder->address());
    QTRY_COMPARE_WITH_TIMEOUT(phase(devId), Phase::Online, patienceMs);
    m_page->showRecorder(devId);
    auto* name = shown<QLineEdit>(m_page.get(), QStringLiteral("Name of channel 2"));
    QVERIFY(name);
    QTest::keyClicks(name, QStringLiteral("Ramp"));
    QTest::keyClick(name, Qt::Key_Return);
    QCOMPARE(vemo_base::BaseTools::instance().getChannelName(devId, 2), QStringLiteral("Ramp"));

    auto* filter = m_page->findChild<vemo_base::SearchBox*>();
    filter->setText(QStringLiteral("ramp"));
    QVERIFY(!table()->isRowHidden(0));
    filter->setText(QStringLiteral("nothing like it"));
    QVERIFY(table()->isRowHidden(0));
    filter->clear();
    table()->item(0, 0)->setCheckState(Qt::Checked);
    click(m_page.get(), "removeBt");
    auto* box = dialogOf<vemo_base::VMessageBox>(m_page.get());
    QVERIFY(box);
    QTest::keyClick(box, Qt::Key_Escape);
    QVERIFY(DevsMgrData::instance().contains(devId));
    click(m_page.get(), "removeBt");
    click(dialogOf<vemo_base::VMessageBox>(m_page.get()), "Remove");
    QTRY_COMPARE(table()->rowCount(), 0);
    bool answered = false;
    bool found = true;
    vemo_worker::PasswordStore::instance().get(devId, this, [&](const QString&, bool isThere) {
        answered = true;
        found = isThere;
    });
    QTRY_VERIFY(answered);
    QVERIFY2(!found, "the password of a removed recorder is kept");
}

/// 200 recorders of 32 channels; the limits are three times those of an idle machine.
void tst_DevicesPage::isQuickWithManyRecorders()
{
    constexpr int recorders = 200;
    for (int i = 0; i < recorders; ++i) {
        DevRecord record;
        record.name = QStringLiteral("Recorder %1").arg(i);
        record.address = QUrl(QStringLiteral("rtsp://10.1.0.%1/live/%7Bchannel%7D").arg(i));
        record.channelCount = 32;
        record.enabled = false;
        DevsMgrData::instance().addDev(record);
    }
    m_page.reset();
    QElapsedTimer clock;
    clock.start();
    m_page = std::make_unique<DevicesPage>(m_logins.get());
    m_page->resize(1392, 800);
    m_page->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
    const qint64 openMs = clock.restart();
    m_page->findChild<vemo_base::SearchBox*>()->setText(QStringLiteral("recorder 19"));
    const qint64 filterMs = clock.elapsed();
    qInfo("page of %d recorders: open %lld ms, filter %lld ms", recorders, openMs, filterMs);
    QCOMPARE(table()->shownCount(), 11);
    QVERIFY(openMs < 900);
    QVERIFY(filterMs < 150);
}

/// What the tests before have left behind.
void tst_DevicesPage::wroteThePasswordNowhere()
{
    vemo_data::Database::instance().close();
    const QByteArray password = SimulatedRecorder::password().toUtf8();
    const QByteArrayList forms{
        password, QUrl::toPercentEncoding(SimulatedRecorder::password()),
        password.toBase64(QByteArray::OmitTrailingEquals),
        QByteArray(SimulatedRecorder::user().toUtf8() + ':' + password).toBase64(QByteArray::OmitTrailingEquals),
        QByteArray(reinterpret_cast<const char*>(SimulatedRecorder::password().utf16()),
                   SimulatedRecorder::password().size() * 2)};
    QDirIterator files(m_folder.filePath(QStringLiteral("data")), QDir::Files | QDir::Hidden,
                       QDirIterator::Subdirectories);
    int count = 0;
    for (; files.hasNext(); ++count) {
        QFile file(files.next());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray content = file.readAll();
        for (const QByteArray& form : forms)
            QVERIFY2(!content.contains(form), qPrintable(file.fileName()));
    }
    QVERIFY(count >= 2); // database and secrets
}

QTEST_MAIN(tst_DevicesPage)
#include "tst_DevicesPage.moc"
