// Copies files as the program does, so that something can go wrong in the middle of it.
//
//   fault_copy [--verify] [--root DIR] (SOURCE TARGET)...
//
// Prints {"copied": {source: target}, "failed": {source: reason}} when all has ended.

#include <VCopyLocalFiles.h>

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

#include <cstdio>

using VCOMMON::VCopyLocalFiles;

int main(int count, char** arguments)
{
    QCoreApplication application(count, arguments);
    VCopyLocalFiles copies(QStringLiteral("copies"));
    QStringList sources;
    QStringList targets;
    QStringList words = QCoreApplication::arguments().mid(1);
    while (!words.isEmpty()) {
        const QString word = words.takeFirst();
        if (word == QLatin1String("--verify"))
            copies.setVerified(true);
        else if (words.isEmpty())
            return 2;
        else if (word == QLatin1String("--root"))
            copies.setRoot(words.takeFirst());
        else {
            sources.append(word);
            targets.append(words.takeFirst());
        }
    }
    QJsonObject copied;
    QJsonObject failed;
    QObject::connect(
        &copies, &VCopyLocalFiles::signalCopyFileSucceeded,
        [&copied](const QString&, const QString& source, const QString& target) { copied[source] = target; });
    QObject::connect(
        &copies, &VCopyLocalFiles::signalCopyFileFailed,
        [&failed](const QString&, const QString& source, const QString& reason) { failed[source] = reason; });
    QObject::connect(&copies, &VCopyLocalFiles::signalCopyFilesFinished, [&] {
        const QJsonObject report{{QStringLiteral("copied"), copied}, {QStringLiteral("failed"), failed}};
        QTextStream(stdout) << QJsonDocument(report).toJson(QJsonDocument::Compact) << '\n';
        QCoreApplication::quit();
    });
    if (!copies.copyFiles(sources, targets))
        return 2;
    return QCoreApplication::exec();
}
