#include "live/GopBuffer.h"
#include "live/LiveChannel.h"
#include "live/LiveViews.h"

#include <SysPaths.h>
#include <UiSettings.h>

#include <ClipSource.h>

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

using vemo_client::ChannelRef;
using vemo_client::GopBuffer;
using vemo_client::LiveChannel;
using vemo_client::LiveView;
using vemo_client::LiveViews;

class LivePartsTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { vemo_worker::SysPaths::setRoot(m_folder.path()); }
    void keepsTheStreamFromItsLatestKeyFrame_data();
    void keepsTheStreamFromItsLatestKeyFrame();
    void holdsNothingBeyondItsLimit();
    void triesAgainAfterGrowingPauses();
    void keepsNamedViews();
    void readsDamagedSettingsAsFarAsTheyGo();

private:
    QTemporaryDir m_folder;
};

void LivePartsTest::keepsTheStreamFromItsLatestKeyFrame_data()
{
    QTest::addColumn<int>("batchBytes");
    QTest::newRow("a packet a batch") << 1;
    QTest::newRow("as the network brings them") << 64 * 1024;
    QTest::newRow("all in one") << 64 * 1024 * 1024;
}

void LivePartsTest::keepsTheStreamFromItsLatestKeyFrame()
{
    QFETCH(int, batchBytes);
    QDir().mkpath(QStringLiteral(CLIP_FOLDER));
    const std::string path = CLIP_FOLDER "/gop.mp4";
    ClipSource::makeClip(path, 3, "-c:v libx264 -g 20 -bf 2 -pix_fmt yuv420p -c:a aac");
    const ClipSource source(path);
    GopBuffer buffer;
    for (const std::vector<std::uint8_t>& batch : source.batches(static_cast<std::size_t>(batchBytes)))
        buffer.add({reinterpret_cast<const char*>(batch.data()), static_cast<int>(batch.size())});
    const QByteArray kept = buffer.packets().toList().join();
    vav::PacketReader reader(kept.constData(), static_cast<std::size_t>(kept.size()));
    QCOMPARE(reader.next(), vav::PacketReader::Status::Packet);
    QVERIFY(reader.kind() == vav::PacketKind::StreamInfo && reader.streamInfo().tracks == source.info().tracks);
    QCOMPARE(reader.next(), vav::PacketReader::Status::Packet);
    QVERIFY(reader.frame().track == 0 && (reader.frame().flags & vav::KeyFrame));
    int pictures = 1;
    while (reader.next() == vav::PacketReader::Status::Packet)
        pictures += reader.frame().track == 0 ? 1 : 0;
    QCOMPARE(pictures, 15); // 75 pictures, a key frame every 20
}

void LivePartsTest::holdsNothingBeyondItsLimit()
{
    GopBuffer buffer;
    vav::FrameHeader header;
    header.flags = vav::KeyFrame;
    header.payloadBytes = 1024 * 1024;
    QByteArray packet(static_cast<int>(vav::headerBytes + header.payloadBytes), '\0');
    for (int i = 0; i < 40; ++i) {
        vav::writeFrameHeader(reinterpret_cast<std::uint8_t*>(packet.data()), header);
        buffer.add(packet);
        header.flags = 0;
        QVERIFY(buffer.bytes() <= GopBuffer::limitBytes);
    }
    QVERIFY(buffer.isEmpty());
    header.flags = vav::KeyFrame;
    vav::writeFrameHeader(reinterpret_cast<std::uint8_t*>(packet.data()), header);
    buffer.add(packet);
    QCOMPARE(buffer.bytes(), packet.size());
}

void LivePartsTest::triesAgainAfterGrowingPauses()
{
    QVector<int> pauses;
    for (int failures = 1; failures < 9; ++failures)
        pauses.append(LiveChannel::pauseS(failures));
    QCOMPARE(pauses, (QVector<int>{1, 2, 4, 8, 16, 30, 30, 30}));
}

void LivePartsTest::keepsNamedViews()
{
    LiveView night;
    night.name = LiveViews::legalName(QStringLiteral("  Night\n shift "));
    QCOMPARE(night.name, QStringLiteral("Night shift"));
    night.tileCount = 9;
    night.channels.resize(9);
    night.channels[3] = ChannelRef{QStringLiteral("{a|b}"), 7};
    {
        LiveViews views;
        QVERIFY(views.save(night));
        LiveView other = night;
        other.name = QStringLiteral("Gates 10");
        QVERIFY(views.save(other));
        other.name = QStringLiteral("Gates 9");
        QVERIFY(views.save(other));
        QVERIFY(!views.rename(QStringLiteral("Gates 9"), QStringLiteral("night SHIFT")));
        QVERIFY(views.rename(QStringLiteral("Gates 9"), QStringLiteral("Gates 2")));
    }
    LiveViews views;
    QStringList names;
    for (const LiveView& view : views.all())
        names.append(view.name);
    QCOMPARE(names,
             QStringList({QStringLiteral("Gates 2"), QStringLiteral("Gates 10"), QStringLiteral("Night shift")}));
    QVERIFY(views.all().last().hasSameTiles(night));
    views.remove(QStringLiteral("Night shift"));
    QCOMPARE(LiveViews().all().size(), 2);
}

void LivePartsTest::readsDamagedSettingsAsFarAsTheyGo()
{
    vemo_worker::UiSettings& settings = vemo_worker::UiSettings::instance();
    settings.setValue(QStringLiteral("live_views"),
                      QStringLiteral("[{\"name\":\"One\",\"tiles\":77},{\"name\":\"\"},7]"));
    settings.setValue(QStringLiteral("live_last"), QStringLiteral("{{"));
    const LiveViews views;
    QCOMPARE(views.all().size(), 1);
    QCOMPARE(views.all().first().tileCount, 4);
    QCOMPARE(views.all().first().channels.size(), 9);
    QCOMPARE(LiveViews::lastShown().tileCount, 4);
}

QTEST_GUILESS_MAIN(LivePartsTest)
#include "tst_LiveParts.moc"
