#pragma once

#include "shell/technologyform.h"

#include <QVector>
#include <array>
#include <json/json.h>
#include <variant>

class Reply;
class SwitchButton;
class TechnologyWidget;

/// A value of a page, described once: where it stands on the form, where in the messages, and how
/// it is sent.
struct Field {
    using Form = Ui_TechnologyWidget;

    enum class Sent {
        Real, ///< any finite decimal of a line edit; of a combo box the text, filled as Number
        Integer, ///< a line edit: base 10, within int
        Row, ///< a combo box: its row; a reply's row at or above the count is left alone
        Number, ///< a combo box: its row plus 1, an integer; above the count it is left alone
        Switch ///< a switch: true or false
    };

    std::variant<DigitalLineEdit * Form::*, QComboBox * Form::*, SwitchButton * Form::*> widget;
    std::array<const char *, 3> path; ///< keys from the package object down; unused ones are null
    Sent sent;
};

/// One test of a save. The tests of a page stand in a table, in their order; the first that fails
/// shows its message and ends the save.
struct Check {
    using Form = Ui_TechnologyWidget;
    using Pattern = bool (TechnologyWidget::*)(QString);

    DigitalLineEdit *Form::*edit;
    Pattern pattern; ///< what the text must match; null: the value must lie within low and high
    double low;
    double high;
    const char *message; ///< source text
    int duration = 3000; ///< milliseconds
    int kind = 4;
};

/// What the tables of the pages have in common: filling, checking, collecting, switching.
namespace fields {

/// The text of a number on the form: general notation, six significant digits.
QString shown(double value);

/// Sets a text where it differs, so that the cursor of an unchanged field stays where it is.
void setText(QLineEdit *edit, const QString &text);

/// Selects the row of a number that counts from 1. Above the number of rows it is left alone; 0 and
/// below leave no row selected.
void selectNumber(QComboBox *box, int number);

/// Shows the value of the field if the reply holds it; else it stays as it is.
void fill(const Field &field, const Ui_TechnologyWidget *ui, const Reply &reply);

/// Whether the text of a line edit is a number of the kind that it is sent as.
bool isAccepted(const Field &field, const Ui_TechnologyWidget *ui);

/// Sets the value of the field at its path in `body`. Its text has been accepted before.
void collect(const Field &field, const Ui_TechnologyWidget *ui, Json::Value &body);

QWidget *widget(const Field &field, const Ui_TechnologyWidget *ui);

/// Whether the field's text passes the test, which nothing does that is no number: the patterns
/// take the digits of other scripts as well, and those would be sent as 0.
bool passes(const Check &check, TechnologyWidget *page, const Ui_TechnologyWidget *ui);

/// Shows that a value is refused: 3000 ms, kind 4.
void refuse(const QString &message);

/// The fields of a table as widgets, for the edit toggle.
template <typename Table>
QVector<QWidget *> widgets(const Table &table, const Ui_TechnologyWidget *ui)
{
    QVector<QWidget *> list;
    for (const Field &field : table)
        list.append(widget(field, ui));
    return list;
}

void showRefusal(const Check &check);

/// Runs the tests in their order; false once one has failed and shown its message.
template <typename Table>
bool acceptAll(const Table &table, TechnologyWidget *page, const Ui_TechnologyWidget *ui)
{
    for (const Check &check : table) {
        if (!passes(check, page, ui)) {
            showRefusal(check);
            return false;
        }
    }
    return true;
}

} // namespace fields
