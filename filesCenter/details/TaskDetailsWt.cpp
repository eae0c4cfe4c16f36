#include "TaskDetailsWt.h"

#include "FileVerifier.h"
#include "TaskDetailsText.h"

#include <FileChecksum.h>
#include <Icons.h>
#include <StylePainter.h>
#include <TaskFactsData.h>
#include <ToolsCollection.h>

#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QToolButton>
#include <QVariant>

namespace vemo_filesCenter {

using vemo_base::StylePainter;
using vemo_base::ThemeMode;
using vemo_base::Token;
using vemo_data::DownloadTaskInfo;
using vemo_data::TaskFacts;
using vemo_data::TaskFactsData;

namespace {

constexpr int margin = 16;
constexpr int titlePixels = 16;
constexpr int labelPixels = 12;
constexpr int messageLines = 3;

Token tokenOf(DetailLine::Kind kind)
{
    switch (kind) {
    case DetailLine::Kind::Good:
        return Token::Success;
    case DetailLine::Kind::Warning:
        return Token::Warning;
    case DetailLine::Kind::Error:
        return Token::Error;
    case DetailLine::Kind::Plain:
    case DetailLine::Kind::Path:
        break;
    }
    return Token::Text;
}

/// Paths and sums have no spaces at which a label could break them.
QString breakable(const QString& text)
{
    QString broken;
    broken.reserve(2 * text.size());
    for (const QChar c : text) {
        broken.append(c);
        if (!c.isHighSurrogate())
            broken.append(QChar(0x200b)); // zero width space
    }
    return broken;
}

} // namespace

class TaskDetailsWt::Private final
{
public:
    explicit Private(TaskDetailsWt* widget);

    void load();
    void showFacts();
    void showMessage(const QString& text, Token token);
    void addLine(const DetailLine& line);
    void tint(QLabel* label, Token token) const;
    void updateButtons();

