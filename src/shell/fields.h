#pragma once

#include "shell/technologyform.h"

#include <QVector>
#include <array>
#include <json/json.h>

class Reply;

/// A value of a page, described once: where it stands on the form, where in the messages, how it is
/// sent, and what is said when its text is refused.
struct Field {
    enum class Sent {
        Real, ///< any finite decimal
        Integer ///< base 10, within int
    };

    DigitalLineEdit *Ui_TechnologyWidget::*edit;
    std::array<const char *, 3> path; ///< keys from the package object down; unused ones are null
    Sent sent;
    const char *refusal; ///< shown when the text is no such number; source text
};

/// What the tables of the pages have in common: filling, checking, collecting, switching.
namespace fields {

/// The text of a number on the form: general notation, six significant digits.
QString shown(double value);

/// Sets a text where it differs, so that the cursor of an unchanged field stays where it is.
void setText(QLineEdit *edit, const QString &text);

/// Sets the text of the field if the reply holds its value; else it stays as it is.
void fill(const Field &field, const Ui_TechnologyWidget *ui, const Reply &reply);

/// Whether the text of the field is a number of the kind that it is sent as.
bool isAccepted(const Field &field, const Ui_TechnologyWidget *ui);

/// Sets the value of the field at its path in `body`. Its text has been accepted before.
void collect(const Field &field, const Ui_TechnologyWidget *ui, Json::Value &body);

/// Shows that a value is refused: 3000 ms, kind 4.
void refuse(const QString &message);

/// The fields of a table as widgets, for the edit toggle.
template <typename Table>
QVector<QWidget *> widgets(const Table &table, const Ui_TechnologyWidget *ui)
{
    QVector<QWidget *> list;
    for (const Field &field : table)
        list.append(ui->*field.edit);
    return list;
}

} // namespace fields
