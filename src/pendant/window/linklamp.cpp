#include "linklamp.h"

#include "robot.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>

namespace {

const QColor kGood(0x2e, 0x7d, 0x32);
const QColor kWaiting(0xa8, 0x62, 0x00);
const QColor kBad(0xc6, 0x28, 0x28);
const QColor kOff(0x6b, 0x72, 0x80);
const QColor kMark(0xff, 0xe0, 0x82);

constexpr int kLampSize = 16;

void drawLamp(QPainter &painter, const QRectF &area, Robot::Link link)
{
    const QRectF ring = area.adjusted(1.5, 1.5, -1.5, -1.5);
    painter.setBrush(Qt::NoBrush);
    switch (link) {
    case Robot::Link::Connected:
        painter.setPen(Qt::NoPen);
        painter.setBrush(kGood);
        painter.drawEllipse(area);
        return;
    case Robot::Link::Connecting:
        painter.setPen(QPen(kWaiting, 3));
        painter.drawArc(ring, 90 * 16, 180 * 16);
        painter.setPen(QPen(kWaiting, 3, Qt::DotLine));
        painter.drawArc(ring, 270 * 16, 180 * 16);
        return;
    case Robot::Link::Lost:
        painter.setPen(QPen(kBad, 4, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(ring.topLeft(), ring.bottomRight());
        painter.drawLine(ring.topRight(), ring.bottomLeft());
        return;
    case Robot::Link::Off:
        painter.setPen(QPen(kOff, 2));
        painter.drawEllipse(ring);
        return;
    }
}

} // namespace

LinkLamp::LinkLamp(QWidget *parent) : QWidget(parent)
{
    connect(Robot::getInstance(), &Robot::linkChanged, this, &LinkLamp::refresh);
    refresh();
}

QString LinkLamp::text() const
{
    switch (Robot::getInstance()->link()) {
    case Robot::Link::Connected:
        return tr("已连接");
    case Robot::Link::Connecting:
        return tr("连接中");
    case Robot::Link::Lost:
        return tr("已断开");
    case Robot::Link::Off:
        break;
    }
    return tr("未连接");
}

QSize LinkLamp::sizeHint() const
{
    return {80, 44};
}

void LinkLamp::refresh()
{
    setAccessibleName(text());
    update();
}

void LinkLamp::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int top = (height() - kLampSize - fontMetrics().height() - 2) / 2;
    drawLamp(painter, QRectF((width() - kLampSize) / 2.0, top, kLampSize, kLampSize),
             Robot::getInstance()->link());
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(QRect(0, top + kLampSize + 2, width(), fontMetrics().height()),
                     Qt::AlignCenter, text());
}

void LinkLamp::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        refresh();
    QWidget::changeEvent(event);
}

SimulatedMark::SimulatedMark(QWidget *parent) : QLabel(parent)
{
    setObjectName(QStringLiteral("simulatedMark"));
    setAlignment(Qt::AlignCenter);
    QFont small = font();
    small.setPointSize(10);
    setFont(small);
    connect(Robot::getInstance(), &Robot::linkChanged, this, &SimulatedMark::refresh);
    connect(Robot::getInstance(), &Robot::statusChanged, this, &SimulatedMark::refresh);
    refresh();
}

void SimulatedMark::setEmbedded(bool embedded)
{
    m_embedded = embedded;
    refresh();
}

void SimulatedMark::refresh()
{
    setText(tr("模拟\n控制器"));
    setVisible(m_embedded || Robot::getInstance()->isSimulated());
}

void SimulatedMark::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        refresh();
    QLabel::changeEvent(event);
}

// Taken, so that the release comes here too.
void SimulatedMark::mousePressEvent(QMouseEvent *event)
{
    event->accept();
}

void SimulatedMark::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->pos()))
        emit clicked();
}

void SimulatedMark::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), kMark);
    painter.setPen(QPen(Qt::black, 2, Qt::DashLine));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
    painter.setPen(Qt::black);
    painter.drawText(rect(), Qt::AlignCenter, text());
}
