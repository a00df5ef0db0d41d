#include "shell/technologywidget.h"

#include <QRegExp>

bool TechnologyWidget::isStrMatchReg(QString text, QString pattern)
{
    return QRegExp(pattern, Qt::CaseSensitive).exactMatch(text);
}

bool TechnologyWidget::isValidSizeParam(QString text)
{
    return isStrMatchReg(text, QStringLiteral("^[1-9]\\d{0,}(\\.\\d+)?$|[0](\\.\\d+)?$|[0]"));
}

bool TechnologyWidget::isPalletpara(QString text)
{
    return isStrMatchReg(text, QStringLiteral("^[1-9]\\d{0,}(\\.\\d+)?$|[0](\\.\\d+)?$|[0]"));
}

bool TechnologyWidget::isPalletpara1(QString text)
{
    return isStrMatchReg(text, QStringLiteral("^[1-9]\\d{0,}(\\.\\d+)?$"));
}

bool TechnologyWidget::isPalletpara2(QString text)
{
    return isStrMatchReg(text, QStringLiteral("^(\\-|\\+)?\\d+(\\.\\d+)?$"));
}

bool TechnologyWidget::isPalletpara3(QString text)
{
    return isStrMatchReg(text, QStringLiteral("^[1-9]\\d{0,2}$"));
}

bool TechnologyWidget::isPalletpara4(QString text)
{
    return isStrMatchReg(text, QStringLiteral("^[1-9]\\d{0,3}$"));
}

bool TechnologyWidget::isValidint(QString text)
{
    return isStrMatchReg(text, QStringLiteral("^([0-9]\\d*)|0$"));
}

bool TechnologyWidget::isValiddouble(QString text)
{
    return isStrMatchReg(text, QStringLiteral("^\\d+(\\.\\d{1,3})?$"));
}

bool TechnologyWidget::isValidLocation(QString text)
{
    return isStrMatchReg(text, QStringLiteral("^[-]\\d+(\\.\\d{1,3})?|\\d+(\\.\\d{1,3})?$"));
}

bool TechnologyWidget::isValidper(QString text)
{
    return isStrMatchReg(text, QStringLiteral("^([1-9]|[1-9]\\d|100|0)$"));
}

bool TechnologyWidget::isFlowOutEdtValiid(QString text)
{
    return isStrMatchReg(text, QStringLiteral("^[0-9]|10$"));
}

bool TechnologyWidget::isValidpointtime(QString text)
{
    return isStrMatchReg(text, QStringLiteral("0(\\.[0-9]{0,2})|1"));
}

bool TechnologyWidget::isValidx(QString text)
{
    return isStrMatchReg(text, QStringLiteral("^(?!0(\\.0{1,2})?$)(\\d(\\.\\d{1,2})?|10)$"));
}
