#pragma once

#include "VCOMMON_widgets_global.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QString>

#include <functional>

namespace VCOMMON {

/// Asks the person for a folder or a file, in the desktop's own dialog where it has one. Each call waits for the
/// answer, which is empty when the dialog was closed. GUI thread.
class VCOMMON_WIDGETS_EXPORT VFileDialog final
{
    Q_DECLARE_TR_FUNCTIONS(VCOMMON::VFileDialog)

public:
    struct Request
    {
        enum class Kind : int { Unknown = 0, Folder, FileToSave, FileToOpen };

        Kind kind = Kind::Unknown;
        QString title;
        QString start;  ///< a folder, or for a file to save the path that is proposed
        QString filter; ///< as "Images (*.jpg)"; of files only
    };
    using Answerer = std::function<QString(const Request& request)>;

    VFileDialog() = delete;

    static QString getExistingDirectory(QWidget* parent, const QString& title, const QString& startDir,
                                        QFileDialog::Options options = QFileDialog::ShowDirsOnly);
    /// A name without suffix gets the first one of `filter`.
    static QString getSaveFileName(QWidget* parent, const QString& title, const QString& startPathOrDir,
                                   const QString& filter);
    static QString getOpenFileName(QWidget* parent, const QString& title, const QString& startDir,
                                   const QString& filter);

    /// Answers every question and makes no dialog, for programs without a person; an empty function ends that.
    static void setAnswerer(Answerer answerer);

    /// "mp4" for "Video(*.mp4)"; empty when the filter names none.
    static QString firstSuffix(const QString& filter);
};

} // namespace VCOMMON
