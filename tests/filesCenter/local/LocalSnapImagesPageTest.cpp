#include "LocalPageWorld.h"

#include "local/ChannelSnapImagesWt.h"
#include "local/LocalSnapImageCard.h"
#include "local/LocalSnapImagesMgrPage.h"

#include <DisabledWaitingWt.h>
#include <FilesCenterLogs.h>
#include <ImageViewerDlg.h>
#include <LocalSnapImageIndexes.h>
#include <SearchBox.h>

#include <QCheckBox>
#include <QDir>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolButton>
#include <QtTest>

using VCOMMON::LocalSnapImageIndexes;
using VCOMMON::LocalSnapImageIndexInfo;
using vemo_filesCenter::ChannelSnapImagesWt;
using vemo_filesCenter::LocalSnapImageCard;
using vemo_filesCenter::LocalSnapImagesMgrPage;

class LocalSnapImagesPageTest final : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void groupsByNameInNaturalOrder();
    void usesItsGroupsAgain();
    void filtersWhatIsDeletedAndSaved();
    void showsTheCheckStateOfAGroup();
    void deletesOneCardAndThenItsGroup();
    void keepsEverythingWhenNotConfirmed();
    void savesOneWithItsKindOfFilter_data();
    void savesOneWithItsKindOfFilter();
    void savesTheCheckedUnderLegalNames();
    void tellsWhatCouldNotBeSaved();
    void startsTheViewerAtTheCard();
    void leadsTheKeyboardThroughGroups();
    void makesCardsForWhatIsInViewOnly();

private:
    QString add(const QString& channel, int minute, const QString& file = {}) const;
    void search() const { LocalPageWorld::click(*m_page, "searchBt"); }
    QList<ChannelSnapImagesWt*> groups() const;
    QStringList shownNames() const;
    QList<LocalSnapImageCard*> cards() const;
    LocalSnapImageCard* card(const QString& path) const;
    static void check(LocalSnapImageCard* card) { card->findChild<QCheckBox*>(QStringLiteral("checkBox"))->click(); }
    static void press(LocalSnapImageCard* card, const char* button)
    {
        card->findChild<QToolButton*>(QLatin1String(button))->click();
    }
    int recordCount() const;

    std::unique_ptr<LocalPageWorld> m_world;
    std::unique_ptr<LocalSnapImagesMgrPage> m_page;
};

void LocalSnapImagesPageTest::init()
{
    m_world = std::make_unique<LocalPageWorld>();
    LocalSnapImageIndexes::instance().reload();
    m_page = std::make_unique<LocalSnapImagesMgrPage>();
    m_page->resize(1100, 800);
    m_page->show();
}

void LocalSnapImagesPageTest::cleanup()
{
    m_page.reset();
    m_world.reset();
}

QString LocalSnapImagesPageTest::add(const QString& channel, int minute, const QString& file) const
{
    LocalSnapImageIndexInfo info;
    info.devId = QStringLiteral("gone");
    info.channelNo = 3;
    info.channelName = channel;
    info.devName = QStringLiteral("Recorder");
    info.captureTime = QDateTime(QDate::currentDate(), QTime(0, 0)).addSecs(60 * minute);
    info.filePath = m_world->image(file.isEmpty() ? QStringLiteral("%1_%2.jpg").arg(qHash(channel)).arg(minute) : file);
    LocalSnapImageIndexes::instance().addLocalSnapImageIndex(info);
    return info.filePath;
}

QList<ChannelSnapImagesWt*> LocalSnapImagesPageTest::groups() const
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QList<ChannelSnapImagesWt*> found = m_page->findChildren<ChannelSnapImagesWt*>();
    std::sort(found.begin(), found.end(), [](const auto* one, const auto* other) { return one->y() < other->y(); });
    return found;
}

QStringList LocalSnapImagesPageTest::shownNames() const
{
    QCoreApplication::processEvents();
    QStringList names;
    for (const ChannelSnapImagesWt* group : groups()) {
        if (!group->isHidden())
            names.append(group->name());
    }
    return names;
}

