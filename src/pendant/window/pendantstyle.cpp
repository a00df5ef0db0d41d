#include "pendantstyle.h"

#include "setfontsize.h"

#include <QApplication>
#include <QComboBox>
#include <QListView>
#include <QPainter>
#include <QPainterPath>
#include <QStyleFactory>
#include <QStyleOption>
#include <QStyledItemDelegate>

namespace {

constexpr int kTarget = 40; ///< least height of what a finger hits
constexpr int kArrow = 40; ///< width of the touch area with a combo box's arrow
constexpr qreal kRadius = 5;

const QColor kLine(0x9c, 0xa3, 0xaa);
const QColor kLineDisabled(0xc4, 0xc8, 0xcc);
const QColor kButton(0xf1, 0xf2, 0xf3);
const QColor kButtonDown(0xc9, 0xd3, 0xdc);
const QColor kButtonOn(0xd3, 0xe1, 0xec);
const QColor kButtonDisabled(0xdc, 0xde, 0xe0);
const QColor kFieldDisabled(0xe4, 0xe6, 0xe8);
const QColor kInk(0x3a, 0x42, 0x4a);
const QColor kAccent(0x2b, 0x5f, 0x8c);

void drawBox(QPainter *painter, const QRect &rect, const QColor &ground, const QColor &line,
             qreal lineWidth = 1)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(line, lineWidth));
    painter->setBrush(ground);
    const qreal inset = lineWidth / 2;
    painter->drawRoundedRect(QRectF(rect).adjusted(inset, inset, -inset, -inset), kRadius, kRadius);
    painter->restore();
}

void drawButton(const QStyleOption *option, QPainter *painter)
{
    const bool enabled = option->state & QStyle::State_Enabled;
    const bool on = option->state & QStyle::State_On;
    const bool focus = enabled && (option->state & QStyle::State_HasFocus);
    QColor ground = on ? kButtonOn : kButton;
    if (!enabled)
        ground = kButtonDisabled;
    else if (option->state & QStyle::State_Sunken)
        ground = kButtonDown;
    QColor line = enabled ? kLine : kLineDisabled;
    if (enabled && (on || focus))
        line = kAccent;
    drawBox(painter, option->rect, ground, line, enabled && on ? 2 : 1);
}

void drawField(const QStyleOption *option, QPainter *painter)
{
    const bool writable =
        (option->state & QStyle::State_Enabled) && !(option->state & QStyle::State_ReadOnly);
    const bool focus = writable && (option->state & QStyle::State_HasFocus);
    drawBox(painter, option->rect, writable ? QColor(Qt::white) : kFieldDisabled,
            focus ? kAccent : (writable ? kLine : kLineDisabled), focus ? 2 : 1);
}

/// An open arrow that points downwards, turned clockwise by `angle` degrees.
void drawArrow(QPainter *painter, const QRect &rect, const QColor &ink, qreal angle = 0)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(ink, 2.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->translate(QRectF(rect).center());
    painter->rotate(angle);
    QPainterPath arrow(QPointF(-6, -3));
    arrow.lineTo(QPointF(0, 4));
    arrow.lineTo(QPointF(6, -3));
    painter->drawPath(arrow);
    painter->restore();
}

/// A flat groove with a rounded slider, and the two arrows at its ends.
void drawScrollBar(const QStyle *style, const QStyleOptionSlider *option, QPainter *painter,
                   const QWidget *widget)
{
    const auto part = [&](QStyle::SubControl control) {
        return style->subControlRect(QStyle::CC_ScrollBar, option, control, widget);
    };
    painter->fillRect(option->rect, QColor(0xdc, 0xdf, 0xe2));
    const bool enabled =
        (option->state & QStyle::State_Enabled) && option->maximum > option->minimum;
    if (enabled) {
        const bool held = (option->activeSubControls & QStyle::SC_ScrollBarSlider)
            && (option->state & QStyle::State_Sunken);
        drawBox(painter, part(QStyle::SC_ScrollBarSlider).adjusted(2, 2, -2, -2),
                held ? kButtonDown : kButton, kLine);
    }
    const qreal along = option->orientation == Qt::Horizontal ? 90 : 0;
    const QColor ink = enabled ? kInk : kLine;
    drawArrow(painter, part(QStyle::SC_ScrollBarAddLine), ink, -along);
    drawArrow(painter, part(QStyle::SC_ScrollBarSubLine), ink, 180 - along);
}

