#include "snackbarpanel.h"

#include "displaysize.h"
#include "entrypanel.h"
#include "inputgate.h"
#include "promptwidget.h"
#include "setfontsize.h"
#include "snackbarmessage.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPointer>
#include <QTextLayout>
#include <QtMath>
#include <algorithm>

namespace {

constexpr int kMargin = 4;
constexpr int kWord = 38; ///< where the word of a kind begins, behind its symbol
constexpr int kNarrowestWord = 48;
constexpr int kMinHeight = 46;
constexpr int kReplacedTime = 3000; ///< ms for an endless message whose successor waits

struct Look {
    QColor colour;
    QString word;
};

Look lookOf(int kind)
{
    switch (kind) {
    case 2:
        return {QColor(0x35, 0x66, 0x5f), SnackbarPanel::tr("提示")};
    case 3:
        return {QColor(0x8f, 0x5a, 0x00), SnackbarPanel::tr("警告")};
    case 4:
        return {QColor(0x8c, 0x36, 0x2c), SnackbarPanel::tr("注意")};
    default:
        return {QColor(0x3b, 0x55, 0x70), SnackbarPanel::tr("消息")};
    }
}

QFont wordFont(QFont font)
{
    font.setPointSize(12);
    return font;
}

/// Width of the block with symbol and word: one for all kinds, so that the texts of messages that
/// stand above one another begin below one another.
int badgeWidth(const QFont &font)
{
    const QFontMetrics metrics(wordFont(font));
    int widest = kNarrowestWord;
    for (int kind = 1; kind <= 4; ++kind)
        widest = qMax(widest, metrics.horizontalAdvance(lookOf(kind).word) + 6);
    return kWord + widest + 2;
}

/// Circle, square, triangle and diamond: each kind can be told without its colour.
QPainterPath symbolOf(int kind, const QRectF &box)
{
    QPainterPath path;
    switch (kind) {
    case 2:
        path.addRoundedRect(box.adjusted(1, 1, -1, -1), 3, 3);
        break;
    case 3:
        path.moveTo(box.center().x(), box.top());
        path.lineTo(box.bottomRight());
        path.lineTo(box.bottomLeft());
        path.closeSubpath();
        break;
    case 4:
        path.moveTo(box.center().x(), box.top() - 1);
        path.lineTo(box.right() + 1, box.center().y());
        path.lineTo(box.center().x(), box.bottom() + 1);
        path.lineTo(box.left() - 1, box.center().y());
        path.closeSubpath();
        break;
    default:
        path.addEllipse(box);
        break;
    }
    return path;
}

/// Lays the text into lines of `width` pixels, broken at words and, in a word that is too long,
/// anywhere. Returns the height.
qreal breakLines(QTextLayout &layout, int width)
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    qreal height = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, height));
        height += line.height();
    }
    layout.endLayout();
    return height;
}

/// An upright bar and a dot: the dot above for information, below for a warning.
void drawMark(QPainter &painter, const QRectF &box, bool warns)
{
    const qreal x = box.center().x();
    const qreal y = box.center().y();
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawEllipse(QPointF(x, warns ? y + 4.5 : y - 4.5), 1.5, 1.5);
    painter.drawRoundedRect(QRectF(x - 1.25, warns ? y - 6 : y - 1.5, 2.5, 7.5), 1.2, 1.2);
}

/// The messages of the pendant's screen stand at its foot: beside the keys, and over the status bar
/// rather than over the buttons that most pages have at their lower edge.
QRect footOf(const QWidget *host)
{
    if (host->size() != QSize(DisplaySize::width, DisplaySize::height))
        return host->rect();
    return {DisplaySize::widgetX, DisplaySize::widgetY, DisplaySize::contentWidth,
            DisplaySize::height - DisplaySize::widgetY};
}

QPointer<SnackbarStack> currentStack;

} // namespace

SnackbarPanel::SnackbarPanel(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("snackbar"));
    setFocusPolicy(Qt::NoFocus);
    setFont(SetFontSize::setSize(14));
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &SnackbarPanel::done);
    InputGate::getInstance()->addCompanion(this);
}

void SnackbarPanel::start(const QString &text, int duration, int kind)
{
    m_text = text;
    m_kind = kind;
    m_endless = duration < 0;
    setAccessibleName(lookOf(kind).word + QLatin1Char(' ') + text);
    if (m_endless)
        m_timer.stop();
    else
        m_timer.start(qMax(1, duration));
    update();
}

QRect SnackbarPanel::textRect(int width) const
{
    const int badge = badgeWidth(font());
    return {badge + 12, 0, width - badge - 24, 0};
}

int SnackbarPanel::heightAt(int width) const
{
    QTextLayout layout(m_text, font());
    return qMax(kMinHeight, qCeil(breakLines(layout, textRect(width).width())) + 16);
}

