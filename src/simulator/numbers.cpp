#include "simulator/numbers.h"

namespace numbers {

std::string text(double number)
{
    QString digits = QString::number(number, 'f', 6);
    while (digits.endsWith(QLatin1Char('0')))
        digits.chop(1);
    if (digits.endsWith(QLatin1Char('.')))
        digits.chop(1);
    return digits == QLatin1String("-0") ? "0" : digits.toStdString();
}

} // namespace numbers
