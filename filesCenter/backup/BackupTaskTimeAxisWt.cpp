#include "BackupTaskTimeAxisWt.h"

#include "BackupAxisWt.h"
#include "BackupExport.h"
#include "BackupPaths.h"
#include "BackupStarts.h"
#include "BackupTargetDay.h"
#include "BackupWorker.h"

#include <axis/AxisPainter.h>
#include <axis/SpanWords.h>
#include <BackupDay.h>
#include <BackupTaskData.h>
#include <BaseTools.h>
#include <Icons.h>
#include <OperButton.h>
#include <StylePainter.h>
#include <Theme.h>
#include <VMessageBox.h>

#include <QLabel>
#include <QMovie>
#include <QPainter>
#include <QPointer>
#include <QToolButton>

namespace vemo_filesCenter {

using vemo_base::BaseTools;
using vemo_base::Theme;
using vemo_base::Token;
using vemo_data::BackupSafety;
using vemo_data::BackupTaskInfo;

namespace {

constexpr int edge = 16;
constexpr int nameWidth = 200;
constexpr int namePixels = 14;
constexpr int smallPixels = 12;
constexpr int smallHeight = 16;
constexpr int stateIcon = 14;
constexpr int iconRoom = 22;
constexpr int nameTop = 11;
constexpr int stateTop = 37;
constexpr int safeTop = 59;
constexpr int axisLeft = 219;
constexpr int axisTop = 4;
constexpr int messageTop = 67;
constexpr int buttonSize = 28;
constexpr int buttonIcon = 18;
constexpr int buttonGap = 8;
constexpr int buttonsTop = 14;
constexpr int buttonCount = 4;
constexpr int buttonsToAxis = 18;
constexpr double cardRadius = 6;
constexpr int questionWithYesAndNo = 3;
constexpr int yes = 1;
constexpr int indicatorNothing = -1;
constexpr int indicatorSearch = 0;
constexpr int indicatorFinished = 2;
constexpr int whole = 100;
constexpr qint64 secondMs = 1000;

const char taskStateProperty[] = "task_state";

QString image(const char* name)
{
    return QLatin1String(":/filesCenter_images/images/backup/") + QLatin1String(name);
}

void setElided(QLabel* label, const QString& text, int width)
{
    const QString shown = label->fontMetrics().elidedText(text, Qt::ElideRight, width);
    if (label->text() != shown)
        label->setText(shown);
    label->setToolTip(shown == text ? QString() : text);
    label->setAccessibleName(text);
}

/// Of the segments' time, what is settled or fetched.
int settledPercent(const BackupAxis& axis)
{
    const auto length = [](const QVector<BackupAxis::Span>& spans) {
        qint64 ms = 0;
        for (const BackupAxis::Span& span : spans)
            ms += qMax<qint64>(0, span.time.lengthMs());
        return ms;
    };
    const qint64 all = length(axis.segments());
    return all > 0 ? int(qBound<qint64>(0, length(axis.pieces()) * whole / all, whole)) : 0;
}

void setTone(QLabel* label, Token token)
{
    QPalette own;
    own.setColor(QPalette::WindowText, Theme::instance().color(token));
    label->setPalette(own);
}

} // namespace

BackupTaskTimeAxisWt::BackupTaskTimeAxisWt(const BackupTaskInfo& task, QWidget* parent)
    : QWidget(parent)
    , m_task(task)
    , m_name(makeLabel(QStringLiteral("channelName"), namePixels))
    , m_state(makeLabel(QStringLiteral("state"), smallPixels))
    , m_safe(makeLabel(QStringLiteral("safe"), smallPixels))
    , m_errorMsg(makeLabel(QStringLiteral("errorMsg"), smallPixels))
    , m_indicator(new QLabel(this))
    , m_axis(new BackupAxisWt(this))
    , m_start(makeButton(QStringLiteral("startBt"), QStringLiteral("start"), tr("start backup")))
    , m_exportBt(makeButton(QStringLiteral("exportBt"), QStringLiteral("export"), tr("export backup files")))
    , m_delete(makeButton(QStringLiteral("deleteBt"), QStringLiteral("clean"), tr("delete backup task")))
    , m_apply(makeButton(QStringLiteral("applyBt"), QStringLiteral("apply-day"), tr("apply to other day")))
{
    setFixedHeight(rowHeight);
    m_axis->setObjectName(QStringLiteral("timeAxisWt"));
    QFont strong = m_name->font();
    strong.setWeight(QFont::DemiBold);
    m_name->setFont(strong);
    m_safe->setForegroundRole(QPalette::PlaceholderText);
    m_indicator->setObjectName(QStringLiteral("taskState"));
    m_indicator->setAlignment(Qt::AlignCenter);
    m_start->setCheckable(true);
    connect(m_start, &QToolButton::clicked, this, &BackupTaskTimeAxisWt::toggleStart);
    connect(m_exportBt, &QToolButton::clicked, this, &BackupTaskTimeAxisWt::exportFiles);
    connect(m_delete, &QToolButton::clicked, this, &BackupTaskTimeAxisWt::removeTask);
    connect(m_apply, &QToolButton::clicked, this, &BackupTaskTimeAxisWt::applyToDay);

    const QString id = m_task.taskId;
    const BackupStarts& starts = BackupStarts::instance();
    connect(&starts, &BackupStarts::signalSearching, this, [this, id](const QString& taskId) {
        if (taskId == id)
            takeSearching();
    });
    connect(&starts, &BackupStarts::signalStarted, this, [this, id](const QString& taskId) {
        if (taskId != id)
            return;
        showIndicator(indicatorNothing);
        takeWorker();
    });
    connect(&starts, &BackupStarts::signalNotStarted, this, [this, id](const QString& taskId, bool isEmpty) {
        if (taskId == id)
            takeNotStarted(isEmpty);
    });
    const BackupWorker& worker = BackupWorker::instance();
    connect(&worker, &BackupWorker::signalBackupProgress, this, [this, id](const QString& taskId, const QTime& time) {
        if (taskId == id)
            takeProgress(time);
    });
    connect(&worker, &BackupWorker::signalTaskStateChanged, this, [this, id](const QString& taskId) {
        if (taskId == id)
            takeWorker();
    });
    connect(&worker, &BackupWorker::signalBackupError, this, [this, id](const QString& taskId, const QString& message) {
        if (taskId == id)
            takeMessage(message);
    });
    m_message = worker.message(id);
    refreshChannel();
    takeWorker();
    showMessage();
    if (isSearching()) // begun by a row that is gone
        takeSearching();
}

QLabel* BackupTaskTimeAxisWt::makeLabel(const QString& objectName, int pixels)
{
    auto* label = new QLabel(this);
    label->setObjectName(objectName);
    label->setTextFormat(Qt::PlainText);
    QFont own = font();
    own.setPixelSize(pixels);
    label->setFont(own);
    return label;
}

QToolButton* BackupTaskTimeAxisWt::makeButton(const QString& objectName, const QString& icon, const QString& tip)
{
    auto* button = new vemo_base::OperButton(this);
    button->setObjectName(objectName);
    button->setIcon(vemo_base::Icons::icon(icon));
    button->setFocusPolicy(Qt::StrongFocus);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    return button;
}

void BackupTaskTimeAxisWt::refreshChannel()
{
    m_isChannelThere = BaseTools::instance().isVideoExist(m_task.channelId);
    m_task.channelName = BackupPaths::channelName(m_task); // a task may be older than what its recorder has told
    const QString name = m_isChannelThere ? m_task.channelName : tr("%1(Not Exist)").arg(m_task.channelName);
    setElided(m_name, name, nameWidth);
    setTone(m_name, m_isChannelThere ? Token::Text : Token::Text2);
    showStartButton();
}

void BackupTaskTimeAxisWt::pressStart()
{
    if (!m_start->isHidden() && !m_start->isChecked())
        m_start->click();
}

void BackupTaskTimeAxisWt::releaseStart()
{
    if (m_indicator->property(taskStateProperty).toInt() == indicatorSearch && isSearching()) {
        BackupStarts::instance().abandon(m_task.taskId);
        putUp();
    } else if (!m_start->isHidden() && m_start->isChecked()) {
        m_start->click();
    }
}

bool BackupTaskTimeAxisWt::isSearching() const
{
    return BackupStarts::instance().isSearching(m_task.taskId);
}

bool BackupTaskTimeAxisWt::isExporting() const
{
    return m_export && m_export->isWorking();
}

void BackupTaskTimeAxisWt::toggleStart(bool down)
{
    if (!down) {
        BackupWorker::instance().stopTask(m_task.taskId);
        takeWorker();
    } else if (!BackupStarts::instance().start(BackupTaskInfo(m_task))) { // its signals change the row's own
        putUp();
    }
}

void BackupTaskTimeAxisWt::takeSearching()
{
    const bool hadFocus = m_start->hasFocus();
    showIndicator(indicatorSearch);
    if (hadFocus)
        m_axis->setFocus();
    showState();
}

void BackupTaskTimeAxisWt::takeNotStarted(bool isEmpty)
{
    if (isEmpty) {
        m_task.held.clear();
        m_task.searched = true;
        showAxis();
    }
    putUp();
}

void BackupTaskTimeAxisWt::refreshTime()
{
    m_axis->updateNow();
    if (m_task.state == vemo_data::BackupWaiting)
        showState(); // the clock may have been set
}

/// The start button is there again and up.
void BackupTaskTimeAxisWt::putUp()
{
    showIndicator(indicatorNothing);
    m_start->setChecked(false);
    showStartButton();
    showState();
}

void BackupTaskTimeAxisWt::showIndicator(int state)
{
    if (m_indicator->property(taskStateProperty) == QVariant(state))
        return;
    m_indicator->setProperty(taskStateProperty, state);
    const bool isSearch = state == indicatorSearch;
    if (isSearch && !m_waiting) {
        m_waiting = new QMovie(image("waiting.gif"), QByteArray(), this);
        const double ratio = devicePixelRatioF();
        m_waiting->setScaledSize((QSizeF(buttonIcon, buttonIcon) * ratio).toSize());
        connect(m_waiting, &QMovie::frameChanged, m_indicator, [this, ratio] {
            QPixmap frame = m_waiting->currentPixmap();
            frame.setDevicePixelRatio(ratio);
            m_indicator->setPixmap(frame);
        });
        m_waiting->start();
    } else if (!isSearch) {
        delete m_waiting;
        m_waiting = nullptr;
    }
    if (state == indicatorFinished)
        m_indicator->setPixmap(vemo_base::Icons::pixmap(image("finished.png"), stateIcon,
                                                        Theme::instance().color(Token::Success), devicePixelRatioF()));
    m_indicator->setVisible(state != indicatorNothing);
    m_start->setVisible(!isSearch);
    arrange();
}

/// The worker's record is the task's truth once it was started.
void BackupTaskTimeAxisWt::takeWorker()
{
    const BackupWorker& worker = BackupWorker::instance();
    BackupTaskInfo record;
    if (worker.task(m_task.taskId, &record)) {
        if (!record.searched) {
            record.held = m_task.held;
            record.searched = m_task.searched;
        }
        record.channelName = m_task.channelName;
        m_task = record;
    }
    if (m_task.state == vemo_data::BackupStopped)
        m_task.recordings.clear();
    m_curTime = m_task.state == vemo_data::BackupRunning ? m_task.curTime : QDateTime();
    m_start->setChecked(m_task.state == vemo_data::BackupRunning || m_task.state == vemo_data::BackupWaiting ||
                        worker.isGoingOn(m_task.taskId));
    showAxis();
    showStartButton();
    showState();
}

void BackupTaskTimeAxisWt::takeProgress(const QTime& curTime)
{
    BackupTaskInfo record;
    if (BackupWorker::instance().task(m_task.taskId, &record))
        m_curTime = record.curTime;
    if (!m_curTime.isValid() || m_curTime.time() != curTime)
        m_curTime = vemo_data::BackupDay::startOf(m_task.date, curTime);
    showAxis();
    showState();
}

void BackupTaskTimeAxisWt::setFileInfos(const QList<BackupTaskInfo::FileInfo>& fileInfos)
{
    m_task.fileInfos = fileInfos;
    showAxis();
    showStartButton();
    showState();
}

void BackupTaskTimeAxisWt::takeMessage(const QString& message)
{
    m_message = message;
    takeWorker(); // a task that is to be tried again tells no other way that it waits
    showMessage();
}

void BackupTaskTimeAxisWt::showExportButton()
{
    const bool isCancel = m_exportPercent >= 0;
    m_exportBt->setIcon(vemo_base::Icons::icon(isCancel ? QStringLiteral("close") : QStringLiteral("export")));
    m_exportBt->setToolTip(isCancel ? tr("cancel the export") : tr("export backup files"));
    m_exportBt->setAccessibleName(m_exportBt->toolTip());
    showState();
}

void BackupTaskTimeAxisWt::exportFiles()
{
    if (isExporting()) {
        m_export->cancel();
        return;
    }
    if (!m_export) {
        m_export = new BackupExport(this);
        connect(m_export, &BackupExport::signalStarted, this, [this] {
            m_exportPercent = 0;
            showExportButton();
        });
        connect(m_export, &BackupExport::signalProgress, this,
                [this](const QString& taskId, int finishedCnt, qint64 curSize, int progress) {
                    m_exportPercent = progress;
                    showState();
                    emit signalExportProgress(taskId, finishedCnt, curSize);
                });
        connect(m_export, &BackupExport::signalFinished, this, [this] {
            m_exportPercent = -1;
            showExportButton();
            emit signalExportFinished();
        });
    }
    m_export->start({m_task});
}

void BackupTaskTimeAxisWt::removeTask()
{
    const QString id = m_task.taskId; // the row may go while the question is open
    if (vemo_base::VMessageBox::question(BaseTools::instance().getRootParentWt(this),
                                         tr("Do you want to delete the video recording backup task?"),
                                         questionWithYesAndNo, false) == yes)
        vemo_data::BackupTaskData::instance().deleteBackupTasks({id});
}

void BackupTaskTimeAxisWt::applyToDay()
{
    BackupTargetDay::pick(m_apply, m_task.date,
                          [task = m_task](const QDate& day) { BackupTargetDay::apply({task}, day); });
}

void BackupTaskTimeAxisWt::showAxis()
{
    const BackupSafety before = m_safety;
    m_safety = BackupSafety::of(m_task);
    const QString share = vemo_base::SpanWords::share(m_safety.safe * secondMs, m_safety.held * secondMs);
    const QString sums = !m_safety.isKnown    ? tr("not searched yet")
                         : m_safety.held == 0 ? tr("nothing recorded")
                                              : tr("%1 safe").arg(share);
    const BackupAxis axis(m_task, m_curTime);
    m_percent = settledPercent(axis);
    m_axis->setAxis(axis, sums);
    setElided(m_safe, sums, nameWidth);
    m_safe->setToolTip(!m_safety.isKnown    ? tr("A start searches what the recorder holds")
                       : m_safety.held == 0 ? tr("The recorder held nothing of these times when it was last searched")
                                            : tr("%1 that the recorder holds is in files here").arg(share));
    if (before.isKnown != m_safety.isKnown || before.held != m_safety.held || before.safe != m_safety.safe)
        emit signalSafetyChanged();
}

BackupTaskTimeAxisWt::StateWords BackupTaskTimeAxisWt::stateWords() const
{
    const auto words = [](const char* icon, const QString& text, Token token) {
        return StateWords{QLatin1String(icon), text, int(token)};
    };
    if (m_exportPercent >= 0)
        return words("export", tr("Exporting, %1%").arg(m_exportPercent), Token::AccentText);
    if (isSearching())
        return words("search", tr("Searching recordings"), Token::AccentText);
    const bool saysLater = m_message.startsWith(BackupWorker::aheadText());
    if (m_task.state == vemo_data::BackupRunning || BackupWorker::instance().isGoingOn(m_task.taskId))
        return words("start", tr("Running, %1%").arg(m_percent), Token::AccentText);
    switch (m_task.state) {
    case vemo_data::BackupFinished:
        return words("", tr("Finished"), Token::Success);
    case vemo_data::BackupWaiting: {
        const QDateTime retry = BackupWorker::instance().retryTime(m_task.taskId);
        if (!retry.isValid())
            return words("waiting", tr("Waiting"), Token::Text2);
        return words("warning", tr("Retry at %1").arg(retry.toString(QStringLiteral("HH:mm"))), Token::Warning);
    }
    default:
        break;
    }
    if (vemo_data::isBackupCovered(m_task))
        return words("", tr("Finished"), Token::Success);
    const QString text = m_task.fileInfos.isEmpty() ? tr("Not started") : tr("Stopped");
    if (m_message.isEmpty() || saysLater)
        return words("stop", text, Token::Text2);
    return words("error", text, Token::Error);
}

void BackupTaskTimeAxisWt::showState()
{
    const StateWords words = stateWords();
    setElided(m_state, words.text, nameWidth - iconRoom);
    setTone(m_state, Token(words.token));
    if (!isSearching())
        showIndicator(Token(words.token) == Token::Success ? indicatorFinished : indicatorNothing);
    setAccessibleName(tr("%1, %2, %3").arg(m_name->accessibleName(), words.text, m_safe->accessibleName()));
    update(QRect(0, 0, axisLeft, height()));
    if (layoutDirection() == Qt::RightToLeft)
        update();
}

void BackupTaskTimeAxisWt::showStartButton()
{
    const bool isDown = m_start->isChecked();
    m_start->setIcon(vemo_base::Icons::icon(isDown ? QStringLiteral("stop") : QStringLiteral("start")));
    m_start->setEnabled(m_isChannelThere || isDown);
    m_start->setToolTip(!m_start->isEnabled() ? tr("channel no longer exists")
                        : isDown              ? tr("stop backup")
                                              : tr("start backup"));
    m_start->setAccessibleName(m_start->toolTip());
}

void BackupTaskTimeAxisWt::showMessage()
{
    const StateWords words = stateWords();
    setTone(m_errorMsg, Token(words.token) == Token::AccentText || Token(words.token) == Token::Success
                            ? Token::Text2
                            : Token(words.token));
    setElided(m_errorMsg, m_message, m_errorMsg->width());
    m_errorMsg->setVisible(!m_message.isEmpty());
    update();
}

void BackupTaskTimeAxisWt::arrange()
{
    const auto place = [this](QWidget* widget, const QRect& room) {
        widget->setGeometry(QStyle::visualRect(layoutDirection(), rect(), room));
    };
    place(m_name, QRect(edge, nameTop, nameWidth, 20));
    place(m_state, QRect(edge + iconRoom, stateTop, nameWidth - iconRoom, smallHeight));
    place(m_safe, QRect(edge, safeTop, nameWidth, smallHeight));
    const int buttonsLeft = width() - edge - buttonCount * buttonSize - (buttonCount - 1) * buttonGap;
    const int axisWidth = qMax(0, buttonsLeft - buttonsToAxis - axisLeft);
    place(m_axis, QRect(axisLeft, axisTop, axisWidth, BackupAxisWt::totalHeight));
    const int messageLeft = axisLeft + vemo_base::AxisPainter::halfLabel + iconRoom;
    place(m_errorMsg, QRect(messageLeft, messageTop, qMax(0, width() - edge - messageLeft), smallHeight));
    int x = buttonsLeft;
    for (QToolButton* button : {m_start, m_exportBt, m_delete, m_apply}) {
        place(button, QRect(x, buttonsTop, buttonSize, buttonSize));
        x += buttonSize + buttonGap;
    }
    if (m_indicator->property(taskStateProperty).toInt() == indicatorSearch)
        m_indicator->setGeometry(m_start->geometry());
    else
        place(m_indicator, QRect(edge, stateTop + 1, stateIcon, stateIcon));
}

void BackupTaskTimeAxisWt::resizeEvent(QResizeEvent*)
{
    arrange();
    setElided(m_errorMsg, m_message, m_errorMsg->width());
}

void BackupTaskTimeAxisWt::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        arrange();
    if (event->type() != QEvent::PaletteChange)
        return;
    // Colours of states are the theme's, not the palette's.
    m_indicator->setProperty(taskStateProperty, isSearching() ? QVariant(indicatorSearch) : QVariant());
    refreshChannel();
    showState();
    showMessage();
}

void BackupTaskTimeAxisWt::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::instance();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    vemo_base::StylePainter::box(&painter, rect(), cardRadius, theme.color(Token::Surface), theme.color(Token::Border));
    painter.setRenderHint(QPainter::Antialiasing, false);
    const StateWords words = stateWords();
    const auto icon = [&](const QString& name, int x, int y, Token token) {
        const QRect room = QStyle::visualRect(layoutDirection(), rect(), QRect(x, y, stateIcon, stateIcon));
        painter.drawPixmap(room, vemo_base::Icons::pixmap(name, stateIcon, theme.color(token), devicePixelRatioF()));
    };
    if (!words.icon.isEmpty())
        icon(words.icon, edge, stateTop + 1, Token(words.token));
    if (m_message.isEmpty())
        return;
    const bool isPlain = Token(words.token) != Token::Warning && Token(words.token) != Token::Error;
    const QString messageIcon = isPlain && words.icon != QLatin1String("waiting") ? QStringLiteral("info") : words.icon;
    icon(messageIcon, axisLeft + vemo_base::AxisPainter::halfLabel, messageTop + 1,
         isPlain ? Token::Text2 : Token(words.token));
}

} // namespace vemo_filesCenter
