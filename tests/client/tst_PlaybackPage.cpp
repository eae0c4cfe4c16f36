#include "SimulatedRecorder.h"

#include "devices/NoticeCard.h"
#include "devices/RecorderDialog.h"
#include "devices/RecorderLogins.h"
#include "devices/RecorderTree.h"
#include "playback/DayAxisWt.h"
#include "playback/PlaybackPage.h"
#include "playback/PlaybackStage.h"
#include "video/VideoTileWt.h"
#include "video/VideoWallWt.h"

#include <BaseTools.h>
#include <Database.h>
#include <DevsMgrData.h>
#include <ModuleAccess.h>
#include <SysPaths.h>
#include <SystemConfig.h>
#include <SystemWorker.h>
#include <TableWidget.h>
#include <vms_sdk.h>

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimeEdit>
#include <QWheelEvent>

#include <algorithm>
#include <memory>

using vemo_client::ChannelRef;
using vemo_client::DayAxisWt;
using vemo_client::PlaybackPage;
using vemo_client::PlaybackStage;
using vemo_client::RecorderDialog;
using vemo_client::RecorderLogins;
using vemo_client::RecorderTree;
using vemo_client::VideoWallWt;

namespace {

constexpr int patienceMs = 30'000;
const QDate day(2026, 1, 10);

} // namespace

/// The page as a person uses it, against a recorder on the network.
class tst_PlaybackPage : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void addsTheFirstRecorderAndFetchesARecording();
    void asksForAMarkedSpanOncePerChannel();
    void choiceAndMarkExcludeEachOther();
    void saysThatTheLoginWasRefusedAndTakesTheRecorderBack();
    void logsAStoredRecorderInAfterARestart();
    void dropsASearchWhenAnotherDayIsPicked();
    void keepsTheDialogOpenWhileItLogsInByEnter();
    void playsFromAClickOnTheTimeLine();
    void marksZoomsAndMovesOnTheTimeLine();
    void refusesDownloadsWithoutThePower();

private:
    void addRecorder(const QString& password);
    template <typename Field>
    Field* field(const QString& accessibleName) const;
    RecorderTree* tree() const { return m_page->findChild<RecorderTree*>(); }
    QPushButton* download() const { return m_page->findChild<QPushButton*>(QStringLiteral("downloadBt")); }
    vemo_base::TableWidget* table() const { return m_page->findChild<vemo_base::TableWidget*>(); }
    QString devId() const { return vemo_data::DevsMgrData::instance().devIds().value(0); }
    void searchChannels(const QList<int>& numbers);
    void dragOnAxis(const QPoint& from, const QPoint& to) const;
    DayAxisWt* axis() const { return m_page->findChild<DayAxisWt*>(); }

    QTemporaryDir m_folder;
    std::unique_ptr<SimulatedRecorder> m_recorder;
    std::unique_ptr<RecorderLogins> m_logins;
    std::unique_ptr<PlaybackPage> m_page;
};

void tst_PlaybackPage::initTestCase()
{
    qputenv("VEMO_KEYRING", "off");
    vemo_worker::SysPaths::setRoot(m_folder.path() + QStringLiteral("/data"));
    m_recorder = std::make_unique<SimulatedRecorder>(m_folder.path());
    QVERIFY2(m_recorder->isReady(), "the simulated recorder did not start");
}

void tst_PlaybackPage::init()
{
    m_logins = std::make_unique<RecorderLogins>();
    m_page = std::make_unique<PlaybackPage>(m_logins.get());
    m_page->resize(1100, 700);
    m_page->show();
}

void tst_PlaybackPage::cleanup()
{
    const QStringList devIds = vemo_data::DevsMgrData::instance().devIds();
    for (const QString& id : devIds) {
        m_logins->remove(id);
        vemo_data::DevsMgrData::instance().removeDev(id);
    }
    m_page.reset();
    m_logins.reset();
}

void tst_PlaybackPage::cleanupTestCase()
{
    vms_sdk::uninit_sdk();
    vemo_data::Database::instance().close();
}

