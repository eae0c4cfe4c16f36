#pragma once

#include <QDialog>
#include <QString>

class QListWidget;
class QTextBrowser;

namespace vemo_client {

/// The user guide in a window of its own: headings at the leading side, the text beside them. It reads the files that
/// are installed with the program, in the language of the program where there is a guide in it, and opens other links
/// with the desktop. GUI thread; deletes itself when it is closed.
class GuideWindow final : public QDialog
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(GuideWindow)

public:
    /// Shows the guide, or brings the window to the front that shows it already.
    static void open(QWidget* parent);
    /// Where the guide lies; empty when it is not there.
    static QString guideFile();

private:
    GuideWindow(const QString& file, QWidget* parent);

    void fillHeadings();

    QListWidget* m_headings = nullptr;
    QTextBrowser* m_text = nullptr;
};

} // namespace vemo_client
