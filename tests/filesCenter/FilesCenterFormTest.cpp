#include "../platform/TestWorld.h"

#include <BaseForm.h>
#include <FilesCenterInit.h>
#include <ModuleAccess.h>
#include <NavigationWidget.h>
#include <SystemWorker.h>

#include <QHBoxLayout>
#include <QImage>
#include <QStackedWidget>
#include <QtTest>

using vemo_base::BaseForm;
using vemo_base::NavigationWidget;
using vemo_contact::ModuleAccess;
using vemo_filesCenter::FilesCenterInit;

namespace {

constexpr int download = 8388608;
constexpr int recordings = 8;
constexpr int snapshots = 4;

} // namespace

/// The form as the host gets it: through the module's entry.
class FilesCenterFormTest : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world = std::make_unique<TestWorld>(); }
    void cleanup()
    {
        m_form.reset();
        m_world.reset();
    }

    void offersTheEntriesOfThePowers_data()
    {
        QTest::addColumn<int>("powers");
        QTest::addColumn<QStringList>("entries");
        QTest::addColumn<QString>("current");
        QTest::addColumn<int>("page");
        const auto row = [](const char* tag, int powers, const char* entries, const char* current, int page) {
            QTest::newRow(tag) << powers << QString::fromLatin1(entries).split(QLatin1Char(' '))
                               << QString::fromLatin1(current) << page;
        };
        row("all", download | recordings | snapshots,
            "download_mgr downloading download_success download_failure local_recording local_snapshot local_files "
            "recordings_backup",
            "downloading", 0);
        row("no download", recordings | snapshots, "local_recording local_snapshot local_files", "local_recording", 3);
        row("snapshots alone", snapshots, "local_snapshot local_files", "local_snapshot", 4);
        row("none", 0, "local_files", "local_files", 5);
        row("download alone", download,
            "download_mgr downloading download_success download_failure local_files recordings_backup", "downloading",
            0);
    }

    void offersTheEntriesOfThePowers()
    {
        QFETCH(int, powers);
        QFETCH(QStringList, entries);
        QFETCH(QString, current);
        QFETCH(int, page);
        make(powers);
        QStringList offered;
        for (const char* key : {"download_mgr", "downloading", "download_success", "download_failure",
                                "local_recording", "local_snapshot", "local_files", "recordings_backup"}) {
            if (!navigation()->actionText(QString::fromLatin1(key)).isEmpty())
                offered.append(QString::fromLatin1(key));
        }
        QCOMPARE(offered, entries);
        QCOMPARE(navigation()->curAction(), current);
        QCOMPARE(stack()->currentIndex(), page);
    }

    void showsThePageOfTheChosenEntry_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("page");
        const auto row = [](const char* key, const char* page) {
            QTest::newRow(key) << QString::fromLatin1(key) << QString::fromLatin1(page);
        };
        row("download_success", "downloadSuccessPage");
        row("download_failure", "downloadFailurePage");
        row("local_recording", "localRecordingsMgrPage");
        row("local_snapshot", "localSnapImagesMgrPage");
        row("local_files", "localFilesMgrPage");
        row("recordings_backup", "devRecordingsBackupPage");
        row("download_mgr", "downloadingPage"); // a group has no page
    }

    void showsThePageOfTheChosenEntry()
    {
        QFETCH(QString, key);
        QFETCH(QString, page);
        make(download | recordings | snapshots);
        navigation()->setCurAction(key);
        QCOMPARE(stack()->currentWidget()->objectName(), page);
    }

    void goesToTheSubPageThatAnotherModuleAsksFor_data()
    {
        QTest::addColumn<int>("powers");
        QTest::addColumn<int>("subPage");
        QTest::addColumn<int>("page");
        QTest::newRow("local recordings") << (download | recordings) << 0 << 3;
        QTest::newRow("local recordings without the power") << download << 0 << 5;
        QTest::newRow("downloading") << download << 1 << 0;
        QTest::newRow("downloading without the power") << recordings << 1 << 5;
        QTest::newRow("no such page") << (download | recordings) << 2 << 5;
        QTest::newRow("negative") << (download | recordings) << -1 << 5;
    }

    void goesToTheSubPageThatAnotherModuleAsksFor()
    {
        QFETCH(int, powers);
        QFETCH(int, subPage);
        QFETCH(int, page);
        make(powers);
        navigation()->setCurAction(QStringLiteral("local_files"));
        emit ModuleAccess::instance().signalSwitchToSubPageInFilesCenter(subPage);
        QCOMPARE(stack()->currentIndex(), page);
    }

    void isBuiltAsLaidDown()
    {
        make(download);
        QCOMPARE(m_form->objectName(), QStringLiteral("vemo_filesCenter__FilesCenterForm"));
        QCOMPARE(m_form->windowTitle(), QStringLiteral("FilesCenterForm"));
        QCOMPARE(m_form->size(), QSize(1046, 555));
        QVERIFY(!m_form->parent());
        const auto* layout = m_form->findChild<QHBoxLayout*>(QStringLiteral("horizontalLayout"));
        QCOMPARE(layout, m_form->layout());
        QCOMPARE(layout->spacing(), 0);
        QCOMPARE(layout->contentsMargins(), QMargins());
        QCOMPARE(navigation()->minimumWidth(), 242);
        QCOMPARE(navigation()->maximumSize(), QSize(242, 16777215));
        QStringList pages;
        for (int i = 0; i < stack()->count(); ++i)
            pages.append(stack()->widget(i)->objectName());
        QCOMPARE(pages.join(QLatin1Char(' ')),
                 QStringLiteral("downloadingPage downloadSuccessPage downloadFailurePage localRecordingsMgrPage "
                                "localSnapImagesMgrPage localFilesMgrPage devRecordingsBackupPage"));
    }

    void everyFormIsANewOne()
    {
        make(download);
        const std::unique_ptr<BaseForm> second(FilesCenterInit::instance().createFilesCenterForm());
        QVERIFY(second.get() != m_form.get());
        QCOMPARE(FilesCenterInit::staticMetaObject.className(), "vemo_filesCenter::FilesCenterInit");
    }

    void bringsItsIconsInTwoSizes()
    {
        for (const char* name :
             {"download_mgr", "local_recording", "local_snapshot", "local_files", "recordings_backup"}) {
            for (const char* variant : {"_n", "_h"}) {
                const QString path =
                    QStringLiteral(":/filesCenter_images/images/") + QLatin1String(name) + QLatin1String(variant);
                const QImage image(path + QStringLiteral(".png"));
                QVERIFY2(!image.isNull() && image.width() == 20, qPrintable(path));
                QCOMPARE(QImage(path + QStringLiteral("@2x.png")).width(), 40);
                QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
            }
        }
    }

private:
    void make(int powers)
    {
        vemo_worker::SystemWorker::instance().setCurUser(QStringLiteral("u"), powers);
        m_form.reset(FilesCenterInit::instance().createFilesCenterForm());
    }

    NavigationWidget* navigation() const
    {
        return m_form->findChild<NavigationWidget*>(QStringLiteral("navigationWt"));
    }
    QStackedWidget* stack() const { return m_form->findChild<QStackedWidget*>(QStringLiteral("stackedWidget")); }

    std::unique_ptr<TestWorld> m_world;
    std::unique_ptr<BaseForm> m_form;
};

QTEST_MAIN(FilesCenterFormTest)
#include "FilesCenterFormTest.moc"
