#include "devices/ChannelMime.h"
#include "devices/RecorderLogins.h"
#include "devices/RecorderTree.h"

#include <Database.h>
#include <DataFolder.h>
#include <DevsMgrData.h>

#include <QElapsedTimer>
#include <QMimeData>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using vemo_client::ChannelMime;
using vemo_client::ChannelRef;
using vemo_client::RecorderTree;
using vemo_data::DevRecord;
using vemo_data::DevsMgrData;

/// The tree of recorders and channels, without a network: sources whose channels the record tells.
class tst_RecorderTree : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { vemo_data::DataFolder::setRoot(m_folder.path()); }
    void cleanup();
    void cleanupTestCase() { vemo_data::Database::instance().close(); }

    void showsGroupsAheadAndFollowsTheirChanges();
    void filtersByGroupRecorderAndChannel_data();
    void filtersByGroupRecorderAndChannel();
    void offersOnlyWhatCanBeUsed_data();
    void offersOnlyWhatCanBeUsed();
    void keepsWhatWasWantedUntilTheChannelsCome();
    void activatesAndDragsAChannel();
    void takesOnlyChannelsFromADrop_data();
    void takesOnlyChannelsFromADrop();
    void isQuickWithManyRecorders();

private:
    QString add(const QString& name, int channels, const QString& group = QString(), bool enabled = true,
                vemo_data::DevKind kind = vemo_data::DevKind::Recorder);
    /// The shown rows, indented by two blanks a level.
    static QStringList shown(const QTreeWidget& tree);
    static QTreeWidgetItem* find(const QTreeWidget& tree, const QString& text);

    QTemporaryDir m_folder;
    vemo_client::RecorderLogins m_logins;
};

QString tst_RecorderTree::add(const QString& name, int channels, const QString& group, bool enabled,
                              vemo_data::DevKind kind)
{
    DevRecord record;
    record.name = name;
    record.address = QUrl(QStringLiteral("rtsp://10.0.0.5/live/%7Bchannel%7D"));
    record.channelCount = channels;
    record.group = group;
    record.enabled = enabled;
    record.kind = kind;
    return DevsMgrData::instance().addDev(record);
}

void tst_RecorderTree::cleanup()
{
    const QStringList devIds = DevsMgrData::instance().devIds();
    for (const QString& devId : devIds)
        DevsMgrData::instance().removeDev(devId);
}

QStringList tst_RecorderTree::shown(const QTreeWidget& tree)
{
    QStringList lines;
    for (QTreeWidgetItemIterator at(const_cast<QTreeWidget*>(&tree), QTreeWidgetItemIterator::NotHidden); *at; ++at) {
        QString line = (*at)->text(0);
        bool isShown = true;
        for (const QTreeWidgetItem* above = (*at)->parent(); above; above = above->parent()) {
            line.prepend(QLatin1String("  "));
            isShown = isShown && !above->isHidden();
        }
        if (isShown)
            lines.append(line);
    }
    return lines;
}

QTreeWidgetItem* tst_RecorderTree::find(const QTreeWidget& tree, const QString& text)
{
    return tree.findItems(text, Qt::MatchExactly | Qt::MatchRecursive).value(0);
}

void tst_RecorderTree::showsGroupsAheadAndFollowsTheirChanges()
{
    const QString lone = add(QStringLiteral("Lone"), 1);
    const QString gate = add(QStringLiteral("Gate"), 1, QStringLiteral("Site 10"));
    add(QStringLiteral("Yard"), 1, QStringLiteral("Site 2"));
    RecorderTree tree(&m_logins);
    const auto lines = [](const char* text) { return QString::fromLatin1(text).split(QLatin1Char('|')); };
    QCOMPARE(shown(tree), lines("Site 2|  Yard|    Channel 1|Site 10|  Gate|    Channel 1|Lone|  Channel 1"));
    tree.setCheckedChannels({{gate, 1}});
    DevsMgrData::instance().setGroup(gate, QStringLiteral("Site 2"));
    QCOMPARE(shown(tree), lines("Site 2|  Yard|    Channel 1|  Gate|    Channel 1|Lone|  Channel 1"));
    QCOMPARE(tree.checkedChannels(), (QVector<ChannelRef>{{gate, 1}}));
    DevsMgrData::instance().removeDev(gate);
    DevsMgrData::instance().setChannelName(lone, 1, QStringLiteral("Door"));
    DevsMgrData::instance().renameGroup(QStringLiteral("Site 2"), QString());
    QCOMPARE(shown(tree), lines("Lone|  Door|Yard|  Channel 1"));
}

