#include "FileVerifier.h"

#include <DownloadTaskData.h>
#include <TaskFactsData.h>
#include <TestWorld.h>

#include <QCryptographicHash>
#include <QFile>
#include <QSignalSpy>
#include <QtTest>

using vemo_data::DownloadTaskInfo;
using vemo_data::TaskFactsData;
using vemo_filesCenter::FileVerifier;

namespace {

constexpr int patienceMs = 15000;
constexpr int fileBytes = 2'500'000;

QByteArray content()
{
    return QByteArray(fileBytes, 'x');
}

QByteArray flipped(int byte, int bit)
{
    QByteArray changed = content();
    changed[byte] = static_cast<char>(changed.at(byte) ^ (1 << bit));
    return changed;
}

} // namespace

class FileVerifierTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qRegisterMetaType<FileVerifier::Outcome>(); }
    void init() { m_world = std::make_unique<TestWorld>(); }
    void cleanup() { m_world.reset(); }

    void saysWhetherTheFileIsWhatWasDownloaded_data();
    void saysWhetherTheFileIsWhatWasDownloaded();
    void keepsASumWhereNoneWasKept();
    void learnsWhereToLookOfFilesThatAnEarlierVersionSummed();
    void letsAPersonGoFirst();
    void standsBackWhileDownloadsRunButNotForAPerson();
    void forgetsTasksThatAreGone();
    void catchesUpOnSumsThatWereNotKept();

private:
    DownloadTaskInfo task(const QString& id, const QByteArray& content);
    void keep(FileVerifier& verifier, const DownloadTaskInfo& task);

    std::unique_ptr<TestWorld> m_world;
};

DownloadTaskInfo FileVerifierTest::task(const QString& id, const QByteArray& content)
{
    DownloadTaskInfo info;
    info.taskId = id;
    info.state = vemo_data::TaskSucceeded;
    info.savePath = m_world->path(id + QStringLiteral(".mp4"));
    QFile file(info.savePath);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("no test file");
    return info;
}

void FileVerifierTest::keep(FileVerifier& verifier, const DownloadTaskInfo& task)
{
    QSignalSpy kept(&verifier, &FileVerifier::signalSumKept);
    verifier.keepSum(task);
    QVERIFY(kept.wait(patienceMs));
    QCOMPARE(kept.first().first().toString(), task.taskId);
}

void FileVerifierTest::saysWhetherTheFileIsWhatWasDownloaded_data()
{
    QTest::addColumn<QByteArray>("now");
    QTest::addColumn<FileVerifier::Outcome>("outcome");
    QTest::addColumn<QString>("words");
    QTest::newRow("same") << content() << FileVerifier::Outcome::Same << "a.mp4 is what was downloaded";
    const auto oneBit = [](const char* name, int byte, int bit, const char* where) {
        QTest::newRow(name) << flipped(byte, bit) << FileVerifier::Outcome::Changed << where;
    };
    oneBit("the first bit", 0, 7, "a.mp4|Its length is the same|between byte 0 and byte 1,048,575");
    oneBit("the last bit of a chunk", 1'048'575, 0, "between byte 0 and byte 1,048,575");
    oneBit("the first bit of the next", 1'048'576, 7, "between byte 1,048,576 and byte 2,097,151");
    oneBit("the last bit", fileBytes - 1, 0, "between byte 2,097,152 and byte 2,499,999");
    QTest::newRow("cut") << content().left(99999) << FileVerifier::Outcome::Changed << "2,500,000 bytes|99,999";
    QTest::newRow("gone") << QByteArray() << FileVerifier::Outcome::Missing << "a.mp4 is not there any more";
}

void FileVerifierTest::saysWhetherTheFileIsWhatWasDownloaded()
{
    QFETCH(const QByteArray, now);
    QFETCH(const FileVerifier::Outcome, outcome);
    QFETCH(const QString, words);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    FileVerifier verifier;
    const DownloadTaskInfo info = task(QStringLiteral("a"), content());
    keep(verifier, info);
    if (now.isNull())
        QVERIFY(QFile::remove(info.savePath));
    else
        task(QStringLiteral("a"), now);

    QSignalSpy verified(&verifier, &FileVerifier::signalVerified);
    verifier.verify(info);
    QVERIFY(verifier.isVerifying(info.taskId));
    QVERIFY(verified.wait(patienceMs));
    QVERIFY(!verifier.isVerifying(info.taskId));
    QCOMPARE(verified.first().at(1).value<FileVerifier::Outcome>(), outcome);
    const QStringList parts = words.split(QLatin1Char('|'));
    for (const QString& part : parts)
        QVERIFY2(verified.first().at(2).toString().contains(part), qPrintable(verified.first().at(2).toString()));
    // The kept sum stands, whatever became of the file.
    QCOMPARE(TaskFactsData::instance().getNow(info.taskId).sha256,
             QCryptographicHash::hash(content(), QCryptographicHash::Sha256));
}

