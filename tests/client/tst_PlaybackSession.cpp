#include "SimulatedRecorder.h"

#include "playback/DaySearch.h"
#include "playback/PlaybackSession.h"

#include <SysPaths.h>
#include <vms_sdk.h>

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QUrlQuery>

#include <memory>

using vemo_base::DayAxis;
using vemo_client::ChannelRef;
using vemo_client::Footage;
using vemo_client::PlaybackSession;
using vemo_client::StreamDecoder;
using Kind = PlaybackSession::TileState::Kind;

namespace {

constexpr int patienceMs = 30'000;
constexpr int channels = 4;
constexpr qint64 pictureMs = 40;
constexpr qint64 creditBytes = 12 * 1024 * 1024;
const QDate day(2026, 1, 10);

qint64 at(int hour, int minute, int second, int ms = 0)
{
    return QDateTime(day, QTime(hour, minute, second, ms)).toMSecsSinceEpoch();
}

} // namespace

/// What plays, against a recorder on the network: the picture that is shown is the one of the clock.
class tst_PlaybackSession : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void showsThePictureOfTheAskedTime_data();
    void showsThePictureOfTheAskedTime();
    void stepsPictureByPicture();
    void keepsPicturesWithTheClock_data();
    void keepsPicturesWithTheClock();
    void playsFourChannelsInStep();
    void jumpsWhereNobodyHasFootage();
    void goesOnWhileOneChannelHasAGap();
    void stopsBehindTheLastFootage();
    void movesOneChannelAloneWhenNotInStep();
    void holdsNoMoreThanItsCreditWhilePaused();
    void takesABrokenStreamUpAgain();
    void saysWhyItGaveUp();

private:
    void show(int count);
    qint64 shownMs(int tile) const { return m_session->decoder(tile)->picture().utcNs / 1'000'000; }
    bool showsClock(int tile) const;
    void fault(const QString& name, const QString& value = QString());

    QTemporaryDir m_folder;
    std::unique_ptr<SimulatedRecorder> m_recorder;
    std::unique_ptr<PlaybackSession> m_session;
    DayAxis m_day;
    QVector<Footage> m_footage;
};

void tst_PlaybackSession::initTestCase()
{
    vemo_worker::SysPaths::setRoot(m_folder.path() + QStringLiteral("/data"));
    m_recorder = std::make_unique<SimulatedRecorder>(
        m_folder.path(), QStringList{QStringLiteral("--channels"), QString::number(channels)});
    QVERIFY2(m_recorder->isReady(), "the simulated recorder did not start");
    vms_sdk::DevLogin login;
    login.devId = QStringLiteral("dev");
    login.address = m_recorder->address();
    login.user = SimulatedRecorder::user();
    login.password = SimulatedRecorder::password();
    vms_sdk::login_dev_req(login);
    m_day = DayAxis(day, QTimeZone::systemTimeZone());
    vemo_client::DaySearch search;
    m_footage.resize(channels);
    connect(&search, &vemo_client::DaySearch::signalFound, this,
            [this](int index, const QList<vms_sdk::VideoRecording>& found) {
                m_footage[index] = {m_day, found};
            });
    QVector<ChannelRef> all;
    for (int channel = 1; channel <= channels; ++channel)
        all.append({login.devId, channel});
    QSignalSpy finished(&search, &vemo_client::DaySearch::signalFinished);
    search.start(all, {m_day.beginMs(), m_day.endMs()});
    QVERIFY(finished.wait(patienceMs));
    for (const Footage& footage : qAsConst(m_footage))
        QVERIFY2(footage.covers(at(8, 0, 0)), "the recorder has no footage of the day");
}

void tst_PlaybackSession::init()
{
    fault(QString());
    m_session = std::make_unique<PlaybackSession>();
    m_session->setDay(m_day);
}

void tst_PlaybackSession::cleanup()
{
    m_session.reset();
}