void tst_RecorderTree::filtersByGroupRecorderAndChannel_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("rows");
    QTest::newRow("group") << "site"
                           << "Site|  Gate|    Ramp|    Channel 2";
    QTest::newRow("recorder") << "GATE"
                              << "Site|  Gate|    Ramp|    Channel 2";
    QTest::newRow("channel") << "ramp"
                             << "Site|  Gate|    Ramp";
    QTest::newRow("in two recorders") << "l 2"
                                      << "Site|  Gate|    Channel 2|Lone|  Channel 2";
    QTest::newRow("nothing") << "xyz"
                             << "";
    QTest::newRow("blank") << " "
                           << "Site|  Gate|    Ramp|    Channel 2|Lone|  Channel 1|  Channel 2";
}

void tst_RecorderTree::filtersByGroupRecorderAndChannel()
{
    QFETCH(const QString, filter);
    QFETCH(const QString, rows);
    const QString gate = add(QStringLiteral("Gate"), 2, QStringLiteral("Site"));
    add(QStringLiteral("Lone"), 2);
    DevsMgrData::instance().setChannelName(gate, 1, QStringLiteral("Ramp"));
    RecorderTree tree(&m_logins);
    tree.setFilter(QStringLiteral("something before"));
    tree.setFilter(filter);
    QCOMPARE(shown(tree).join(QLatin1Char('|')), rows);
}

void tst_RecorderTree::offersOnlyWhatCanBeUsed_data()
{
    QTest::addColumn<int>("use");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("usable");
    const int playback = int(RecorderTree::Use::Playback);
    const int live = int(RecorderTree::Use::Live);
    const int recorder = int(vemo_data::DevKind::Recorder);
    const int source = int(vemo_data::DevKind::RtspSource);
    QTest::newRow("recorder, playback") << playback << true << recorder << true;
    QTest::newRow("recorder, live") << live << true << recorder << true;
    QTest::newRow("source, playback") << playback << true << source << false;
    QTest::newRow("source, live") << live << true << source << true;
    QTest::newRow("disabled, playback") << playback << false << recorder << false;
    QTest::newRow("disabled, live") << live << false << source << false;
}

void tst_RecorderTree::offersOnlyWhatCanBeUsed()
{
    QFETCH(const int, use);
    QFETCH(const bool, enabled);
    QFETCH(const int, kind);
    QFETCH(const bool, usable);
    const QString devId = add(QStringLiteral("Gate"), 1, QString(), enabled, vemo_data::DevKind(kind));
    RecorderTree tree(&m_logins, nullptr, RecorderTree::Use(use));
    tree.setCheckedChannels({{devId, 1}});
    const QTreeWidgetItem* channel = find(tree, QStringLiteral("Channel 1"));
    QVERIFY(channel);
    QCOMPARE(bool(channel->flags() & Qt::ItemIsDragEnabled), usable);
    QCOMPARE(channel->toolTip(0).contains(QLatin1Char('\n')), !usable); // it says why
    if (use == int(RecorderTree::Use::Playback))
        QCOMPARE(tree.checkedChannels().size(), usable ? 1 : 0);
    DevsMgrData::instance().setEnabled(devId, false);
    QVERIFY(!(channel->flags() & Qt::ItemIsEnabled));
    QVERIFY(tree.checkedChannels().isEmpty());
}

void tst_RecorderTree::keepsWhatWasWantedUntilTheChannelsCome()
{
    const QString devId = add(QStringLiteral("Gate"), 1);
    RecorderTree tree(&m_logins);
    const QVector<ChannelRef> wanted{{devId, 1}, {devId, 3}};
    tree.setCheckedChannels(wanted);
    QCOMPARE(tree.checkedChannels().size(), 1);
    DevRecord record = DevsMgrData::instance().devRecord(devId);
    record.channelCount = 4;
    DevsMgrData::instance().addDev(record);
    QCOMPARE(tree.checkedChannels(), wanted);
}

