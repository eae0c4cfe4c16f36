#include "../platform/TestWorld.h"

#include <download/DownloadSignals.h>
#include <FilesCenterForm.h>
#include <NavigationWidget.h>

#include <QtTest>

using namespace vemo_filesCenter;

class FormTitlesTest : public QObject
{
    Q_OBJECT

private slots:
    void followTheCountsOfTheTables()
    {
        const TestWorld world;
        const FilesCenterForm form(nullptr);
        const auto titles = [&form] {
            const auto* navigation = form.findChild<vemo_base::NavigationWidget*>(QStringLiteral("navigationWt"));
            return QStringList{navigation->actionText(QStringLiteral("downloading")),
                               navigation->actionText(QStringLiteral("download_success")),
                               navigation->actionText(QStringLiteral("download_failure"))};
        };
        QCOMPARE(titles(), (QStringList{QStringLiteral("Downloading(0)"), QStringLiteral("Download Success(0)"),
                                        QStringLiteral("Download Failure(0)")})); // of an empty store
        DownloadSignals& downloads = DownloadSignals::instance();
        emit downloads.signalDownloadingTasksCnt(0);
        emit downloads.signalSuccessTasksCnt(12345);
        emit downloads.signalFailedTasksCnt(7);
        QCOMPARE(titles(), (QStringList{QStringLiteral("Downloading(0)"), QStringLiteral("Download Success(12345)"),
                                        QStringLiteral("Download Failure(7)")}));
    }
};

QTEST_MAIN(FormTitlesTest)
#include "FormTitlesTest.moc"
