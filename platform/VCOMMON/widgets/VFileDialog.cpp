#include "VFileDialog.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>

#include <utility>

namespace VCOMMON {

namespace {

VFileDialog::Answerer& answerer()
{
    static VFileDialog::Answerer function;
    return function;
}

QString orDesktop(const QString& start)
{
    return start.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::DesktopLocation) : start;
}

} // namespace

QString VFileDialog::getExistingDirectory(QWidget* parent, const QString& title, const QString& startDir,
                                          QFileDialog::Options options)
{
    if (answerer())
        return answerer()({Request::Kind::Folder, title, startDir, QString()});
    return QFileDialog::getExistingDirectory(parent, title, orDesktop(startDir), options);
}

QString VFileDialog::getSaveFileName(QWidget* parent, const QString& title, const QString& startPathOrDir,
                                     const QString& filter)
{
    const QString path = answerer() ? answerer()({Request::Kind::FileToSave, title, startPathOrDir, filter})
                                    : QFileDialog::getSaveFileName(parent, title, orDesktop(startPathOrDir), filter);
    const QString suffix = firstSuffix(filter);
    if (path.isEmpty() || suffix.isEmpty() || !QFileInfo(path).suffix().isEmpty())
        return path;
    return path + QLatin1Char('.') + suffix;
}

QString VFileDialog::getOpenFileName(QWidget* parent, const QString& title, const QString& startDir,
                                     const QString& filter)
{
    if (answerer())
        return answerer()({Request::Kind::FileToOpen, title, startDir, filter});
    return QFileDialog::getOpenFileName(parent, title, orDesktop(startDir), filter);
}

void VFileDialog::setAnswerer(Answerer function)
{
    answerer() = std::move(function);
}

QString VFileDialog::firstSuffix(const QString& filter)
{
    static const QRegularExpression pattern(QStringLiteral("\\*\\.([A-Za-z0-9]+)"));
    return pattern.match(filter).captured(1);
}

} // namespace VCOMMON
