#include "LocalSnapImageCard.h"

#include "LocalSnapImageControls.h"
#include "LocalSnapImageNames.h"

#include <BaseTools.h>
#include <Icons.h>
#include <LocalSnapImageIndexes.h>
#include <StylePainter.h>
#include <SystemAssistant.h>
#include <ToolsCollection.h>
#include <VFileDialog.h>
#include <VMessageBox.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLinearGradient>
#include <QPainter>
#include <QPointer>
#include <QStandardPaths>

namespace vemo_filesCenter {

using vemo_base::BaseTools;
using vemo_base::StylePainter;
using vemo_base::ThemeMode;
using vemo_base::Thumbnail;
using vemo_base::Token;

namespace {

constexpr int margin = 8;
constexpr int buttonGap = 4;
constexpr int footHeight = 46;
constexpr int textInset = 10;
constexpr int textBottom = 8;
constexpr int textPixels = 12;
constexpr int iconExtent = 36;
constexpr double radius = 6;
constexpr double checkedEdge = 2;
constexpr int questionBeforeDeed = 3;
constexpr int answerYes = 1;

QColor dark(Token token)
{
    return themeColor(ThemeMode::Dark, token);
}

} // namespace

LocalSnapImageCard::LocalSnapImageCard(QWidget* parent)
    : QWidget(parent)
    , m_checkBox(new LocalSnapImageCheckBox(this))
{
    resize(cardSize);
    setFocusPolicy(Qt::ClickFocus);
    setAttribute(Qt::WA_Hover);
    m_checkBox->setObjectName(QStringLiteral("checkBox"));
    QToolButton* enlarge = addButton(QStringLiteral("enlargeBt"), QStringLiteral("enlarge"), tr("enlarge"));
    QToolButton* save = addButton(QStringLiteral("saveAsBt"), QStringLiteral("save-as"), tr("save as"));
    QToolButton* remove = addButton(QStringLiteral("deleteBt"), QStringLiteral("clean"), tr("delete"));
    connect(m_checkBox, &QCheckBox::toggled, this, [this](bool isChecked) {
        update();
        emit signalCheckState(isChecked);
    });
    connect(enlarge, &QToolButton::clicked, this, [this] { emit signalEnlargeRequested(this); });
    connect(save, &QToolButton::clicked, this, &LocalSnapImageCard::saveSnapshot);
    connect(remove, &QToolButton::clicked, this, &LocalSnapImageCard::deleteSnapshot);

    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    constexpr int boxInset = margin - (LocalSnapImageCheckBox::extent - 18) / 2;
    m_checkBox->move(mirrored ? cardSize.width() - boxInset - LocalSnapImageCheckBox::extent : boxInset, boxInset);
    int x = margin + m_buttons.size() * LocalSnapImageButton::extent + (m_buttons.size() - 1) * buttonGap;
    for (QToolButton* button : qAsConst(m_buttons)) {
        button->move(mirrored ? x - LocalSnapImageButton::extent : cardSize.width() - x, margin);
        x -= LocalSnapImageButton::extent + buttonGap;
    }
    showButtons();
}

QToolButton* LocalSnapImageCard::addButton(const QString& objectName, const QString& iconName, const QString& tip)
{
    auto* button = new LocalSnapImageButton(iconName, tip, this);
    button->setObjectName(objectName);
    button->installEventFilter(this);
    m_buttons.append(button);
    return button;
}

void LocalSnapImageCard::setSnapshot(const VCOMMON::LocalSnapImageIndexInfo& info, bool isChecked)
{
    m_info = info;
    m_key = {info.filePath, cardSize * devicePixelRatioF(), vemo_base::PictureFit::Cover};
    m_thumbnail = vemo_base::Thumbnails::instance().find(m_key);
    m_isHovered = underMouse();
    m_checkBox->setAccessibleName(LocalSnapImageNames::channelName(info));
    setAccessibleName(LocalSnapImageNames::channelName(info) % QLatin1Char(' ') %
                      LocalSnapImageNames::captureTime(info));
    setChecked(isChecked);
    showButtons();
}

void LocalSnapImageCard::setChecked(bool isChecked)
{
    const QSignalBlocker blocker(m_checkBox);
    m_checkBox->setChecked(isChecked);
    update();
}

void LocalSnapImageCard::setThumbnail(const Thumbnail& thumbnail)
{
    m_thumbnail = thumbnail;
    update();
}

void LocalSnapImageCard::showButtons()
{
    const bool shows = m_isHovered || hasFocus() || isAncestorOf(QApplication::focusWidget());
    for (QToolButton* button : qAsConst(m_buttons))
        button->setVisible(shows);
}

void LocalSnapImageCard::deleteSnapshot()
{
    const QPointer<LocalSnapImageCard> alive(this);
    const VCOMMON::LocalSnapImageIndexInfo info = m_info; // the card may show another one when the answer is there
    if (vemo_base::VMessageBox::question(BaseTools::instance().getRootParentWt(this),
                                         tr("Do you want to delete the snap image?"), questionBeforeDeed,
                                         false) != answerYes)
        return;
    LocalSnapImageNames::logDeletion(info);
    LocalSnapImageNames::removeFiles({info.filePath});
    VCOMMON::LocalSnapImageIndexes::instance().deleteLocalSnapImageIndex(info.filePath);
    if (alive && m_info.filePath == info.filePath)
        emit signalRequestDeleteSnapImageCard(this);
}

void LocalSnapImageCard::saveSnapshot()
{
    const QString source = m_info.filePath;
    const bool isBitmap = source.endsWith(QLatin1String(".bmp"), Qt::CaseInsensitive);
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
    const QString target =
        VCOMMON::VFileDialog::getSaveFileName(BaseTools::instance().getRootParentWt(this), tr("Save As"),
                                              folder % QLatin1Char('/') % LocalSnapImageNames::fileName(m_info),
                                              isBitmap ? tr("Images(*.bmp)") : tr("Images (*.jpg)"));
    if (!target.isEmpty())
        VCOMMON::ToolsCollection::copyFile(source, target);
}

bool LocalSnapImageCard::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::HoverEnter:
    case QEvent::HoverLeave:
        m_isHovered = event->type() == QEvent::HoverEnter;
        showButtons();
        break;
    case QEvent::FocusIn: {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        m_showsRing = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
        showButtons();
        update();
        break;
    }
    case QEvent::FocusOut:
        m_showsRing = false;
        showButtons();
        update();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

bool LocalSnapImageCard::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::FocusOut || event->type() == QEvent::FocusIn)
        QMetaObject::invokeMethod(this, &LocalSnapImageCard::showButtons, Qt::QueuedConnection);
    return false;
}

