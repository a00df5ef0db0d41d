#pragma once

#include <QAbstractButton>

/// An on/off slider that says its state in words too. A click does not turn it over by itself: it
/// emits pressed(), released() and clicked() as a push button does, and the page that owns it calls
/// setCheck().
class SwitchButton : public QAbstractButton {
    Q_OBJECT
public:
    explicit SwitchButton(QWidget *parent = nullptr);

    void setCheck(bool on);
    bool isCheck() const { return m_check; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    bool m_check = false; ///< the state that the pages read; set it with setCheck()

protected:
    void paintEvent(QPaintEvent *event) override;
};
