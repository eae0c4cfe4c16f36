#include "VemoStyle.h"

#include "FocusRing.h"
#include "Icons.h"
#include "PlainToolTips.h"
#include "StylePainter.h"
#include "ThemeTokens.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QStyleFactory>
#include <QStyleOption>
#include <QToolButton>
#include <QVariant>

namespace vemo_base {

namespace {

constexpr int controlHeight = 32;
constexpr int barIconButton = 32;
constexpr int checkBoxSize = 16;
constexpr int buttonPadding = 14;
constexpr int buttonIconGap = 8;
constexpr int buttonIcon = 16;
constexpr int fieldPadding = 10;
constexpr int comboArrowRoom = 32;
constexpr int scrollBarExtent = 14;
constexpr int scrollBarThickness = 6;
constexpr int scrollBarMinimum = 32;
constexpr int progressHeight = 6;
constexpr int headerHeight = 36;
constexpr int headerPixels = 12;
constexpr int rowHeight = 40;
constexpr int menuItemHeight = 32;
constexpr int menuPadding = 12;
constexpr int focusMargin = 4;
constexpr int selectionBar = 3;
constexpr int tipPadding = 8;
constexpr int wakeUpMs = 500;
constexpr double controlRadius = 6;
constexpr double checkRadius = 4;

QColor colorOf(const QStyleOption* option, Token token)
{
    return themeColor(StylePainter::modeOf(option->palette), token);
}

ButtonKind kindOf(const QWidget* widget)
{
    const QString kind = widget ? widget->property("kind").toString() : QString();
    if (kind == QLatin1String("primary"))
        return ButtonKind::Primary;
    if (kind == QLatin1String("quiet"))
        return ButtonKind::Quiet;
    if (kind == QLatin1String("danger"))
        return ButtonKind::Danger;
    return ButtonKind::Secondary;
}

bool isInvalid(const QWidget* widget)
{
    return widget && widget->property("invalid").toBool();
}

void drawPushButtonLabel(const QStyleOptionButton* option, QPainter* painter, const QWidget* widget)
{
    const ThemeMode mode = StylePainter::modeOf(option->palette);
    const ButtonKind kind = kindOf(widget);
    const QColor color = StylePainter::pushButtonText(option->state, kind, mode);
    painter->save();
    QFont font = painter->font();
    if (kind == ButtonKind::Primary || kind == ButtonKind::Danger)
        font.setWeight(QFont::DemiBold);
    painter->setFont(font);
    const QFontMetrics metrics(font);
    const bool hasIcon = !option->icon.isNull();
    const int iconRoom = hasIcon ? buttonIcon + (option->text.isEmpty() ? 0 : buttonIconGap) : 0;
    const int textWidth = option->text.isEmpty() ? 0 : metrics.size(Qt::TextShowMnemonic, option->text).width();
    const int width = qMin(iconRoom + textWidth, option->rect.width());
    QRect content(option->rect.x() + (option->rect.width() - width) / 2, option->rect.y(), width,
                  option->rect.height());
    if (hasIcon) {
        QRect iconRect(content.x(), content.y() + (content.height() - buttonIcon) / 2, buttonIcon, buttonIcon);
        iconRect = QStyle::visualRect(option->direction, content, iconRect);
        // The shape only: its colour is that of the words beside it. Painted, and not asked for as a pixmap, it gets
        // the stroke of its logical size at every ratio.
        const qreal ratio = painter->device()->devicePixelRatioF();
        QPixmap shape(QSize(buttonIcon, buttonIcon) * ratio);
        shape.setDevicePixelRatio(ratio);
        shape.fill(Qt::transparent);
        QPainter tint(&shape);
        option->icon.paint(&tint, 0, 0, buttonIcon, buttonIcon);
        tint.setCompositionMode(QPainter::CompositionMode_SourceIn);
        tint.fillRect(0, 0, buttonIcon, buttonIcon, color);
        tint.end();
        painter->drawPixmap(QRectF(iconRect), shape, QRectF(shape.rect()));
    }
    QRect textRect = content.adjusted(iconRoom, 0, 0, 0);
    textRect = QStyle::visualRect(option->direction, content, textRect);
    painter->setPen(color);
    painter->drawText(textRect, Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextSingleLine, option->text);
    painter->restore();
}

void drawHeaderLabel(const QStyleOptionHeader* option, QPainter* painter)
{
    painter->save();
    QFont font = painter->font();
    font.setPixelSize(headerPixels);
    font.setWeight(QFont::DemiBold);
    painter->setFont(font);
    painter->setPen(colorOf(option, Token::Text2));
    const QRect rect = option->rect.adjusted(fieldPadding, 0, -fieldPadding, 0);
    const QString text = QFontMetrics(font).elidedText(option->text, Qt::ElideRight, rect.width());
    const Qt::Alignment alignment =
        QStyle::visualAlignment(option->direction, option->textAlignment) | Qt::AlignVCenter;
    painter->drawText(rect, static_cast<int>(alignment) | Qt::TextSingleLine, text);
    painter->restore();
}

void drawItemBackground(const QStyleOptionViewItem* option, QPainter* painter)
{
    const bool selected = option->state & QStyle::State_Selected;
    const bool hover = option->state & QStyle::State_MouseOver && option->state & QStyle::State_Enabled;
    if (option->backgroundBrush.style() != Qt::NoBrush)
        painter->fillRect(option->rect, option->backgroundBrush);
    if (selected || hover)
        painter->fillRect(option->rect, colorOf(option, selected ? Token::Select : Token::Hover));
    const QStyleOptionViewItem::ViewItemPosition position = option->viewItemPosition;
    const bool first = position == QStyleOptionViewItem::Beginning || position == QStyleOptionViewItem::OnlyOne ||
                       (position == QStyleOptionViewItem::Invalid && option->index.column() == 0);
    if (selected && first) {
        const QRect bar(option->rect.x(), option->rect.y(), selectionBar, option->rect.height());
        painter->fillRect(QStyle::visualRect(option->direction, option->rect, bar), colorOf(option, Token::AccentText));
    }
}

void drawMenuItem(const QStyleOptionMenuItem* option, QPainter* painter)
{
    if (option->menuItemType == QStyleOptionMenuItem::Separator) {
        painter->fillRect(QRect(option->rect.x(), option->rect.center().y(), option->rect.width(), 1),
                          colorOf(option, Token::Border));
        return;
    }
    painter->save();
    const bool enabled = option->state & QStyle::State_Enabled;
    if (option->state & QStyle::State_Selected && enabled)
        StylePainter::box(painter, option->rect.adjusted(4, 0, -4, 0), controlRadius, colorOf(option, Token::Select),
                          QColor());
    const auto mirrored = [option](const QRect& rect) {
        return QStyle::visualRect(option->direction, option->rect, rect);
    };
    QRect rest = option->rect.adjusted(menuPadding, 0, -menuPadding, 0);
    if (option->menuHasCheckableItems) {
        if (option->checked) {
            const QRect mark(rest.x(), rest.y() + (rest.height() - buttonIcon) / 2, buttonIcon, buttonIcon);
            Icons::icon(QStringLiteral("check")).paint(painter, mirrored(mark), Qt::AlignCenter, QIcon::Selected);
        }
        rest.adjust(buttonIcon + buttonIconGap, 0, 0, 0);
    } else if (!option->icon.isNull()) {
        const QRect icon(rest.x(), rest.y() + (rest.height() - buttonIcon) / 2, buttonIcon, buttonIcon);
        option->icon.paint(painter, mirrored(icon), Qt::AlignCenter, enabled ? QIcon::Normal : QIcon::Disabled);
        rest.adjust(buttonIcon + buttonIconGap, 0, 0, 0);
    }
    painter->setFont(option->font);
    painter->setPen(colorOf(option, enabled ? Token::Text : Token::Text3));
    const QStringList parts = option->text.split(QLatin1Char('\t'));
    const Qt::Alignment leading = QStyle::visualAlignment(option->direction, Qt::AlignLeft);
    const Qt::Alignment trailing = QStyle::visualAlignment(option->direction, Qt::AlignRight);
    constexpr int flags = Qt::AlignVCenter | Qt::TextShowMnemonic | Qt::TextSingleLine;
    painter->drawText(mirrored(rest), static_cast<int>(leading) | flags, parts.first());
    if (parts.size() > 1) {
        painter->setPen(colorOf(option, Token::Text2));
        painter->drawText(mirrored(rest), static_cast<int>(trailing) | flags, parts.at(1));
    }
    painter->restore();
}

void drawProgress(const QStyleOptionProgressBar* option, QPainter* painter, const QWidget* widget)
{
    const int range = option->maximum - option->minimum;
    const double fraction = range > 0 ? double(option->progress - option->minimum) / range : 0;
    const QRectF groove(option->rect.x(), option->rect.y() + (option->rect.height() - progressHeight) / 2.0,
                        option->rect.width(), progressHeight);
    const bool paused = widget && widget->property("paused").toBool();
    StylePainter::progress(painter, groove, fraction, colorOf(option, Token::Track),
                           colorOf(option, paused ? Token::Control : Token::Progress));
}

void drawSpinBox(const QStyleOptionSpinBox* option, QPainter* painter, bool invalid, const QRect& up, const QRect& down)
{
    StylePainter::field(painter, option->rect, option->state, invalid, StylePainter::modeOf(option->palette));
    constexpr double half = 3.5;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const auto arrow = [option, painter](const QRect& rect, QAbstractSpinBox::StepEnabledFlag step, double rise) {
        const bool enabled = option->state & QStyle::State_Enabled && option->stepEnabled & step;
        painter->setPen(QPen(colorOf(option, enabled ? Token::Text2 : Token::Text3), 1.5, Qt::SolidLine, Qt::RoundCap,
                             Qt::RoundJoin));
        const QPointF center = QRectF(rect).center();
        const QPointF points[] = {center + QPointF(-half, rise / 2), center + QPointF(0, -rise / 2),
                                  center + QPointF(half, rise / 2)};
        painter->drawPolyline(points, 3);
    };
    arrow(up, QAbstractSpinBox::StepUpEnabled, half);
    arrow(down, QAbstractSpinBox::StepDownEnabled, -half);
    painter->restore();
}

void drawScrollBar(const QStyleOptionSlider* option, QPainter* painter, const QRect& slider)
{
    if (option->maximum <= option->minimum)
        return;
    const bool active = option->state & QStyle::State_MouseOver || option->state & QStyle::State_Sunken;
    QRectF handle = slider;
    if (option->orientation == Qt::Vertical)
        handle = QRectF(slider.center().x() + 0.5 - scrollBarThickness / 2.0, slider.y() + 2, scrollBarThickness,
                        slider.height() - 4);
    else
        handle = QRectF(slider.x() + 2, slider.center().y() + 0.5 - scrollBarThickness / 2.0, slider.width() - 4,
                        scrollBarThickness);
    QColor color = colorOf(option, Token::Control);
    if (!active)
        color.setAlphaF(0.7);
    StylePainter::box(painter, handle, scrollBarThickness / 2.0, color, QColor());
}

} // namespace

VemoStyle::VemoStyle()
    : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
{}

VemoStyle::~VemoStyle() = default;

void VemoStyle::polish(QWidget* widget)
{
    QProxyStyle::polish(widget);
    if (qobject_cast<QPushButton*>(widget) || qobject_cast<QToolButton*>(widget) || qobject_cast<QLineEdit*>(widget) ||
        qobject_cast<QComboBox*>(widget) || qobject_cast<QCheckBox*>(widget) || qobject_cast<QScrollBar*>(widget))
        widget->setAttribute(Qt::WA_Hover);
    if (auto* view = qobject_cast<QAbstractItemView*>(widget))
        view->viewport()->setAttribute(Qt::WA_Hover);
    // Names of devices and people stand in labels. Only a label that says so shows markup; a tool tip's knows its text.
    auto* label = qobject_cast<QLabel*>(widget);
    if (label && label->textFormat() == Qt::AutoText && !label->inherits("QTipLabel"))
        label->setTextFormat(Qt::PlainText);
}

void VemoStyle::polish(QApplication* application)
{
    QProxyStyle::polish(application);
    if (!findChild<FocusRing*>())
        new FocusRing(this);
    if (!findChild<PlainToolTips*>())
        new PlainToolTips(this);
}

void VemoStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const
{
    const ThemeMode mode = StylePainter::modeOf(option->palette);
    switch (element) {
    case PE_FrameFocusRect:
        if (qobject_cast<const QAbstractItemView*>(widget) && option->state & State_KeyboardFocusChange)
            StylePainter::focusRing(painter, option->rect, controlRadius, mode);
        return;
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
        StylePainter::checkBox(painter, option->rect, option->state, mode);
        return;
    case PE_PanelButtonCommand:
        StylePainter::pushButton(painter, option->rect, option->state, kindOf(widget), mode);
        return;
    case PE_PanelButtonTool:
        StylePainter::pushButton(painter, option->rect, option->state, ButtonKind::Quiet, mode);
        return;
    case PE_FrameDefaultButton:
    case PE_IndicatorTabClose:
        return;
    case PE_PanelLineEdit:
        if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option); frame && frame->lineWidth > 0)
            StylePainter::field(painter, option->rect, option->state, isInvalid(widget), mode);
        return;
    case PE_FrameLineEdit:
        return;
    case PE_PanelItemViewItem:
        if (const auto* item = qstyleoption_cast<const QStyleOptionViewItem*>(option)) {
            drawItemBackground(item, painter);
            return;
        }
        break;
    case PE_PanelItemViewRow:
        return;
    case PE_PanelTipLabel:
    case PE_PanelMenu:
        StylePainter::box(painter, option->rect, 0, themeColor(mode, Token::Overlay), themeColor(mode, Token::Control));
        return;
    case PE_FrameMenu:
        return;
    default:
        break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void VemoStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const
{
    switch (element) {
    case CE_PushButtonLabel:
        if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option)) {
            drawPushButtonLabel(button, painter, widget);
            return;
        }
        break;
    case CE_ProgressBar:
        if (const auto* progress = qstyleoption_cast<const QStyleOptionProgressBar*>(option)) {
            drawProgress(progress, painter, widget);
            return;
        }
        break;
    case CE_HeaderSection:
    case CE_HeaderEmptyArea:
        painter->fillRect(option->rect, colorOf(option, Token::Raised));
        painter->fillRect(QRect(option->rect.x(), option->rect.bottom(), option->rect.width(), 1),
                          colorOf(option, Token::Border));
        return;
    case CE_HeaderLabel:
        if (const auto* header = qstyleoption_cast<const QStyleOptionHeader*>(option)) {
            drawHeaderLabel(header, painter);
            return;
        }
        break;
    case CE_MenuItem:
        if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option)) {
            drawMenuItem(item, painter);
            return;
        }
        break;
    case CE_MenuEmptyArea:
        return;
    case CE_FocusFrame: {
        const QWidget* focused = nullptr;
        if (const auto* frame = qobject_cast<const QFocusFrame*>(widget))
            focused = frame->widget();
        const double radius = (qobject_cast<const QCheckBox*>(focused) ? checkRadius : controlRadius) + focusMargin;
        StylePainter::focusRing(painter, option->rect, radius, StylePainter::modeOf(option->palette));
        return;
    }
    default:
        break;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void VemoStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                   const QWidget* widget) const
{
    if (control == CC_ScrollBar) {
        if (const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option)) {
            drawScrollBar(slider, painter, subControlRect(CC_ScrollBar, option, SC_ScrollBarSlider, widget));
            return;
        }
    } else if (control == CC_ComboBox) {
        if (const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option)) {
            StylePainter::field(painter, combo->rect, combo->state, isInvalid(widget),
                                StylePainter::modeOf(combo->palette));
            const QRect room = subControlRect(CC_ComboBox, option, SC_ComboBoxArrow, widget);
            const QRect arrow(room.center().x() - buttonIcon / 2, room.center().y() - buttonIcon / 2 + 1, buttonIcon,
                              buttonIcon);
            Icons::icon(QStringLiteral("chev-down"))
                .paint(painter, arrow, Qt::AlignCenter, combo->state & State_Enabled ? QIcon::Normal : QIcon::Disabled);
            return;
        }
    }
    if (control == CC_SpinBox) {
        if (const auto* spin = qstyleoption_cast<const QStyleOptionSpinBox*>(option)) {
            drawSpinBox(spin, painter, isInvalid(widget), subControlRect(CC_SpinBox, option, SC_SpinBoxUp, widget),
                        subControlRect(CC_SpinBox, option, SC_SpinBoxDown, widget));
            return;
        }
    }
    if (control == CC_ToolButton) {
        if (const auto* button = qstyleoption_cast<const QStyleOptionToolButton*>(option)) {
            // A button that is all menu needs no arrow beside its icon.
            QStyleOptionToolButton plain = *button;
            if (!(plain.features & QStyleOptionToolButton::MenuButtonPopup))
                plain.features &= ~QStyleOptionToolButton::HasMenu;
            QProxyStyle::drawComplexControl(control, &plain, painter, widget);
            return;
        }
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

int VemoStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
        return checkBoxSize;
    case PM_CheckBoxLabelSpacing:
        return 8;
    case PM_ButtonMargin:
        return 2 * buttonPadding;
    case PM_ButtonDefaultIndicator:
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
    case PM_MenuPanelWidth:
        return 0;
    case PM_ButtonIconSize:
    case PM_SmallIconSize:
        return buttonIcon;
    case PM_ToolBarIconSize:
        return 20;
    case PM_ScrollBarExtent:
        return scrollBarExtent;
    case PM_ScrollBarSliderMin:
        return scrollBarMinimum;
    case PM_HeaderDefaultSectionSizeVertical:
        return rowHeight;
    case PM_FocusFrameHMargin:
    case PM_FocusFrameVMargin:
        return focusMargin;
    case PM_MenuVMargin:
        return 4;
    case PM_ToolTipLabelFrameWidth:
        return tipPadding;
    case PM_LayoutLeftMargin:
    case PM_LayoutRightMargin:
        return 24;
    case PM_LayoutTopMargin:
    case PM_LayoutBottomMargin:
        return 20;
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing:
        return 8;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int VemoStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* returnData) const
{
    switch (hint) {
    case SH_ToolTip_WakeUpDelay:
        return wakeUpMs;
    case SH_FocusFrame_AboveWidget:
        // The ring belongs to the window then, and bars that end with their controls don't clip it.
        return 1;
    case SH_ScrollView_FrameOnlyAroundContents:
        return 0;
    case SH_FocusFrame_Mask:
        return 0;
    case SH_EtchDisabledText:
    case SH_UnderlineShortcut:
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_Menu_SloppySubMenus:
        return 0;
    case SH_Widget_Animate:
    case SH_Widget_Animation_Duration:
        return 0;
    default:
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

QSize VemoStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                  const QWidget* widget) const
{
    switch (type) {
    case CT_PushButton:
        if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option)) {
            QFont font = widget ? widget->font() : QFont();
            font.setWeight(QFont::DemiBold); // the widest a button gets, so that its kind does not change its size
            const int text =
                button->text.isEmpty() ? 0 : QFontMetrics(font).size(Qt::TextShowMnemonic, button->text).width();
            const int icon = button->icon.isNull() ? 0 : buttonIcon + (text ? buttonIconGap : 0);
            return QSize(text + icon + 2 * buttonPadding, controlHeight);
        }
        break;
    case CT_ToolButton:
        return QSize(qMax(contents.width() + 12, barIconButton), qMax(contents.height(), barIconButton));
    case CT_LineEdit:
    case CT_SpinBox:
        return QSize(contents.width() + 2 * fieldPadding, controlHeight);
    case CT_ComboBox:
        return QSize(contents.width() + fieldPadding + comboArrowRoom, controlHeight);
    case CT_HeaderSection:
        return QSize(QProxyStyle::sizeFromContents(type, option, contents, widget).width(), headerHeight);
    case CT_ProgressBar:
        return QSize(contents.width(), qMax(progressHeight, contents.height()));
    case CT_MenuItem:
        if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option)) {
            if (item->menuItemType == QStyleOptionMenuItem::Separator)
                return QSize(contents.width(), 9);
            return QSize(contents.width() + 2 * menuPadding + buttonIcon + buttonIconGap + 16, menuItemHeight);
        }
        break;
    default:
        break;
    }
    return QProxyStyle::sizeFromContents(type, option, contents, widget);
}

