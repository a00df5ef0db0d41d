#include "shell/question.h"

#include "app.h"
#include "cover.h"
#include "robot.h"

namespace {

void enableLocked(const Question &question, bool enabled)
{
    for (QWidget *widget : question.locked)
        widget->setEnabled(enabled);
}

} // namespace

void ask(const Question &question, const QString &text)
{
    if (question.guard == Question::Guard::Cover)
        CoverOtherWidgetButCurDialog();
    else
        Robot::getInstance()->robot_key_slot_saftySwitchProcess(0);
    PromptWidget::getInstance()->repaint_widget(question.prompt, text);
    PromptWidget::getInstance()->set_widget_state(question.prompt);
    enableLocked(question, false);
    App::currentAction_ = question.action;
}

void endQuestion(const Question &question)
{
    PromptWidget::getInstance()->close();
    if (question.guard == Question::Guard::Cover)
        DisCoverOtherWidgetButCurDialog();
    enableLocked(question, true);
}