void tst_PlaybackSession::cleanupTestCase()
{
    vms_sdk::uninit_sdk();
}

void tst_PlaybackSession::show(int count)
{
    for (int tile = 0; tile < count; ++tile) {
        const ChannelRef channel{QStringLiteral("dev"), tile + 1};
        m_session->setChannel(tile, channel);
        m_session->setFootage(channel, m_footage.at(tile));
        m_session->decoder(tile)->setTargetSize(QSize(320, 180));
    }
}

/// The newest picture that is not ahead of the clock.
bool tst_PlaybackSession::showsClock(int tile) const
{
    const qint64 behindMs = m_session->positionMs() - shownMs(tile);
    return behindMs >= 0 && behindMs <= pictureMs;
}

/// An empty name: all faults end.
void tst_PlaybackSession::fault(const QString& name, const QString& value)
{
    QUrl url =
        m_recorder->control().resolved(QUrl(name.isEmpty() ? QStringLiteral("/reset") : QStringLiteral("/fault")));
    QUrlQuery query;
    if (!name.isEmpty())
        query.setQueryItems({{QStringLiteral("name"), name}, {QStringLiteral("value"), value}});
    url.setQuery(query);
    QNetworkAccessManager network;
    QNetworkRequest request(url);
    request.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("text/plain"));
    std::unique_ptr<QNetworkReply> reply(network.post(request, QByteArray()));
    QTRY_VERIFY(reply->isFinished());
    QCOMPARE(reply->error(), QNetworkReply::NoError);
}

void tst_PlaybackSession::showsThePictureOfTheAskedTime_data()
{
    QTest::addColumn<int>("channel");
    QTest::addColumn<qint64>("ms");

    QTest::newRow("H.264 with B pictures, late in a group") << 1 << at(8, 0, 1, 990);
    QTest::newRow("H.265") << 2 << at(9, 0, 0, 700);
    QTest::newRow("on a key frame") << 3 << at(10, 0, 0, 0);
    QTest::newRow("just behind a gap") << 1 << at(8, 30, 20, 100);
}