template <typename Field>
Field* tst_PlaybackPage::field(const QString& accessibleName) const
{
    const QList<Field*> fields = m_page->findChildren<Field*>();
    for (Field* found : fields) {
        if (found->accessibleName() == accessibleName)
            return found;
    }
    qWarning("there is no field %s", qPrintable(accessibleName));
    return nullptr;
}

void tst_PlaybackPage::addRecorder(const QString& password)
{
    QTest::keyClicks(field<QLineEdit>(QStringLiteral("Address")), m_recorder->address().authority());
    QTest::keyClicks(field<QLineEdit>(QStringLiteral("User name")), SimulatedRecorder::user());
    QTest::keyClicks(field<QLineEdit>(QStringLiteral("Password")), password);
    const QList<QPushButton*> buttons = m_page->findChildren<QPushButton*>();
    for (QPushButton* button : buttons) {
        if (button->text() == QLatin1String("Add and log in"))
            QTest::mouseClick(button, Qt::LeftButton);
    }
}

void tst_PlaybackPage::searchChannels(const QList<int>& numbers)
{
    m_page->setDay(day);
    QVector<ChannelRef> channels;
    for (const int number : numbers)
        channels.append({devId(), number});
    tree()->setCheckedChannels(channels);
    QCOMPARE(tree()->checkedChannels().size(), numbers.size());
    m_page->search();
    QTRY_VERIFY_WITH_TIMEOUT(table()->rowCount() > 0, patienceMs);
}

void tst_PlaybackPage::addsTheFirstRecorderAndFetchesARecording()
{
    addRecorder(SimulatedRecorder::password());
    QTRY_VERIFY_WITH_TIMEOUT(tree()->topLevelItemCount() == 1 && tree()->topLevelItem(0)->childCount() > 1, patienceMs);
    QTRY_VERIFY2_WITH_TIMEOUT(tree()->isVisible(), "the recorder is online, and the page still asks for one",
                              patienceMs);
    searchChannels({2});
    QVERIFY2(!download()->isEnabled(), "nothing is chosen, and yet it can be downloaded");
    table()->item(1, 0)->setCheckState(Qt::Checked);
    table()->item(3, 0)->setCheckState(Qt::Checked);
    QTRY_VERIFY(download()->isEnabled());
    // Another channel comes into the list ahead of it; what is chosen stays chosen.
    tree()->setCheckedChannels({{devId(), 1}, {devId(), 2}});
    const int rowsBefore = table()->rowCount();
    QTRY_VERIFY_WITH_TIMEOUT(table()->rowCount() > rowsBefore, patienceMs);
    QCOMPARE(table()->checkedCount(), 2);

    QSignalSpy byFile(&vemo_contact::ModuleAccess::instance(),
                      &vemo_contact::ModuleAccess::signalDownloadRecordingByFile);
    QTest::mouseClick(download(), Qt::LeftButton);
    QCOMPARE(byFile.size(), 2);
    const QList<QVariant> request = byFile.first();
    QCOMPARE(request.at(1).toString(), vemo_base::BaseTools::instance().formatChannelId(devId(), 2));
    QCOMPARE(request.at(2).toInt(), 0);
    QVERIFY2(!request.at(3).toString().isEmpty(), "the recording has no name to ask for it by");
    QVERIFY(request.at(4).toDateTime() < request.at(5).toDateTime());
    QCOMPARE(request.at(4).toDateTime().date(), day);
    QVERIFY2(!download()->isEnabled(), "what was asked for is still chosen");
}

