#include "shell/buttonstyle.h"

#include <QPushButton>

QString returnButtonSheet()
{
    return QStringLiteral(
        "QPushButton{border-image: url(:/new/btnBackground/Resources/res/ButtonReturnNormal.png);"
        "color:rgb(255,255,255)}"
        "QPushButton:pressed{border-image: "
        "url(:/new/btnBackground/Resources/res/ButtonReturnDown.png);}");
}

QString forbiddenButtonSheet()
{
    return QStringLiteral(
        "QPushButton{border-image: url(:/new/btnBackground/Resources/res/ButtonMenuForbidden.png);"
        "color:rgb(255,255,255)}");
}

void setSheet(QWidget *widget, const QString &sheet)
{
    if (widget->styleSheet() != sheet)
        widget->setStyleSheet(sheet);
}

void setReturnButtonSheet(const QList<QPushButton *> &buttons)
{
    for (QPushButton *button : buttons)
        setSheet(button, returnButtonSheet());
}