QList<LocalSnapImageCard*> LocalSnapImagesPageTest::cards() const
{
    QCoreApplication::processEvents();
    QList<LocalSnapImageCard*> shown;
    for (LocalSnapImageCard* card : m_page->findChildren<LocalSnapImageCard*>()) {
        if (!card->isHidden())
            shown.append(card);
    }
    return shown;
}

LocalSnapImageCard* LocalSnapImagesPageTest::card(const QString& path) const
{
    for (LocalSnapImageCard* card : cards()) {
        if (card->snapshot().filePath == path)
            return card;
    }
    qFatal("the card is not shown");
}

int LocalSnapImagesPageTest::recordCount() const
{
    const QDate today = QDate::currentDate();
    return LocalSnapImageIndexes::instance()
        .getLocalSnapImageIndexesInfo(QDateTime(today, QTime(0, 0)), QDateTime(today, QTime(23, 59, 59)))
        .size();
}

void LocalSnapImagesPageTest::groupsByNameInNaturalOrder()
{
    search();
    QCOMPARE(m_world->alerts, QStringList{QStringLiteral("search none local snap images")});
    int minute = 0;
    for (const char* name : {"Channel 10", "Channel 2", "Lobby", "Channel 2"})
        add(QLatin1String(name), ++minute);
    search();
    QCOMPARE(shownNames(),
             (QStringList{QStringLiteral("Channel 2"), QStringLiteral("Channel 10"), QStringLiteral("Lobby")}));
}

void LocalSnapImagesPageTest::usesItsGroupsAgain()
{
    add(QStringLiteral("A"), 1);
    const QString b = add(QStringLiteral("B"), 2);
    const QString c = add(QStringLiteral("C"), 3);
    search();
    const QList<ChannelSnapImagesWt*> before = groups();
    LocalSnapImageIndexes::instance().deleteLocalSnapImageIndexes({b, c});
    search();
    QCOMPARE(groups(), before.mid(0, 1));
    add(QStringLiteral("0"), 4);
    search();
    QCOMPARE(shownNames(), (QStringList{QStringLiteral("0"), QStringLiteral("A")}));
    QVERIFY2(groups().contains(before.first()), "a group was made anew that could be filled again");
}

void LocalSnapImagesPageTest::filtersWhatIsDeletedAndSaved()
{
    const QString gate = add(QStringLiteral("Gate North"), 1);
    const QString lobby = add(QStringLiteral("Lobby"), 2);
    search();
    check(card(gate));
    m_page->findChild<vemo_base::SearchBox*>()->setText(QStringLiteral("LOB"));
    QCOMPARE(shownNames(), QStringList{QStringLiteral("Lobby")});
    m_world->click(*m_page, "deleteBt");
    m_world->click(*m_page, "saveAsBt");
    QCOMPARE(m_world->alerts, (QStringList{QStringLiteral("please select snap images to delete"),
                                           QStringLiteral("Please select snap images to save as")}));
    check(card(lobby));
    m_world->click(*m_page, "deleteBt");
    QCOMPARE(m_world->questions, QStringList{QStringLiteral("Do you want to delete selected snap images?")});
    m_page->findChild<vemo_base::SearchBox*>()->clear();
    QCOMPARE(shownNames(), QStringList{QStringLiteral("Gate North")});
    QTRY_VERIFY(!QFile::exists(lobby));
    QVERIFY(QFile::exists(gate));
    QCOMPARE(recordCount(), 1);
}

void LocalSnapImagesPageTest::showsTheCheckStateOfAGroup()
{
    const QString first = add(QStringLiteral("Gate"), 1);
    const QString second = add(QStringLiteral("Gate"), 2);
    search();
    auto* box = m_page->findChild<QCheckBox*>(QStringLiteral("channelName"));
    check(card(first));
    QCOMPARE(box->checkState(), Qt::PartiallyChecked);
    check(card(second));
    QCOMPARE(box->checkState(), Qt::Checked);
    box->click();
    QCOMPARE(box->checkState(), Qt::Unchecked);
    QVERIFY(groups().first()->cards()->checkedSnapshots().isEmpty());
    check(card(first));
    box->click();
    QCOMPARE(box->checkState(), Qt::Checked);
    QCOMPARE(groups().first()->cards()->checkedSnapshots().size(), 2);
}