void tst_PlaybackPage::asksForAMarkedSpanOncePerChannel()
{
    addRecorder(SimulatedRecorder::password());
    QTRY_VERIFY_WITH_TIMEOUT(tree()->topLevelItemCount() == 1 && tree()->topLevelItem(0)->childCount() > 1, patienceMs);
    m_page->setDay(day);
    tree()->setCheckedChannels({{devId(), 1}, {devId(), 2}});
    field<QTimeEdit>(QStringLiteral("Begin of the span"))->setTime(QTime(8, 29));
    field<QTimeEdit>(QStringLiteral("End of the span"))->setTime(QTime(8, 31));

    QSignalSpy byTime(&vemo_contact::ModuleAccess::instance(),
                      &vemo_contact::ModuleAccess::signalDownloadRecordingByTimeRange);
    QTRY_VERIFY(download()->isEnabled());
    QTest::mouseClick(download(), Qt::LeftButton);
    QCOMPARE(byTime.size(), 2);
    for (int channel = 1; channel <= 2; ++channel) {
        const QList<QVariant> request = byTime.at(channel - 1);
        QCOMPARE(request.at(1).toString(), vemo_base::BaseTools::instance().formatChannelId(devId(), channel));
        QCOMPARE(request.at(3).toDateTime(), QDateTime(day, QTime(8, 29)));
        QCOMPARE(request.at(4).toDateTime(), QDateTime(day, QTime(8, 31)));
    }
    // An end ahead of the begin is no span.
    field<QTimeEdit>(QStringLiteral("End of the span"))->setTime(QTime(8, 0));
    QVERIFY(!download()->isEnabled());
}

void tst_PlaybackPage::choiceAndMarkExcludeEachOther()
{
    addRecorder(SimulatedRecorder::password());
    QTRY_VERIFY_WITH_TIMEOUT(tree()->topLevelItemCount() == 1 && tree()->topLevelItem(0)->childCount() > 1, patienceMs);
    searchChannels({1});
    field<QTimeEdit>(QStringLiteral("Begin of the span"))->setTime(QTime(8, 29));
    table()->item(0, 0)->setCheckState(Qt::Checked);
    QTRY_COMPARE(field<QTimeEdit>(QStringLiteral("Begin of the span"))->time(), QTime(0, 0));
    field<QTimeEdit>(QStringLiteral("Begin of the span"))->setTime(QTime(9, 0));
    QTRY_COMPARE(table()->checkedCount(), 0);
}

void tst_PlaybackPage::saysThatTheLoginWasRefusedAndTakesTheRecorderBack()
{
    addRecorder(QStringLiteral("wrong"));
    auto* notice = m_page->findChild<vemo_client::NoticeCard*>();
    QVERIFY(notice);
    QTRY_VERIFY_WITH_TIMEOUT(notice->isVisible(), patienceMs);
    QVERIFY2(notice->title().contains(QLatin1String("refused")), qPrintable(notice->title()));
    QCOMPARE(m_logins->login(devId()).error.kind, vms_sdk::ErrorKind::LoginRefused);
    QCOMPARE(m_logins->offline().size(), 1);

    QLineEdit* password = field<QLineEdit>(QStringLiteral("Password"));
    password->clear();
    QTest::keyClicks(password, SimulatedRecorder::password());
    const QList<QPushButton*> buttons = m_page->findChildren<QPushButton*>();
    for (QPushButton* button : buttons) {
        if (button->text() == QLatin1String("Try again"))
            QTest::mouseClick(button, Qt::LeftButton);
    }
    QTRY_COMPARE_WITH_TIMEOUT(m_logins->login(devId()).phase, RecorderLogins::Phase::Online, patienceMs);
    QCOMPARE(vemo_data::DevsMgrData::instance().devIds().size(), 1);
    QCOMPARE(m_logins->offline().size(), 0);
}

void tst_PlaybackPage::logsAStoredRecorderInAfterARestart()
{
    addRecorder(SimulatedRecorder::password());
    QTRY_COMPARE_WITH_TIMEOUT(m_logins->login(devId()).phase, RecorderLogins::Phase::Online, patienceMs);
    m_page->setDay(day);
    tree()->setCheckedChannels({{devId(), 2}});
    QCOMPARE(tree()->checkedChannels().size(), 1);
    m_page->remember();

    m_page.reset();
    m_logins = std::make_unique<RecorderLogins>();
    m_page = std::make_unique<PlaybackPage>(m_logins.get());
    m_logins->start();
    QTRY_COMPARE_WITH_TIMEOUT(m_logins->login(devId()).phase, RecorderLogins::Phase::Online, patienceMs);
    QCOMPARE(tree()->checkedChannels().size(), 1);
    QCOMPARE(tree()->checkedChannels().first().channelNo, 2);
}