void LocalSnapImageCard::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Space:
        m_checkBox->toggle();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        emit signalEnlargeRequested(this);
        break;
    case Qt::Key_Delete:
        deleteSnapshot();
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void LocalSnapImageCard::mousePressEvent(QMouseEvent* event)
{
    m_pressedAt = event->pos();
}

void LocalSnapImageCard::mouseMoveEvent(QMouseEvent* event)
{
    if ((event->buttons() & Qt::LeftButton) &&
        (event->pos() - m_pressedAt).manhattanLength() >= QApplication::startDragDistance())
        emit signalDragRequested(this);
}

void LocalSnapImageCard::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        emit signalEnlargeRequested(this);
}

void LocalSnapImageCard::contextMenuEvent(QContextMenuEvent* event)
{
    emit signalMenuRequested(this, event->globalPos());
}

void LocalSnapImageCard::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    StylePainter::box(&painter, rect(), radius, dark(Token::Surface), Qt::transparent, 0);
    if (m_thumbnail.state == Thumbnail::State::Ready) {
        const double ratio = devicePixelRatioF();
        // A picture smaller than the card stands in its middle.
        const QSizeF size = QSizeF(m_thumbnail.image.size()) / ratio;
        const QPointF corner((width() - size.width()) / 2, (height() - size.height()) / 2);
        QBrush brush(m_thumbnail.image);
        brush.setTransform(QTransform::fromTranslate(corner.x(), corner.y()).scale(1 / ratio, 1 / ratio));
        painter.setPen(Qt::NoPen);
        painter.setBrush(brush);
        painter.drawRoundedRect(QRectF(corner, size), radius, radius);
    } else if (m_thumbnail.state == Thumbnail::State::Unreadable) {
        painter.drawPixmap(
            (width() - iconExtent) / 2, height() / 2 - iconExtent,
            vemo_base::Icons::pixmap(QStringLiteral("error"), iconExtent, dark(Token::Text2), devicePixelRatioF()));
        painter.setPen(dark(Token::Text2));
        painter.drawText(QRect(margin, height() / 2 + margin, width() - 2 * margin, footHeight),
                         Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, tr("This image can't be read"));
    }
    paintFoot(&painter);
    if (m_checkBox->isChecked()) {
        painter.setPen(QPen(dark(Token::AccentText), checkedEdge));
        painter.setBrush(Qt::NoBrush);
        const double half = checkedEdge / 2;
        painter.drawRoundedRect(QRectF(rect()).adjusted(half, half, -half, -half), radius - half, radius - half);
    }
    if (m_showsRing)
        StylePainter::focusRingInside(&painter, rect(), radius);
}

void LocalSnapImageCard::paintFoot(QPainter* painter) const
{
    // At least 73 % behind the text, whatever the picture.
    const QRectF foot(0, height() - footHeight, width(), footHeight);
    QLinearGradient shade(foot.topLeft(), foot.bottomLeft());
    QColor ground = dark(Token::Well);
    for (const auto& stop : {qMakePair(0.0, 0.0), qMakePair(0.4, 0.74), qMakePair(1.0, 0.9)}) {
        ground.setAlphaF(stop.second);
        shade.setColorAt(stop.first, ground);
    }
    painter->save();
    painter->setClipRect(foot);
    painter->setPen(Qt::NoPen);
    painter->setBrush(shade);
    painter->drawRoundedRect(foot.adjusted(0, -radius, 0, 0), radius, radius);
    painter->restore();

    QFont font = this->font();
    font.setPixelSize(textPixels);
    painter->setFont(font);
    painter->setPen(dark(Token::Text));
    const QRect line = rect().adjusted(textInset, height() - footHeight, -textInset, -textBottom);
    const auto draw = [painter, &line, this](Qt::Alignment alignment, const QString& text) {
        painter->drawText(
            line, static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment) | Qt::AlignBottom), text);
    };
    draw(Qt::AlignLeft, LocalSnapImageNames::captureTime(m_info));
    if (!m_thumbnail.pictureSize.isEmpty()) {
        draw(Qt::AlignRight, tr("%1 x %2").arg(m_thumbnail.pictureSize.width()).arg(m_thumbnail.pictureSize.height()));
    }
}

} // namespace vemo_filesCenter
