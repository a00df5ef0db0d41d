#include "warningmark.h"

#include <QLabel>

void setUpWarningMark(QLabel *label)
{
    QPalette warning = label->palette();
    warning.setColor(QPalette::Window, QColor(0xc6, 0x28, 0x28));
    warning.setColor(QPalette::WindowText, Qt::white);
    label->setPalette(warning);
    label->setAutoFillBackground(true);
    label->setAlignment(Qt::AlignCenter);
    label->setMargin(3);
    QFont small = label->font();
    small.setPointSize(10);
    label->setFont(small);
}