void SnackbarPanel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const Look look = lookOf(m_kind);
    const QRectF frame = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);

    QPainterPath outline;
    outline.addRoundedRect(frame, 6, 6);
    painter.fillPath(outline, QColor(0xfb, 0xfb, 0xfa));
    painter.save();
    painter.setClipPath(outline);
    const int badge = badgeWidth(font());
    painter.fillRect(QRectF(0, 0, badge, height()), look.colour);
    painter.restore();
    painter.strokePath(outline, QPen(look.colour, 1));

    const QRectF box(12, height() / 2.0 - 10, 20, 20);
    painter.setBrush(Qt::NoBrush);
    painter.strokePath(symbolOf(m_kind, box), QPen(Qt::white, 1.6));
    const bool warns = m_kind == 3 || m_kind == 4;
    drawMark(painter, m_kind == 3 ? box.translated(0, 2.5) : box, warns);
    painter.setPen(Qt::white);
    painter.setFont(wordFont(font()));
    painter.drawText(QRect(kWord, 0, badge - kWord - 2, height()), Qt::AlignCenter, look.word);

    painter.setPen(QColor(0x20, 0x24, 0x28));
    const QRect text = textRect(width());
    QTextLayout layout(m_text, font());
    const qreal used = breakLines(layout, text.width());
    layout.draw(&painter, QPointF(text.left(), (height() - used) / 2));
}

void SnackbarPanel::mousePressEvent(QMouseEvent *event)
{
    event->accept();
}

void SnackbarPanel::mouseReleaseEvent(QMouseEvent *event)
{
    event->accept();
    if (rect().contains(event->pos()))
        emit done();
}

SnackbarStack::SnackbarStack(QWidget *host) : QObject(host), m_host(host)
{
    host->installEventFilter(this);
}

SnackbarStack *SnackbarStack::of(QWidget *host)
{
    if (currentStack && currentStack->m_host == host)
        return currentStack;
    if (currentStack) {
        currentStack->dismissAll();
        currentStack->deleteLater();
    }
    currentStack = new SnackbarStack(host);
    return currentStack;
}

SnackbarStack *SnackbarStack::current()
{
    return currentStack;
}

void SnackbarStack::add(const Message &message)
{
    // What stays without an end gives way to the next message.
    const QList<SnackbarPanel *> shown = m_panels;
    SnackbarPanel *same = nullptr;
    for (SnackbarPanel *panel : shown) {
        if (panel->text() == message.text)
            same = panel;
        else if (panel->isEndless() && !panel->isStanding())
            remove(panel);
    }
    if (same && same->isStanding() && !message.standing)
        return; // it is said already, for longer
    if (same) {
        same->setStanding(message.standing);
        same->start(message.text, message.duration, message.kind);
        fillUp();
        return;
    }
    if (message.standing) { // it takes nobody's place, so it does not wait for one
        show(message);
        place();
        return;
    }
    for (Message &waiting : m_waiting) {
        if (waiting.text == message.text) {
            waiting = message;
            return;
        }
    }
    m_waiting.append(message);
    fillUp();
    while (m_waiting.size() > SnackbarMessage::kWaiting)
        m_waiting.removeFirst();
}

/// Messages that make room by themselves; standing ones take nobody's place.
int SnackbarStack::transientPanels() const
{
    return static_cast<int>(
        std::count_if(m_panels.begin(), m_panels.end(),
                      [](const SnackbarPanel *panel) { return !panel->isStanding(); }));
}

void SnackbarStack::fillUp()
{
    while (transientPanels() < SnackbarMessage::kShown && !m_waiting.isEmpty()) {
        // One that would stay without an end has its successor waiting already: it gets its time.
        Message next = m_waiting.takeFirst();
        if (next.duration < 0 && !m_waiting.isEmpty())
            next.duration = kReplacedTime;
        show(next);
    }
    place();
}

void SnackbarStack::show(const Message &message)
{
    auto *panel = new SnackbarPanel(m_host);
    panel->setStanding(message.standing);
    panel->start(message.text, message.duration, message.kind);
    connect(panel, &SnackbarPanel::done, this, [this, panel] {
        remove(panel);
        fillUp();
    });
    m_panels.append(panel);
}

void SnackbarStack::remove(SnackbarPanel *panel)
{
    if (!m_panels.removeOne(panel))
        return;
    panel->hide();
    panel->deleteLater();
}

void SnackbarStack::dismissAll()
{
    m_waiting.clear();
    const QList<SnackbarPanel *> shown = m_panels;
    for (SnackbarPanel *panel : shown)
        remove(panel);
}

void SnackbarStack::place()
{
    const QRect area = footOf(m_host);
    const int width = area.width() - 2 * kMargin;
    int bottom = area.bottom() + 1 - kMargin;
    for (auto it = m_panels.crbegin(); it != m_panels.crend(); ++it) {
        SnackbarPanel *panel = *it;
        const int height = panel->heightAt(width);
        panel->setGeometry(area.left() + kMargin, bottom - height, width, height);
        panel->show();
        panel->raise();
        bottom -= height + 4;
    }
    // A question and an open keypad stay above the messages: their buttons must be in reach.
    const auto raiseChild = [](QWidget *child) {
        if (child)
            child->raise();
    };
    raiseChild(m_host->findChild<PromptWidget *>(QString(), Qt::FindDirectChildrenOnly));
    raiseChild(m_host->findChild<EntryPanel *>(QString(), Qt::FindDirectChildrenOnly));
}

QStringList SnackbarStack::shownTexts() const
{
    QStringList texts;
    for (const SnackbarPanel *panel : m_panels)
        texts.append(panel->text());
    return texts;
}

QStringList SnackbarStack::waitingTexts() const
{
    QStringList texts;
    for (const Message &message : m_waiting)
        texts.append(message.text);
    return texts;
}

bool SnackbarStack::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_host && event->type() == QEvent::Resize)
        place();
    return false;
}