QRect VemoStyle::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const
{
    switch (element) {
    case SE_LineEditContents:
        return option->rect.adjusted(fieldPadding - 2, 1, -(fieldPadding - 2), -1);
    case SE_PushButtonContents:
    case SE_ProgressBarGroove:
    case SE_ProgressBarContents:
        return option->rect;
    default:
        return QProxyStyle::subElementRect(element, option, widget);
    }
}

QRect VemoStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl subControl,
                                const QWidget* widget) const
{
    if (control == CC_ComboBox) {
        const QRect rect = option->rect;
        if (subControl == SC_ComboBoxArrow)
            return visualRect(option->direction, rect,
                              QRect(rect.right() - comboArrowRoom + 1, rect.y(), comboArrowRoom, rect.height()));
        if (subControl == SC_ComboBoxEditField)
            return visualRect(option->direction, rect, rect.adjusted(fieldPadding - 2, 1, -comboArrowRoom, -1));
    }
    if (control == CC_ScrollBar) {
        const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
        if (!slider)
            return QProxyStyle::subControlRect(control, option, subControl, widget);
        const bool vertical = slider->orientation == Qt::Vertical;
        const QRect rect = slider->rect;
        const int room = vertical ? rect.height() : rect.width();
        const qint64 range = qint64(slider->maximum) - slider->minimum;
        int length = room;
        if (range > 0)
            length = qBound(qMin(scrollBarMinimum, room),
                            int(qint64(slider->pageStep) * room / (range + slider->pageStep)), room);
        const int start = sliderPositionFromValue(slider->minimum, slider->maximum, slider->sliderPosition,
                                                  room - length, slider->upsideDown);
        const auto span = [&](int from, int size) {
            return vertical ? QRect(rect.x(), rect.y() + from, rect.width(), size)
                            : QRect(rect.x() + from, rect.y(), size, rect.height());
        };
        switch (subControl) {
        case SC_ScrollBarSlider:
            return visualRect(slider->direction, rect, span(start, length));
        case SC_ScrollBarSubPage:
            return visualRect(slider->direction, rect, span(0, start));
        case SC_ScrollBarAddPage:
            return visualRect(slider->direction, rect, span(start + length, room - start - length));
        case SC_ScrollBarGroove:
            return rect;
        default:
            return QRect();
        }
    }
    return QProxyStyle::subControlRect(control, option, subControl, widget);
}

} // namespace vemo_base
