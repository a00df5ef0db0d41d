#pragma once

#include <QList>
#include <QString>

class QPushButton;
class QWidget;

/// Style sheet of return, page and modify buttons in their normal state.
QString returnButtonSheet();
/// Style sheet of a button that is locked during an edit.
QString forbiddenButtonSheet();

/// Sets a style sheet where it differs: setting the same text again would polish the widget anew.
void setSheet(QWidget *widget, const QString &sheet);
void setReturnButtonSheet(const QList<QPushButton *> &buttons);
