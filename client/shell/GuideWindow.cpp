#include "GuideWindow.h"

#include <Notices.h>

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QListWidget>
#include <QLocale>
#include <QPointer>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>

namespace vemo_client {

namespace {

const QSize firstSize(1080, 760);
constexpr int headingsWidth = 260;
constexpr int textMargin = 24;
constexpr int indentPerLevel = 2;
constexpr int deepestHeading = 3;
constexpr int blockRole = Qt::UserRole;
/// Pictures of the guide are of whole windows.
constexpr int pictureWidth = 720;

/// Scales pictures to the column, since a document shows them at their own size.
class GuideText final : public QTextBrowser
{
public:
    using QTextBrowser::QTextBrowser;

    QVariant loadResource(int type, const QUrl& name) override
    {
        if (type != QTextDocument::ImageResource)
            return QTextBrowser::loadResource(type, name);
        const QImage picture(source().resolved(name).toLocalFile());
        return picture.width() > pictureWidth ? picture.scaledToWidth(pictureWidth, Qt::SmoothTransformation) : picture;
    }
};

} // namespace

GuideWindow::GuideWindow(const QString& file, QWidget* parent)
    : QDialog(parent)
    , m_headings(new QListWidget(this))
    , m_text(new GuideText(this))
{
    setWindowTitle(tr("Guide"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    resize(firstSize);
    m_headings->setFixedWidth(headingsWidth);
    m_headings->setFrameShape(QFrame::NoFrame);
    m_headings->setAccessibleName(tr("Headings"));
    m_text->setFrameShape(QFrame::NoFrame);
    m_text->setAccessibleName(tr("Guide"));
    m_text->document()->setDocumentMargin(textMargin);
    m_text->setOpenLinks(false);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_headings);
    layout->addWidget(m_text, 1);

    m_text->setSource(QUrl::fromLocalFile(file), QTextDocument::MarkdownResource);
    fillHeadings();
    connect(m_headings, &QListWidget::currentItemChanged, this, [this](const QListWidgetItem* item) {
        const QTextBlock block = m_text->document()->findBlockByNumber(item ? item->data(blockRole).toInt() : 0);
        m_text->setTextCursor(QTextCursor(m_text->document()->lastBlock()));
        m_text->setTextCursor(QTextCursor(block));
    });
    connect(m_text, &QTextBrowser::anchorClicked, this,
            [this](const QUrl& link) { QDesktopServices::openUrl(m_text->source().resolved(link)); });
}

void GuideWindow::fillHeadings()
{
    for (QTextBlock block = m_text->document()->begin(); block.isValid(); block = block.next()) {
        const int level = block.blockFormat().headingLevel();
        if (level < 1 || level > deepestHeading)
            continue;
        auto* item = new QListWidgetItem(QString((level - 1) * indentPerLevel, QLatin1Char(' ')) + block.text());
        item->setData(blockRole, block.blockNumber());
        m_headings->addItem(item);
    }
}

QString GuideWindow::guideFile()
{
    const QDir program(QCoreApplication::applicationDirPath());
    const QString folder = program.absoluteFilePath(QStringLiteral("../share/vemo/guide/"));
    const QString language = QLocale().name().section(QLatin1Char('_'), 0, 0);
    for (const QString& name : {QStringLiteral("guide_%1.md").arg(language), QStringLiteral("guide.md")}) {
        if (QFile::exists(folder + name))
            return QFileInfo(folder + name).canonicalFilePath();
    }
    return {};
}

void GuideWindow::open(QWidget* parent)
{
    static QPointer<GuideWindow> shown;
    const QString file = guideFile();
    if (file.isEmpty()) {
        vemo_base::Notice notice;
        notice.kind = vemo_base::Notice::Kind::Warning;
        notice.title = tr("The guide is not installed");
        notice.text = tr("It belongs to the program's files. Installing Vemo again brings it back.");
        vemo_base::Notices::instance().add(notice);
        return;
    }
    if (!shown)
        shown = new GuideWindow(file, parent);
    shown->show();
    shown->raise();
    shown->activateWindow();
}

} // namespace vemo_client