void tst_RecorderTree::activatesAndDragsAChannel()
{
    const QString devId = add(QStringLiteral("Gate"), 2);
    RecorderTree tree(&m_logins, nullptr, RecorderTree::Use::Live);
    tree.resize(300, 300);
    tree.show();
    QVERIFY(QTest::qWaitForWindowExposed(&tree));
    QSignalSpy activated(&tree, &RecorderTree::signalChannelActivated);
    QTreeWidgetItem* channel = find(tree, QStringLiteral("Channel 2"));
    const QPoint at = tree.visualItemRect(channel).center();
    QTest::mouseDClick(tree.viewport(), Qt::LeftButton, Qt::NoModifier, at);
    tree.setCurrentItem(channel);
    QTest::keyClick(&tree, Qt::Key_Return);
    QCOMPARE(activated.size(), 2);
    QCOMPARE(activated.at(1).value(0).value<ChannelRef>(), (ChannelRef{devId, 2}));
    const QModelIndex recorder = tree.model()->index(0, 0);
    const std::unique_ptr<QMimeData> dragged(tree.model()->mimeData({tree.model()->index(1, 0, recorder)}));
    QCOMPARE(ChannelMime::decode(dragged.get()), std::optional<ChannelRef>({devId, 2}));
    QVERIFY2(!tree.model()->mimeData({recorder}), "a recorder is no channel to drop");
    tree.setActiveChannels({{devId, 2}});
    QVERIFY(channel->data(0, Qt::AccessibleTextRole).toString().contains(QLatin1String("played")));
    tree.setActiveChannels({});
    QVERIFY(!channel->data(0, Qt::AccessibleTextRole).isValid());
}

void tst_RecorderTree::takesOnlyChannelsFromADrop_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("channelNo"); // 0: no channel
    QTest::newRow("made here") << ChannelMime::encode({QStringLiteral("{ä|b}"), 12}) << 12;
    QTest::newRow("nothing") << QByteArray() << 0;
    QTest::newRow("no device") << QByteArray("\0"
                                             "3",
                                             2)
                               << 0;
    QTest::newRow("no number") << QByteArray("{a}\0x", 5) << 0;
    QTest::newRow("negative") << QByteArray("{a}\0-3", 6) << 0;
    QTest::newRow("too large") << QByteArray("{a}\0"
                                             "99999999999",
                                             15)
                               << 0;
    QTest::newRow("endless") << QByteArray(100'000, 'a') + QByteArray("\0"
                                                                      "1",
                                                                      2)
                             << 0;
}

void tst_RecorderTree::takesOnlyChannelsFromADrop()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const int, channelNo);
    QMimeData data;
    data.setData(ChannelMime::type(), bytes);
    const std::optional<ChannelRef> channel = ChannelMime::decode(&data);
    QCOMPARE(channel ? channel->channelNo : 0, channelNo);
    if (channel)
        QCOMPARE(channel->devId, QStringLiteral("{ä|b}"));
    QVERIFY(!ChannelMime::decode(nullptr));
}

/// 200 recorders of 32 channels; the limits are three times those of an idle machine.
void tst_RecorderTree::isQuickWithManyRecorders()
{
    for (int i = 0; i < 200; ++i)
        add(QStringLiteral("Recorder %1").arg(i), 32, QStringLiteral("Site %1").arg(i % 10));
    QElapsedTimer clock;
    clock.start();
    RecorderTree tree(&m_logins);
    tree.resize(300, 800);
    tree.show();
    QVERIFY(QTest::qWaitForWindowExposed(&tree));
    const qint64 openMs = clock.restart();
    tree.setFilter(QStringLiteral("channel 31"));
    const qint64 filterMs = clock.restart();
    tree.setFilter(QString());
    const qint64 clearMs = clock.elapsed();
    qInfo("tree of 6400 channels: open %lld ms, filter %lld ms, clear %lld ms", openMs, filterMs, clearMs);
    QVERIFY(openMs < 900);
    QVERIFY(filterMs < 150);
    QVERIFY(clearMs < 150);
}

QTEST_MAIN(tst_RecorderTree)
#include "tst_RecorderTree.moc"
