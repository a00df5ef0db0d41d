#include "setingwidget.h"

#include "robot.h"

#include <QComboBox>
#include <QSignalBlocker>

namespace {

constexpr int kUsualPorts = 16;

QStringList usualPorts(const QString &prefix)
{
    QStringList names;
    for (int port = 1; port <= kUsualPorts; ++port)
        names += prefix + QString::number(port);
    return names;
}

void refill(const QVector<QComboBox *> &boxes, const QString &none, const QStringList &ports)
{
    for (QComboBox *box : boxes) {
        if (!box)
            continue;
        const QSignalBlocker quiet(box);
        const int row = box->currentIndex();
        box->clear();
        box->addItem(none);
        box->addItems(ports);
        box->setCurrentIndex(row >= 0 && row < box->count() ? row : 0);
    }
}

} // namespace

SetingWidget::SetingWidget(QObject *parent)
    : QObject(parent), m_digitalOut(usualPorts(QStringLiteral("DOUT"))),
      m_digitalIn(usualPorts(QStringLiteral("DIN"))), m_analogOut(usualPorts(QStringLiteral("AO")))
{
    connect(Robot::getInstance(), &Robot::portsReported, this, &SetingWidget::setPorts);
}

SetingWidget *SetingWidget::getInstance()
{
    static SetingWidget *const instance = new SetingWidget;
    return instance;
}

void SetingWidget::initIoDoutPortList(const QVector<QComboBox *> &boxes, const QString &none)
{
    refill(boxes, none, m_digitalOut);
}

void SetingWidget::initIoDinPortList(const QVector<QComboBox *> &boxes, const QString &none)
{
    refill(boxes, none, m_digitalIn);
}

void SetingWidget::initIoAOPortList(const QVector<QComboBox *> &boxes, const QString &none)
{
    refill(boxes, none, m_analogOut);
}

void SetingWidget::setPorts(const QStringList &digitalOut, const QStringList &digitalIn,
                            const QStringList &analogOut)
{
    m_digitalOut = digitalOut;
    m_digitalIn = digitalIn;
    m_analogOut = analogOut;
}