void drawCheck(const QStyleOption *option, QPainter *painter, bool round)
{
    const bool enabled = option->state & QStyle::State_Enabled;
    const bool on = option->state & QStyle::State_On;
    const QRectF box = QRectF(option->rect).adjusted(1, 1, -1, -1);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(enabled ? (on ? kAccent : kLine.darker(120)) : kLineDisabled, 1.5));
    painter->setBrush(enabled ? QColor(Qt::white) : kFieldDisabled);
    const QColor mark = enabled ? kAccent : kLine;
    if (round) {
        painter->drawEllipse(box);
        if (on) {
            painter->setPen(Qt::NoPen);
            painter->setBrush(mark);
            painter->drawEllipse(box.adjusted(6, 6, -6, -6));
        }
    } else {
        painter->drawRoundedRect(box, 3, 3);
        painter->setPen(QPen(mark, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        if (on) {
            QPainterPath tick(box.topLeft() + QPointF(box.width() * 0.22, box.height() * 0.52));
            tick.lineTo(box.topLeft() + QPointF(box.width() * 0.43, box.height() * 0.74));
            tick.lineTo(box.topLeft() + QPointF(box.width() * 0.80, box.height() * 0.28));
            painter->strokePath(tick, painter->pen());
        } else if (option->state & QStyle::State_NoChange) {
            painter->drawLine(QPointF(box.left() + 6, box.center().y()),
                              QPointF(box.right() - 6, box.center().y()));
        }
    }
    painter->restore();
}

} // namespace

PendantStyle::PendantStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) { }

QPalette PendantStyle::palette()
{
    QPalette palette;
    const QColor ink(0x20, 0x28, 0x30);
    palette.setColor(QPalette::Window, QColor(0xe6, 0xe8, 0xea));
    palette.setColor(QPalette::WindowText, ink);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(0xf4, 0xf5, 0xf6));
    palette.setColor(QPalette::Text, ink);
    palette.setColor(QPalette::Button, kButton);
    palette.setColor(QPalette::ButtonText, ink);
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, QColor(0xfb, 0xfb, 0xfa));
    palette.setColor(QPalette::ToolTipText, ink);
    palette.setColor(QPalette::PlaceholderText, QColor(0x78, 0x80, 0x88));
    palette.setColor(QPalette::Light, QColor(0xfa, 0xfa, 0xfa));
    palette.setColor(QPalette::Midlight, QColor(0xee, 0xef, 0xf0));
    palette.setColor(QPalette::Mid, QColor(0xb4, 0xb9, 0xbe));
    palette.setColor(QPalette::Dark, kLine);
    palette.setColor(QPalette::Shadow, QColor(0x5c, 0x64, 0x6c));
    palette.setColor(QPalette::Highlight, kAccent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, kAccent);
    const QColor faint(0x84, 0x8b, 0x92);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, faint);
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, faint);
    // A value that cannot be edited is still there to be read.
    palette.setColor(QPalette::Disabled, QPalette::Text, QColor(0x4c, 0x54, 0x5c));
    palette.setColor(QPalette::Disabled, QPalette::Base, kFieldDisabled);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0x9f, 0xb4, 0xc4));
    return palette;
}

void PendantStyle::apply(QApplication &application)
{
    application.setStyle(new PendantStyle);
    application.setPalette(palette());
    application.setFont(SetFontSize::setSize(13));
}

void PendantStyle::polish(QWidget *widget)
{
    QProxyStyle::polish(widget);
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    if (qobject_cast<QComboBox *>(widget))
        widget->installEventFilter(this);
#endif
}

bool PendantStyle::eventFilter(QObject *watched, QEvent *event)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    // The list of a combo box asks the style for the height of its rows only through a styled
    // delegate. It is made just before the list opens: made at once it would cost more than the
    // combo box itself.
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::KeyPress) {
        auto *combo = qobject_cast<QComboBox *>(watched);
        if (combo && combo->itemDelegate()->inherits("QComboBoxDelegate"))
            combo->setItemDelegate(new QStyledItemDelegate(combo));
    }
#endif
    return QProxyStyle::eventFilter(watched, event);
}