void FileVerifierTest::keepsASumWhereNoneWasKept()
{
    FileVerifier verifier;
    const DownloadTaskInfo info = task(QStringLiteral("a"), "abc");
    QSignalSpy verified(&verifier, &FileVerifier::signalVerified);
    verifier.verify(info);
    QVERIFY(verified.wait(patienceMs));
    QCOMPARE(verified.first().at(1).value<FileVerifier::Outcome>(), FileVerifier::Outcome::NoSumYet);
    verifier.verify(info);
    QVERIFY(verified.wait(patienceMs));
    QCOMPARE(verified.last().at(1).value<FileVerifier::Outcome>(), FileVerifier::Outcome::Same);
}

void FileVerifierTest::learnsWhereToLookOfFilesThatAnEarlierVersionSummed()
{
    FileVerifier verifier;
    const DownloadTaskInfo info = task(QStringLiteral("a"), content());
    TaskFactsData::instance().setSha256(info.taskId, QCryptographicHash::hash(content(), QCryptographicHash::Sha256),
                                        fileBytes);
    QSignalSpy verified(&verifier, &FileVerifier::signalVerified);
    for (const char* words : {"its content is not.", "is what was downloaded", "the first change is between byte 0"}) {
        const bool isWhole = verified.size() == 1;
        task(QStringLiteral("a"), isWhole ? content() : flipped(5, 1));
        verifier.verify(info);
        QVERIFY(verified.wait(patienceMs));
        const QString sentence = verified.last().at(2).toString();
        QVERIFY2(sentence.contains(QLatin1String(words)), qPrintable(sentence));
    }
}

void FileVerifierTest::letsAPersonGoFirst()
{
    FileVerifier verifier;
    QStringList order;
    connect(&verifier, &FileVerifier::signalSumKept, this, [&order](const QString& id) { order << id; });
    for (const char* id : {"a", "b", "c", "d"})
        verifier.keepSum(task(QLatin1String(id), QByteArray(1000, *id)));
    verifier.verify(task(QStringLiteral("d"), "d"));
    verifier.verify(task(QStringLiteral("d"), "d"));
    QTRY_COMPARE_WITH_TIMEOUT(order.size(), 4, patienceMs);
    QVERIFY2(order.indexOf(QStringLiteral("d")) <= 1, "only the file in hand may be ahead of it");
    QTest::qWait(50);
    QCOMPARE(order.size(), 4);
}

void FileVerifierTest::standsBackWhileDownloadsRunButNotForAPerson()
{
    FileVerifier verifier;
    verifier.setDownloadsRunning(true);
    QSignalSpy kept(&verifier, &FileVerifier::signalSumKept);
    QSignalSpy verified(&verifier, &FileVerifier::signalVerified);
    verifier.keepSum(task(QStringLiteral("a"), "abc"));
    QVERIFY2(!kept.wait(200), "nobody waits for this sum");
    verifier.verify(task(QStringLiteral("b"), "def"));
    QVERIFY(verified.wait(patienceMs));
    QCOMPARE(kept.size(), 1);
    verifier.setDownloadsRunning(false);
    QTRY_COMPARE_WITH_TIMEOUT(kept.size(), 2, patienceMs);
}

void FileVerifierTest::forgetsTasksThatAreGone()
{
    FileVerifier verifier;
    QSignalSpy kept(&verifier, &FileVerifier::signalSumKept);
    verifier.keepSum(task(QStringLiteral("a"), QByteArray(10000000, 'a')));
    verifier.keepSum(task(QStringLiteral("b"), "b"));
    verifier.keepSum(task(QStringLiteral("c"), "c"));
    verifier.forget(QStringLiteral("a"));
    verifier.forget(QStringLiteral("b"));
    QVERIFY(kept.wait(patienceMs));
    QTest::qWait(50);
    QCOMPARE(kept.size(), 1);
    QCOMPARE(kept.first().first().toString(), QStringLiteral("c"));
}

void FileVerifierTest::catchesUpOnSumsThatWereNotKept()
{
    QList<DownloadTaskInfo> tasks;
    for (const char* id : {"old", "gone", "summed", "waiting", "new"})
        tasks.append(task(QLatin1String(id), id));
    tasks[3].state = vemo_data::TaskWaiting;
    QVERIFY(QFile::remove(tasks.at(1).savePath));
    vemo_data::DownloadTaskData::instance().addDownloadTasks(tasks);
    TaskFactsData::instance().setSha256(QStringLiteral("summed"), QByteArray(32, 's'), 6);

    FileVerifier verifier;
    QStringList order;
    connect(&verifier, &FileVerifier::signalSumKept, this, [&order](const QString& id) { order << id; });
    verifier.catchUpLater(0);
    verifier.catchUpLater(0);
    QTRY_COMPARE_WITH_TIMEOUT(order.size(), 2, patienceMs);
    QTest::qWait(50);
    QCOMPARE(order, (QStringList{QStringLiteral("new"), QStringLiteral("old")}));
    QCOMPARE(TaskFactsData::instance().getNow(QStringLiteral("summed")).sha256, QByteArray(32, 's'));
}

QTEST_GUILESS_MAIN(FileVerifierTest)
#include "FileVerifierTest.moc"