void LocalSnapImagesPageTest::deletesOneCardAndThenItsGroup()
{
    const QString first = add(QStringLiteral("Gate"), 61);
    const QString second = add(QStringLiteral("Gate"), 62);
    search();
    press(card(first), "deleteBt");
    QCOMPARE(m_world->questions, QStringList{QStringLiteral("Do you want to delete the snap image?")});
    QCOMPARE(shownNames(), QStringList{QStringLiteral("Gate")});
    QCOMPARE(cards().size(), 1);
    press(card(second), "deleteBt");
    QVERIFY2(shownNames().isEmpty(), "a group without cards stays");
    QTRY_VERIFY(!QFile::exists(first) && !QFile::exists(second));
    QCOMPARE(recordCount(), 0);

    QList<vemo_worker::FilesCenterLogs::Entry> log;
    vemo_worker::FilesCenterLogs::instance().query({}, this, [&log](const auto& entries) { log = entries; });
    QTRY_COMPARE(log.size(), 2);
    QCOMPARE(log.last().device, QStringLiteral("Recorder"));
    QCOMPARE(log.last().channelName, QStringLiteral("Gate"));
    QVERIFY2(log.last().text.startsWith(QLatin1String("Capture time:")) &&
                 log.last().text.endsWith(QLatin1String(" 01:01:00")),
             qPrintable(log.last().text));
}

void LocalSnapImagesPageTest::keepsEverythingWhenNotConfirmed()
{
    const QString path = add(QStringLiteral("Gate"), 1);
    search();
    m_world->answer = 0;
    press(card(path), "deleteBt");
    check(card(path));
    m_world->click(*m_page, "deleteBt");
    QCOMPARE(m_world->questions.size(), 2);
    vemo_worker::SystemAssistant::instance().finishRemovals();
    QVERIFY(QFile::exists(path));
    QCOMPARE(recordCount(), 1);
    QCOMPARE(cards().size(), 1);
}

void LocalSnapImagesPageTest::savesOneWithItsKindOfFilter_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("filter");
    QTest::newRow("photo") << QStringLiteral("a.jpg") << QStringLiteral("Images (*.jpg)");
    QTest::newRow("bitmap in capitals") << QStringLiteral("B.BMP") << QStringLiteral("Images(*.bmp)");
}

void LocalSnapImagesPageTest::savesOneWithItsKindOfFilter()
{
    QFETCH(QString, file);
    QFETCH(QString, filter);
    const QString path = add(QStringLiteral("Gate"), 1, file);
    search();
    press(card(path), "saveAsBt"); // the person closes the dialog
    m_world->chosen = m_world->world.path(QStringLiteral("saved.x"));
    press(card(path), "saveAsBt");
    QCOMPARE(m_world->filters, (QStringList{filter, filter}));
    QTRY_COMPARE(QFileInfo(m_world->chosen).size(), QFileInfo(path).size());
}

void LocalSnapImagesPageTest::savesTheCheckedUnderLegalNames()
{
    const QString hostile = QStringLiteral("../Gate:\n") % QString(300, QLatin1Char('x'));
    add(hostile, 1);
    add(hostile, 2);
    add(QStringLiteral("CON"), 3, QStringLiteral("c.bmp"));
    search();
    for (ChannelSnapImagesWt* group : groups())
        group->cards()->setAllChecked(true);
    m_world->chosen = m_world->world.path(QStringLiteral("target"));
    QVERIFY(QDir().mkpath(m_world->chosen));
    const int filesBefore = QDir(m_world->world.path({})).entryList(QDir::Files).size();
    m_world->click(*m_page, "saveAsBt");
    QTRY_COMPARE(QDir(m_world->chosen).entryList(QDir::Files).size(), 3);
    QTRY_VERIFY(m_page->window()->findChildren<vemo_base::DisabledWaitingWt*>().isEmpty());
    QCOMPARE(QDir(m_world->world.path({})).entryList(QDir::Files).size(), filesBefore);
    const QString date = QDate::currentDate().toString(QStringLiteral("yyyy-MM-dd"));
    const QStringList names = QDir(m_world->chosen).entryList(QDir::Files);
    QVERIFY2(names.filter(QStringLiteral("(%1 00_03_00).bmp").arg(date)).size() == 1, qPrintable(names.join(u'\n')));
    QVERIFY(names.filter(QStringLiteral("(%1 00_01_00).jpg").arg(date)).size() == 1);
}