void tst_PlaybackPage::dropsASearchWhenAnotherDayIsPicked()
{
    addRecorder(SimulatedRecorder::password());
    QTRY_VERIFY_WITH_TIMEOUT(tree()->topLevelItemCount() == 1 && tree()->topLevelItem(0)->childCount() > 1, patienceMs);
    m_page->setDay(day);
    tree()->setCheckedChannels({{devId(), 1}, {devId(), 2}});
    m_page->search();
    m_page->setDay(day.addDays(-30));
    // The other day, which has nothing, is searched by itself; what was dropped would have come before its answer.
    const auto saysNothing = [this] {
        const QList<QLabel*> labels = m_page->findChildren<QLabel*>();
        return std::any_of(labels.cbegin(), labels.cend(), [](const QLabel* label) {
            return label->isVisible() && label->text().startsWith(QLatin1String("There is no recording on"));
        });
    };
    QTRY_VERIFY_WITH_TIMEOUT(saysNothing(), patienceMs);
    QCOMPARE(table()->rowCount(), 0);
}

void tst_PlaybackPage::keepsTheDialogOpenWhileItLogsInByEnter()
{
    auto* dialog = new RecorderDialog(m_logins.get(), QString(), nullptr);
    dialog->open();
    const auto typed = [dialog](const char* name, const QString& text) {
        const QList<QLineEdit*> fields = dialog->findChildren<QLineEdit*>();
        for (QLineEdit* field : fields) {
            if (field->accessibleName() == QLatin1String(name)) {
                QTest::keyClicks(field, text);
                return field;
            }
        }
        return static_cast<QLineEdit*>(nullptr);
    };
    typed("Address", m_recorder->address().authority());
    typed("User name", SimulatedRecorder::user());
    QLineEdit* password = typed("Password", SimulatedRecorder::password());
    QVERIFY(password);
    QSignalSpy accepted(dialog, &QDialog::accepted);
    QTest::keyClick(password, Qt::Key_Return);
    QTRY_COMPARE_WITH_TIMEOUT(accepted.size(), 1, patienceMs);
    QCOMPARE(m_logins->login(devId()).phase, RecorderLogins::Phase::Online);
}

