#include "shell/fields.h"

#include "link/reply.h"
#include "shell/technologywidget.h"
#include "snackbarmessage.h"

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

void fill(const Field &field, const Ui_TechnologyWidget *ui, const Reply &reply)
{
    if (const std::optional<double> value = reply.numberAt(field.path.data(), length(field)))
        setText(ui->*field.edit, shown(*value));
}

bool isAccepted(const Field &field, const Ui_TechnologyWidget *ui)
{
    const QString text = (ui->*field.edit)->text();
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
    const QString text = (ui->*field.edit)->text();
    if (field.sent == Field::Sent::Integer)
        *value = text.toInt();
    else
        *value = text.toDouble();
}

void refuse(const QString &message)
{
    SnackbarMessage::showMessage(message, 3000, 4, true);
}

} // namespace fields