void tst_PlaybackSession::showsThePictureOfTheAskedTime()
{
    QFETCH(const int, channel);
    QFETCH(const qint64, ms);
    show(channels);
    m_session->select(channel - 1);
    m_session->seek(ms);
    QTRY_VERIFY2_WITH_TIMEOUT(showsClock(channel - 1), "the picture of another time is shown", patienceMs);
    QCOMPARE(m_session->positionMs(), ms);
    // From there to another place on the same connection.
    m_session->seek(ms + 600'000);
    QTRY_VERIFY2_WITH_TIMEOUT(showsClock(channel - 1), "a second seek shows the picture of another time", patienceMs);
    QCOMPARE(m_session->state(channel - 1).kind, Kind::Picture);
}

void tst_PlaybackSession::stepsPictureByPicture()
{
    show(1);
    m_session->seek(at(8, 0, 4, 10));
    QTRY_VERIFY_WITH_TIMEOUT(showsClock(0), patienceMs);
    qint64 beforeMs = shownMs(0);
    for (int i = 0; i < 3; ++i) {
        m_session->stepForward();
        QTRY_VERIFY_WITH_TIMEOUT(shownMs(0) > beforeMs, patienceMs);
        QVERIFY2(qAbs(shownMs(0) - beforeMs - pictureMs) <= 1, qPrintable(QString::number(shownMs(0) - beforeMs)));
        beforeMs = shownMs(0);
    }
    for (int i = 0; i < 3; ++i) { // over a key frame
        m_session->stepBack();
        QTRY_VERIFY_WITH_TIMEOUT(shownMs(0) < beforeMs && showsClock(0), patienceMs);
        QVERIFY2(qAbs(beforeMs - shownMs(0) - pictureMs) <= 1, qPrintable(QString::number(shownMs(0) - beforeMs)));
        beforeMs = shownMs(0);
    }
    QVERIFY(!m_session->isPlaying());
}

void tst_PlaybackSession::keepsPicturesWithTheClock_data()
{
    QTest::addColumn<double>("speed");
    QTest::addColumn<qint64>("mostBehindMs"); ///< between two key frames at the highest speeds

    QTest::newRow("slow") << 0.5 << qint64(100);
    QTest::newRow("real time") << 1.0 << qint64(100);
    QTest::newRow("four times") << 4.0 << qint64(2500);
    QTest::newRow("sixteen times") << 16.0 << qint64(2500);
}

void tst_PlaybackSession::keepsPicturesWithTheClock()
{
    QFETCH(const double, speed);
    QFETCH(const qint64, mostBehindMs);
    show(1);
    m_session->setSpeed(speed);
    m_session->seek(at(8, 0, 0));
    m_session->play();
    QTRY_VERIFY_WITH_TIMEOUT(shownMs(0) > at(8, 0, 0, 500), patienceMs);
    qint64 worstMs = 0;
    int pictures = 0;
    connect(m_session->decoder(0), &StreamDecoder::signalPicture, this, [&] {
        ++pictures;
        worstMs = qMax(worstMs, qAbs(m_session->positionMs() - shownMs(0)));
    });
    // A busy machine holds the clock back until less is decoded; it must never run ahead.
    double reached = 0;
    for (int window = 0; window < 10 && reached < speed * 0.7; ++window) {
        const qint64 fromMs = m_session->positionMs();
        QElapsedTimer wall;
        wall.start();
        QTest::qWait(1000);
        reached = double(m_session->positionMs() - fromMs) / double(wall.elapsed());
        QVERIFY2(reached < speed * 1.1, qPrintable(QString::number(reached)));
    }
    m_session->decoder(0)->disconnect(this);
    QVERIFY2(reached >= speed * 0.7, qPrintable(QString::number(reached)));
    QVERIFY2(pictures > 4, qPrintable(QString::number(pictures)));
    QVERIFY2(worstMs <= mostBehindMs, qPrintable(QString::number(worstMs)));
}

void tst_PlaybackSession::playsFourChannelsInStep()
{
    show(channels);
    m_session->seek(at(8, 15, 0));
    m_session->play();
    QTRY_VERIFY_WITH_TIMEOUT(m_session->positionMs() > at(8, 15, 2), patienceMs);
    m_session->pause();
    QTest::qWait(100);
    for (int tile = 0; tile < channels; ++tile)
        QVERIFY2(showsClock(tile), qPrintable(QStringLiteral("channel %1 is %2 ms behind the clock")
                                                  .arg(tile + 1)
                                                  .arg(m_session->positionMs() - shownMs(tile))));
}

void tst_PlaybackSession::jumpsWhereNobodyHasFootage()
{
    show(1);
    QSignalSpy jumped(m_session.get(), &PlaybackSession::signalJumped);
    m_session->seek(at(8, 29, 59));
    m_session->play();
    QTRY_COMPARE_WITH_TIMEOUT(jumped.size(), 1, patienceMs);
    QTRY_VERIFY_WITH_TIMEOUT(shownMs(0) >= at(8, 30, 20), patienceMs);
    QVERIFY2(m_session->positionMs() < at(8, 30, 25), "the clock jumped past the end of the gap");
}

void tst_PlaybackSession::goesOnWhileOneChannelHasAGap()
{
    show(2);
    m_session->seek(at(8, 30, 5));
    m_session->play();
    QTRY_VERIFY_WITH_TIMEOUT(shownMs(1) > at(8, 30, 6), patienceMs);
    const PlaybackSession::TileState state = m_session->state(0);
    QCOMPARE(state.kind, Kind::Gap);
    QVERIFY(qAbs(state.gap.beginMs - at(8, 30, 0)) < 1000 && qAbs(state.gap.endMs - at(8, 30, 20)) < 1000);
    m_session->setSpeed(16);
    QTRY_VERIFY2_WITH_TIMEOUT(shownMs(0) >= at(8, 30, 20) && m_session->state(0).kind == Kind::Picture,
                              "the channel did not come back behind its gap", patienceMs);
}

void tst_PlaybackSession::stopsBehindTheLastFootage()
{
    show(2);
    QSignalSpy ended(m_session.get(), &PlaybackSession::signalEnded);
    m_session->seek(at(23, 59, 58));
    m_session->play();
    QVERIFY(ended.wait(patienceMs));
    QVERIFY(!m_session->isPlaying());
    QVERIFY(m_session->positionMs() > at(23, 59, 59));
}

void tst_PlaybackSession::movesOneChannelAloneWhenNotInStep()
{
    show(2);
    m_session->seek(at(8, 0, 0));
    QTRY_VERIFY_WITH_TIMEOUT(showsClock(0) && showsClock(1), patienceMs);
    m_session->setInStep(false);
    m_session->select(1);
    m_session->seek(at(9, 0, 0));
    QTRY_VERIFY_WITH_TIMEOUT(showsClock(1), patienceMs);
    QVERIFY2(qAbs(shownMs(0) - at(8, 0, 0)) <= pictureMs, "the other channel was moved as well");
    m_session->setInStep(true);
    QTRY_VERIFY2_WITH_TIMEOUT(showsClock(0), "in step again, the channels show different times", patienceMs);
    QCOMPARE(m_session->positionMs(), at(9, 0, 0));
}

void tst_PlaybackSession::holdsNoMoreThanItsCreditWhilePaused()
{
    show(1);
    m_session->seek(at(8, 0, 0));
    QTRY_VERIFY_WITH_TIMEOUT(showsClock(0), patienceMs);
    qint64 mostBytes = 0;
    for (int i = 0; i < 20; ++i) {
        QTest::qWait(100);
        mostBytes = qMax(mostBytes, m_session->decoder(0)->waitingBytes());
    }
    QVERIFY2(mostBytes > 0, "nothing waits: the recorder was never asked for more than a picture");
    QVERIFY2(mostBytes < creditBytes + 1024 * 1024, qPrintable(QString::number(mostBytes)));
    QCOMPARE(m_session->positionMs(), at(8, 0, 0));
}

void tst_PlaybackSession::takesABrokenStreamUpAgain()
{
    show(1);
    fault(QStringLiteral("drop-after"), QStringLiteral("3000000")); // some four seconds
    m_session->seek(at(8, 0, 0));
    m_session->play();
    QTRY_VERIFY_WITH_TIMEOUT(m_session->state(0).kind == Kind::Broken, patienceMs);
    QVERIFY2(!m_session->state(0).problem.isEmpty(), "the stream broke without a word");
    const qint64 brokenMs = shownMs(0);
    QVERIFY2(m_session->positionMs() - brokenMs < 200, "the clock went on without pictures");
    fault(QString());
    QTRY_VERIFY_WITH_TIMEOUT(shownMs(0) > brokenMs + 500, patienceMs);
    QCOMPARE(m_session->state(0).kind, Kind::Picture);
    QVERIFY2(shownMs(0) < brokenMs + 5000, "footage was left out");
}

void tst_PlaybackSession::saysWhyItGaveUp()
{
    show(1);
    fault(QStringLiteral("session-limit"));
    m_session->seek(at(8, 0, 0));
    QTRY_COMPARE_WITH_TIMEOUT(m_session->state(0).kind, Kind::Failed, patienceMs);
    QVERIFY(!m_session->state(0).problem.isEmpty());
    fault(QString());
    m_session->retry(0);
    QTRY_VERIFY_WITH_TIMEOUT(showsClock(0), patienceMs);
    QCOMPARE(m_session->state(0).kind, Kind::Picture);
}

QTEST_MAIN(tst_PlaybackSession)
#include "tst_PlaybackSession.moc"