void tst_PlaybackPage::dragOnAxis(const QPoint& from, const QPoint& to) const
{
    QWidget* ground = axis()->viewport();
    QTest::mousePress(ground, Qt::LeftButton, {}, from);
    for (const QPoint& point : {(from + to) / 2, to}) {
        QMouseEvent move(QEvent::MouseMove, point, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(ground, &move);
    }
    QTest::mouseRelease(ground, Qt::LeftButton, {}, to);
}

void tst_PlaybackPage::playsFromAClickOnTheTimeLine()
{
    addRecorder(SimulatedRecorder::password());
    QTRY_VERIFY_WITH_TIMEOUT(tree()->topLevelItemCount() == 1 && tree()->topLevelItem(0)->childCount() > 1, patienceMs);
    searchChannels({1, 2});
    auto* stage = m_page->findChild<PlaybackStage*>();
    auto* wall = m_page->findChild<VideoWallWt*>();
    QCOMPARE(wall->tileCount(), 4);
    const qint64 ms = QDateTime(day, QTime(8, 0)).toMSecsSinceEpoch();
    QTest::mouseClick(axis()->viewport(), Qt::LeftButton, {}, QPoint(axis()->xOf(ms), 45));
    const auto shownMs = [wall](int tile) { return wall->tile(tile)->currentPicture().utcNs / 1'000'000; };
    for (const int tile : {0, 1})
        QTRY_VERIFY2_WITH_TIMEOUT(qAbs(shownMs(tile) - stage->session()->positionMs()) <= 80,
                                  "the tile shows another time than the clock", patienceMs);
    QVERIFY(qAbs(stage->session()->positionMs() - ms) < 120'000); // what a pixel stands for
    QVERIFY(!stage->session()->isPlaying());

    QTest::keyClick(wall->tile(0), Qt::Key_Space);
    QVERIFY(stage->session()->isPlaying());
    const qint64 beforeMs = shownMs(0);
    QTRY_VERIFY_WITH_TIMEOUT(shownMs(0) > beforeMs + 500, patienceMs);
    QTest::keyClick(wall->tile(0), Qt::Key_Comma);
    QVERIFY(!stage->session()->isPlaying());
    QTest::keyClick(wall->tile(0), Qt::Key_S);
    const QDir snapshots(vemo_worker::SystemConfig::instance().getLocalSnapshotPath());
    QTRY_COMPARE_WITH_TIMEOUT(snapshots.entryList({QStringLiteral("*.jpg")}, QDir::Files).size(), 1, patienceMs);

    // A channel that is unchecked leaves its tile; the other one fills the room.
    tree()->setCheckedChannels({{devId(), 2}});
    QCOMPARE(wall->tileCount(), 1);
    QCOMPARE(stage->selectedChannel()->channelNo, 2);
}

void tst_PlaybackPage::marksZoomsAndMovesOnTheTimeLine()
{
    addRecorder(SimulatedRecorder::password());
    QTRY_VERIFY_WITH_TIMEOUT(tree()->topLevelItemCount() == 1 && tree()->topLevelItem(0)->childCount() > 1, patienceMs);
    m_page->setDay(day);
    tree()->setCheckedChannels({{devId(), 1}});
    const auto x = [this](int hour) { return axis()->xOf(QDateTime(day, QTime(hour, 0)).toMSecsSinceEpoch()); };
    dragOnAxis({x(8), 45}, {x(10), 45});
    const QTime begin = field<QTimeEdit>(QStringLiteral("Begin of the span"))->time();
    QVERIFY2(qAbs(begin.secsTo(QTime(8, 0))) < 120, qPrintable(begin.toString()));
    QVERIFY(download()->isEnabled());

    const int nine = x(9);
    QWheelEvent wheel(QPointF(nine, 45), QPointF(axis()->viewport()->mapToGlobal(QPoint(nine, 45))), {}, {0, 960},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(axis()->viewport(), &wheel);
    QVERIFY2(axis()->view().length() < 0.3, "the wheel did not come closer");
    const int zoomed = x(9);
    QVERIFY2(qAbs(zoomed - nine) <= 4, "what lay below the pointer moved away");
    const int clockY = axis()->viewport()->height() - 12;
    dragOnAxis({nine, clockY}, {nine - 100, clockY});
    QVERIFY2(qAbs(x(9) - (zoomed - 100)) <= 1, "dragging the clock does not move the time line");
    QCOMPARE(field<QTimeEdit>(QStringLiteral("Begin of the span"))->time(), begin);
}

void tst_PlaybackPage::refusesDownloadsWithoutThePower()
{
    addRecorder(SimulatedRecorder::password());
    QTRY_VERIFY_WITH_TIMEOUT(tree()->topLevelItemCount() == 1 && tree()->topLevelItem(0)->childCount() > 1, patienceMs);
    m_page->setDay(day);
    tree()->setCheckedChannels({{devId(), 1}});
    field<QTimeEdit>(QStringLiteral("Begin of the span"))->setTime(QTime(9, 0));
    QVERIFY(download()->isEnabled());
    vemo_worker::SystemWorker& worker = vemo_worker::SystemWorker::instance();
    worker.setCurUser(QStringLiteral("guest"), vemo_worker::PowerPlayback);
    QVERIFY(!download()->isEnabled());
    QVERIFY2(download()->toolTip().contains(QLatin1String("not allowed")), qPrintable(download()->toolTip()));
    worker.setCurUser(QStringLiteral("admin"), vemo_worker::SystemWorker::allPowers);
    QVERIFY(download()->isEnabled());
}

QTEST_MAIN(tst_PlaybackPage)
#include "tst_PlaybackPage.moc"