int PendantStyle::pixelMetric(PixelMetric metric, const QStyleOption *option,
                              const QWidget *widget) const
{
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return 26;
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
        return 10;
    case PM_ScrollBarExtent:
        return 26;
    case PM_HeaderDefaultSectionSizeVertical:
        return kTarget;
    case PM_ScrollBarSliderMin:
        return 44;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
        return 0;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int PendantStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                            QStyleHintReturn *data) const
{
    switch (hint) {
    case SH_ComboBox_Popup: // a plain list, with rows of our own height
    case SH_EtchDisabledText:
    case SH_DialogButtonBox_ButtonsHaveIcons:
        return 0;
    default:
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

QSize PendantStyle::sizeFromContents(ContentsType type, const QStyleOption *option,
                                     const QSize &size, const QWidget *widget) const
{
    QSize result = QProxyStyle::sizeFromContents(type, option, size, widget);
    switch (type) {
    case CT_PushButton:
        result = result.expandedTo(QSize(80, kTarget));
        break;
    case CT_ToolButton:
    case CT_CheckBox:
    case CT_RadioButton:
    case CT_LineEdit:
    case CT_SpinBox:
    case CT_TabBarTab:
    case CT_MenuItem:
    case CT_MenuBarItem:
        result.setHeight(qMax(result.height(), kTarget));
        break;
    case CT_ComboBox:
        result.setWidth(result.width() + kArrow - 20);
        result.setHeight(qMax(result.height(), kTarget));
        break;
    case CT_ItemViewItem:
        // The rows of lists; tables have the row heights of their page.
        if (qobject_cast<const QListView *>(widget))
            result.setHeight(qMax(result.height(), kTarget + 4));
        break;
    default:
        break;
    }
    return result;
}

QRect PendantStyle::subControlRect(ComplexControl control, const QStyleOptionComplex *option,
                                   SubControl subControl, const QWidget *widget) const
{
    if (control == CC_ComboBox && option) {
        const int arrow = qMin(kArrow, option->rect.width() / 3);
        const QRect rect = option->rect;
        if (subControl == SC_ComboBoxArrow)
            return visualRect(option->direction, rect,
                              QRect(rect.right() - arrow + 1, rect.top(), arrow, rect.height()));
        if (subControl == SC_ComboBoxEditField)
            return visualRect(option->direction, rect, rect.adjusted(8, 2, -arrow, -2));
    }
    return QProxyStyle::subControlRect(control, option, subControl, widget);
}

QRect PendantStyle::subElementRect(SubElement element, const QStyleOption *option,
                                   const QWidget *widget) const
{
    QRect rect = QProxyStyle::subElementRect(element, option, widget);
    if (element == SE_LineEditContents) {
        // A field keeps its text clear of the rounded outline; an editor in a table cell has none.
        const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option);
        if (frame && frame->lineWidth > 0 && rect.width() > 40)
            rect.adjust(4, 0, -4, 0);
    }
    return rect;
}

void PendantStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                                 QPainter *painter, const QWidget *widget) const
{
    switch (element) {
    case PE_PanelButtonCommand:
        drawButton(option, painter);
        return;
    case PE_PanelLineEdit:
        if (const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option);
            frame && frame->lineWidth > 0) {
            drawField(option, painter);
            return;
        }
        break;
    case PE_IndicatorCheckBox:
        drawCheck(option, painter, false);
        return;
    case PE_IndicatorRadioButton:
        drawCheck(option, painter, true);
        return;
    case PE_FrameFocusRect:
        // Focus shows in the outline of the button or field itself.
        return;
    default:
        break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void PendantStyle::drawControl(ControlElement element, const QStyleOption *option,
                               QPainter *painter, const QWidget *widget) const
{
    if (element == CE_HeaderSection || element == CE_HeaderEmptyArea) {
        painter->fillRect(option->rect, QColor(0xdc, 0xdf, 0xe2));
        painter->setPen(kLineDisabled);
        painter->drawLine(option->rect.bottomLeft(), option->rect.bottomRight());
        painter->drawLine(option->rect.topRight(), option->rect.bottomRight());
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void PendantStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                      QPainter *painter, const QWidget *widget) const
{
    const auto *slider = qstyleoption_cast<const QStyleOptionSlider *>(option);
    if (control == CC_ScrollBar && slider) {
        drawScrollBar(proxy(), slider, painter, widget);
        return;
    }
    const auto *combo = qstyleoption_cast<const QStyleOptionComboBox *>(option);
    if (control != CC_ComboBox || !combo) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    if (combo->editable)
        drawField(option, painter);
    else
        drawButton(option, painter);
    const QRect arrow = proxy()->subControlRect(CC_ComboBox, combo, SC_ComboBoxArrow, widget);
    drawArrow(painter, arrow, option->state & State_Enabled ? kInk : kLine);
}