void LocalSnapImagesPageTest::tellsWhatCouldNotBeSaved()
{
    const QString path = add(QStringLiteral("Gate"), 61);
    search();
    check(card(path));
    QVERIFY(QFile::remove(path));
    m_world->chosen = m_world->world.path({});
    m_world->click(*m_page, "saveAsBt");
    QTRY_COMPARE(m_world->alerts.size(), 1);
    QVERIFY2(m_world->alerts.first().startsWith(QLatin1String("Save as file failed:Gate(")) &&
                 m_world->alerts.first().contains(QLatin1String(" 01:01:00)")),
             qPrintable(m_world->alerts.first()));
}

void LocalSnapImagesPageTest::startsTheViewerAtTheCard()
{
    add(QStringLiteral("Gate"), 1);
    const QString middle = add(QStringLiteral("Gate"), 2);
    add(QStringLiteral("Gate"), 3);
    search();
    press(card(middle), "enlargeBt");
    auto* viewer = m_page->window()->findChild<vemo_base::ImageViewerDlg*>();
    QVERIFY(viewer && viewer->isVisible());
    QCOMPARE(viewer->currentIndex(), 1);
    QVERIFY(viewer->windowTitle().startsWith(QLatin1String("Gate ")));
    viewer->close();
}

void LocalSnapImagesPageTest::leadsTheKeyboardThroughGroups()
{
    for (int minute = 0; minute < 4; ++minute)
        add(QStringLiteral("A"), minute);
    const QString below = add(QStringLiteral("B"), 1);
    search();
    shownNames();
    m_page->activateWindow();
    groups().first()->cards()->focusCard(0);
    const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
    press(Qt::Key_Right);
    QCOMPARE(groups().first()->cards()->currentIndex(), 1);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    QCOMPARE(QApplication::focusWidget(), card(below));
    press(Qt::Key_Space);
    QCOMPARE(groups().last()->cards()->checkedSnapshots().size(), 1);
    press(Qt::Key_Up);
    press(Qt::Key_Delete);
    QCOMPARE(groups().first()->cards()->cardCount(), 3);
}

void LocalSnapImagesPageTest::makesCardsForWhatIsInViewOnly()
{
    const QString file = m_world->image(QStringLiteral("one.jpg"));
    constexpr int count = 3000;
    for (int i = 0; i < count; ++i) {
        LocalSnapImageIndexInfo info;
        info.channelName = i % 2 ? QStringLiteral("Gate") : QStringLiteral("Lobby");
        info.captureTime = QDateTime(QDate::currentDate(), QTime(0, 0)).addSecs(i);
        info.filePath = file + QString::number(i);
        LocalSnapImageIndexes::instance().addLocalSnapImageIndex(info);
    }
    search();
    QVERIFY2(!cards().isEmpty() && cards().size() < 40, "every snapshot has widgets of its own");
    QScrollBar* bar = m_page->findChild<QScrollArea*>()->verticalScrollBar();
    for (int step = 0; step <= 20; ++step)
        bar->setValue(bar->maximum() * step / 20);
    QVERIFY(m_page->findChildren<LocalSnapImageCard*>().size() < 80);
    LocalSnapImageCard* last = nullptr;
    for (LocalSnapImageCard* shown : cards()) {
        if (!last || shown->snapshot().captureTime < last->snapshot().captureTime)
            last = shown;
    }
    QCOMPARE(last->snapshot().captureTime.time(), QTime(0, 0)); // the oldest of the last group
}

QTEST_MAIN(LocalSnapImagesPageTest)
#include "LocalSnapImagesPageTest.moc"
