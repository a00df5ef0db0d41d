#pragma once

#include <QObject>
#include <QStringList>
#include <QVector>

class QComboBox;

/// The settings of the pendant that the process pages use: the IO ports of the controller.
class SetingWidget : public QObject {
    Q_OBJECT
public:
    static SetingWidget *getInstance();

    /// Refill each combo box with `none` as its first row and the ports behind it. The selected row
    /// is kept where it still exists, else it becomes 0; no signal of the combo boxes is emitted.
    void initIoDoutPortList(const QVector<QComboBox *> &boxes, const QString &none);
    void initIoDinPortList(const QVector<QComboBox *> &boxes, const QString &none);
    void initIoAOPortList(const QVector<QComboBox *> &boxes, const QString &none);

    /// What the controller reports; 16 ports of each kind before its first report.
    void setPorts(const QStringList &digitalOut, const QStringList &digitalIn,
                  const QStringList &analogOut);

private:
    explicit SetingWidget(QObject *parent = nullptr);

    QStringList m_digitalOut;
    QStringList m_digitalIn;
    QStringList m_analogOut;
};
