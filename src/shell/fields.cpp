#include "shell/fields.h"

#include "link/reply.h"
#include "shell/technologywidget.h"
#include "snackbarmessage.h"
#include "switchbutton.h"

#include <algorithm>
#include <cmath>

namespace fields {

namespace {

std::size_t length(const Field &field)
{
    std::size_t keys = 0;
    while (keys < field.path.size() && field.path[keys])
        ++keys;
    return keys;
}

DigitalLineEdit *edit(const Field &field, const Ui_TechnologyWidget *ui)
{
    return ui->*std::get<DigitalLineEdit * Ui_TechnologyWidget::*>(field.widget);
}

bool isComboBox(const Field &field)
{
    return std::holds_alternative<QComboBox * Ui_TechnologyWidget::*>(field.widget);
}

QComboBox *comboBox(const Field &field, const Ui_TechnologyWidget *ui)
{
    return ui->*std::get<QComboBox * Ui_TechnologyWidget::*>(field.widget);
}

SwitchButton *switchButton(const Field &field, const Ui_TechnologyWidget *ui)
{
    return ui->*std::get<SwitchButton * Ui_TechnologyWidget::*>(field.widget);
}

/// A combo box that is sent as a real goes by its text.
QString textOf(const Field &field, const Ui_TechnologyWidget *ui)
{
    if (isComboBox(field))
        return comboBox(field, ui)->currentText();
    return edit(field, ui)->text();
}

} // namespace

QString shown(double value)
{
    return QString::number(value, 'g', 6);
}

void setText(QLineEdit *edit, const QString &text)
{
    if (edit->text() != text)
        edit->setText(text);
}

void selectNumber(QComboBox *box, int number)
{
    if (number <= box->count())
        box->setCurrentIndex(std::max(number, 0) - 1);
}

void fill(const Field &field, const Ui_TechnologyWidget *ui, const Reply &reply)
{
    const std::size_t keys = length(field);
    // what is sent as the text of a combo box comes back as the number of its row
    const Field::Sent kind =
        field.sent == Field::Sent::Real && isComboBox(field) ? Field::Sent::Number : field.sent;
    switch (kind) {
    case Field::Sent::Real:
    case Field::Sent::Integer:
        if (const auto value = reply.numberAt(field.path.data(), keys))
            setText(edit(field, ui), shown(*value));
        break;
    case Field::Sent::Row: {
        QComboBox *box = comboBox(field, ui);
        const auto value = reply.integerAt(field.path.data(), keys);
        if (value && *value < box->count())
            box->setCurrentIndex(std::max(*value, -1));
        break;
    }
    case Field::Sent::Number:
        if (const auto value = reply.integerAt(field.path.data(), keys))
            selectNumber(comboBox(field, ui), *value);
        break;
    case Field::Sent::Switch:
        if (const auto on = reply.truthAt(field.path.data(), keys))
            switchButton(field, ui)->setCheck(*on);
        break;
    }
}

bool isAccepted(const Field &field, const Ui_TechnologyWidget *ui)
{
    const QString text = edit(field, ui)->text();
    bool ok = false;
    if (field.sent == Field::Sent::Integer) {
        text.toInt(&ok);
        return ok;
    }
    // "inf" and "nan" convert as well; the controller has no number for them
    return std::isfinite(text.toDouble(&ok)) && ok;
}

void collect(const Field &field, const Ui_TechnologyWidget *ui, Json::Value &body)
{
    Json::Value *value = &body;
    for (std::size_t i = 0; i < length(field); ++i)
        value = &(*value)[field.path[i]];
    switch (field.sent) {
    case Field::Sent::Real:
        *value = textOf(field, ui).toDouble();
        break;
    case Field::Sent::Integer:
        *value = textOf(field, ui).toInt();
        break;
    case Field::Sent::Row:
        *value = comboBox(field, ui)->currentIndex();
        break;
    case Field::Sent::Number:
        *value = comboBox(field, ui)->currentIndex() + 1;
        break;
    case Field::Sent::Switch:
        *value = switchButton(field, ui)->isCheck();
        break;
    }
}

QWidget *widget(const Field &field, const Ui_TechnologyWidget *ui)
{
    return std::visit([ui](auto member) -> QWidget * { return ui->*member; }, field.widget);
}

bool passes(const Check &check, TechnologyWidget *page, const Ui_TechnologyWidget *ui)
{
    const QString text = (ui->*check.edit)->text();
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    // one with too many digits is a number all the same, and beyond every range
    if (!isNumber && !std::isinf(value))
        return false;
    if (check.pattern)
        return (page->*check.pattern)(text);
    return value >= check.low && value <= check.high;
}

void showRefusal(const Check &check)
{
    SnackbarMessage::showMessage(TechnologyWidget::tr(check.message), check.duration, check.kind,
                                 true);
}

void refuse(const QString &message)
{
    SnackbarMessage::showMessage(message, 3000, 4, true);
}

} // namespace fields