    TaskDetailsWt* const q;
    QFormLayout* form = nullptr;
    QLabel* message;
    Token messageToken = Token::Text2;
    QPushButton* verify;
    QPushButton* copy;
    QPushButton* folder;
    DownloadTaskInfo task;
    TaskFacts facts;

private:
    QLayout* head();
    QLayout* buttons();
    void openFolder();
    void connectVerifier();
};

TaskDetailsWt::Private::Private(TaskDetailsWt* widget)
    : q(widget)
    , message(new QLabel(widget))
    , verify(new QPushButton(vemo_base::Icons::icon(QStringLiteral("check")), tr("Verify"), widget))
    , copy(new QPushButton(tr("Copy checksum"), widget))
    , folder(new QPushButton(vemo_base::Icons::icon(QStringLiteral("open-folder")), tr("Open folder"), widget))
{
    q->setFixedWidth(panelWidth);
    auto* layout = new QVBoxLayout(q);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(8);
    layout->addLayout(head());

    auto* scroll = new QScrollArea(q);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidgetResizable(true);
    auto* page = new QWidget(scroll);
    page->setBackgroundRole(QPalette::Button); // surface
    page->setAutoFillBackground(true);
    scroll->viewport()->setBackgroundRole(QPalette::Button);
    form = new QFormLayout(page);
    form->setContentsMargins(0, 0, 0, 0);
    form->setHorizontalSpacing(12);
    form->setVerticalSpacing(8);
    form->setLabelAlignment(Qt::AlignLeading | Qt::AlignTop);
    form->setRowWrapPolicy(QFormLayout::DontWrapRows);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    scroll->setWidget(page);
    layout->addWidget(scroll, 1);

    message->setTextFormat(Qt::PlainText);
    message->setWordWrap(true);
    message->setAlignment(Qt::AlignLeading | Qt::AlignTop);
    // Keeps its room, so that nothing jumps when a result comes.
    message->setMinimumHeight(messageLines * message->fontMetrics().lineSpacing());
    layout->addWidget(message);
    layout->addLayout(buttons());
    connectVerifier();
}

QLayout* TaskDetailsWt::Private::head()
{
    auto* title = new QLabel(tr("Details"), q);
    QFont font = title->font();
    font.setPixelSize(titlePixels);
    font.setWeight(QFont::DemiBold);
    title->setFont(font);
    auto* close = new QToolButton(q);
    close->setIcon(vemo_base::Icons::icon(QStringLiteral("close")));
    close->setAutoRaise(true);
    close->setToolTip(tr("Close the details"));
    close->setAccessibleName(close->toolTip());
    connect(close, &QToolButton::clicked, q, &TaskDetailsWt::signalCloseRequested);
    auto* row = new QHBoxLayout;
    row->addWidget(title, 1);
    row->addWidget(close);
    return row;
}

QLayout* TaskDetailsWt::Private::buttons()
{
    verify->setObjectName(QStringLiteral("verifyBt"));
    copy->setObjectName(QStringLiteral("copyChecksumBt"));
    folder->setObjectName(QStringLiteral("openFolderBt"));
    message->setObjectName(QStringLiteral("verifyMessage"));
    connect(verify, &QPushButton::clicked, q, [this] {
        FileVerifier::instance().verify(task);
        showMessage(tr("Reading the file."), Token::Text2);
        updateButtons();
    });
    connect(copy, &QPushButton::clicked, q, [this] {
        QApplication::clipboard()->setText(VCOMMON::FileChecksum::checkLine(facts.sha256, task.savePath) +
                                           QLatin1Char('\n'));
        showMessage(tr("Copied as a line that \"sha256sum -c\" reads."), Token::Text2);
    });
    connect(folder, &QPushButton::clicked, q, [this] { openFolder(); });
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(verify);
    row->addWidget(copy);
    row->addWidget(folder);
    row->addStretch(1);
    return row;
}

void TaskDetailsWt::Private::openFolder()
{
    if (QFileInfo(task.savePath).isFile())
        VCOMMON::ToolsCollection::openFolderAndSelectFile(task.savePath);
    else if (task.state == vemo_data::TaskSucceeded)
        showMessage(tr("The file is not there any more: it was deleted, moved or renamed."), Token::Error);
    else
        showMessage(tr("There is no file yet."), Token::Text2);
}

void TaskDetailsWt::Private::connectVerifier()
{
    FileVerifier& verifier = FileVerifier::instance();
    connect(&verifier, &FileVerifier::signalProgress, q, [this](const QString& taskId, int percent) {
        if (taskId == task.taskId && FileVerifier::instance().isVerifying(taskId))
            showMessage(tr("Reading the file: %1%").arg(percent), Token::Text2);
    });
    connect(&verifier, &FileVerifier::signalSumKept, q, [this](const QString& taskId, const QByteArray& sha256) {
        if (taskId != task.taskId)
            return;
        facts.sha256 = sha256;
        showFacts();
    });
    connect(&verifier, &FileVerifier::signalVerified, q,
            [this](const QString& taskId, FileVerifier::Outcome outcome, const QString& sentence) {
                if (taskId != task.taskId)
                    return;
                showMessage(sentence, outcome == FileVerifier::Outcome::Same       ? Token::Success
                                      : outcome == FileVerifier::Outcome::NoSumYet ? Token::Warning
                                                                                   : Token::Error);
                updateButtons();
            });
}

void TaskDetailsWt::Private::load()
{
    TaskFactsData::instance().get(task.taskId, q, [this, taskId = task.taskId](const TaskFacts& loaded) {
        if (taskId != task.taskId)
            return;
        facts = loaded;
        showFacts();
    });
}

void TaskDetailsWt::Private::showMessage(const QString& text, Token token)
{
    messageToken = token;
    tint(message, token);
    message->setText(text);
}

void TaskDetailsWt::Private::tint(QLabel* label, Token token) const
{
    // Nothing but this role, so that the rest follows the theme.
    QPalette palette;
    palette.setColor(QPalette::WindowText, vemo_base::themeColor(StylePainter::modeOf(q->palette()), token));
    label->setForegroundRole(QPalette::WindowText);
    label->setPalette(palette);
}

void TaskDetailsWt::Private::addLine(const DetailLine& line)
{
    QWidget* page = form->parentWidget();
    auto* label = new QLabel(line.label, page);
    QFont font = label->font();
    font.setPixelSize(labelPixels);
    label->setFont(font);
    label->setForegroundRole(QPalette::PlaceholderText);
    label->setAlignment(Qt::AlignLeading | Qt::AlignTop);
    label->setContentsMargins(0, 1, 0, 0); // on the line of the larger text
    auto* text = new QLabel(line.kind == DetailLine::Kind::Path ? breakable(line.text) : line.text, page);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    // Copied, a broken one would not be the path any more.
    if (line.kind != DetailLine::Kind::Path)
        text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    text->setAccessibleName(line.text);
    tint(text, tokenOf(line.kind));
    form->addRow(label, text);
}

void TaskDetailsWt::Private::showFacts()
{
    while (form->rowCount() > 0)
        form->removeRow(0);
    if (!task.taskId.isEmpty())
        for (const DetailLine& line : TaskDetailsText::lines(task, facts))
            addLine(line);
    updateButtons();
}

void TaskDetailsWt::Private::updateButtons()
{
    const bool finished = task.state == vemo_data::TaskSucceeded && !task.taskId.isEmpty();
    const bool reading = FileVerifier::instance().isVerifying(task.taskId);
    verify->setEnabled(finished && !reading);
    verify->setToolTip(!finished ? tr("Only a finished download can be verified")
                       : reading ? tr("The file is being read")
                                 : tr("Compare the file with the checksum kept when it was finished"));
    copy->setEnabled(finished && !facts.sha256.isEmpty());
    copy->setToolTip(copy->isEnabled() ? tr("Copy the checksum as a line that \"sha256sum -c\" reads")
                                       : tr("No checksum is kept yet"));
    folder->setEnabled(!task.savePath.isEmpty());
    folder->setToolTip(tr("Open the folder with the file selected"));
}

TaskDetailsWt::TaskDetailsWt(QWidget* parent)
    : QWidget(parent)
    , d(std::make_unique<Private>(this))
{
    setObjectName(QStringLiteral("taskDetailsWt"));
    d->showFacts();
}

TaskDetailsWt::~TaskDetailsWt() = default;

void TaskDetailsWt::showTask(const DownloadTaskInfo& task)
{
    if (task.taskId != d->task.taskId) {
        d->facts = {};
        d->message->clear();
    }
    d->task = task;
    d->showFacts();
    d->load();
}

void TaskDetailsWt::clearTask()
{
    showTask({});
}

QString TaskDetailsWt::taskId() const
{
    return d->task.taskId;
}

QString TaskDetailsWt::toolTipText(const DownloadTaskInfo& task, const TaskFacts& facts)
{
    return TaskDetailsText::plainText(TaskDetailsText::lines(task, facts));
}

void TaskDetailsWt::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        d->showFacts();
        d->tint(d->message, d->messageToken);
    }
}

void TaskDetailsWt::paintEvent(QPaintEvent*)
{
    const ThemeMode mode = StylePainter::modeOf(palette());
    QPainter painter(this);
    painter.fillRect(rect(), vemo_base::themeColor(mode, Token::Surface));
    StylePainter::hairline(&painter, rect(), layoutDirection() == Qt::RightToLeft ? Qt::RightEdge : Qt::LeftEdge, mode);
}

} // namespace vemo_filesCenter
