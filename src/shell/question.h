#pragma once

#include "promptwidget.h"

#include <QVector>

/// A question that the operator must answer before the page goes on: a clean, a copy, a delete, a
/// change of mode. The answer arrives as a signal of PromptWidget.
struct Question {
    enum class Guard {
        SafetySwitch, ///< the enabling switch is taken back, so that the robot stands still
        Cover ///< everything but the question is covered
    };

    PromptWidget::WIDGETNAME prompt;
    int action; ///< App::currentAction_ while the question is open
    Guard guard;
    QVector<QWidget *> locked; ///< what of the page must not be pressed under the question
};

/// Puts the question up; `text` names what it is about.
void ask(const Question &question, const QString &text);

/// What both answers begin with: the prompt closes, the cover goes, the page is usable again. What
/// becomes of App::currentAction_ is up to the answer.
void endQuestion(const Question &question);
