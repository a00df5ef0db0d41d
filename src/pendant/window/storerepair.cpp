#include "storerepair.h"

#include "app.h"
#include "eventlog.h"
#include "promptwidget.h"
#include "robot.h"
#include "useraccounts.h"

#include <QPointer>
#include <QTimer>

StoreRepair::StoreRepair(QObject *parent) : QObject(parent)
{
    Robot *robot = Robot::getInstance();
    connect(robot, &Robot::storeDamaged, this, &StoreRepair::take);
    connect(robot, &Robot::storeRestored, this, &StoreRepair::forget);
    connect(robot, &Robot::linkChanged, this, &StoreRepair::forget);
    connect(UserAccounts::getInstance(), &UserAccounts::userChanged, this, [this] {
        m_isDue = m_isDamaged;
        askWhenFree();
    });
    connect(EventLog::getInstance(), &EventLog::recorded, this, [this](const QString &kind) {
        if (kind == QLatin1String("promptClosed"))
            askWhenFree();
    });
}

void StoreRepair::take(const QString &copy)
{
    m_isDue = m_isDue || !m_isDamaged;
    m_isDamaged = true;
    m_copy = copy;
    askWhenFree();
}

void StoreRepair::forget()
{
    m_isDamaged = m_isDue = false;
    PromptWidget *prompt = PromptWidget::getInstance();
    if (prompt->currentWidget() == PromptWidget::PROMPT_RESTORE_STORE
        || prompt->currentWidget() == PromptWidget::PROMPT_EMPTY_STORE)
        prompt->withdraw();
}

/// Once whatever says so now is through: it may be about to put up a question of its own.
void StoreRepair::askWhenFree()
{
    if (m_isDue)
        QTimer::singleShot(0, this, &StoreRepair::ask);
}

void StoreRepair::ask()
{
    PromptWidget *prompt = PromptWidget::getInstance();
    if (!m_isDue || App::locked_ || App::sysUser != AUTHORITY_ADMINISTRATOR
        || !Robot::getInstance()->isSimulated()
        || prompt->currentWidget() != PromptWidget::PROMPT_NONE)
        return;
    Robot::getInstance()->robot_key_slot_saftySwitchProcess(0);
    const bool hasCopy = !m_copy.isEmpty();
    const QPointer<StoreRepair> self(this);
    prompt->ask(hasCopy ? PromptWidget::PROMPT_RESTORE_STORE : PromptWidget::PROMPT_EMPTY_STORE,
                m_copy, [self, hasCopy](bool confirmed) {
                    if (!self)
                        return;
                    self->m_isDue = false; // until then another question may take its place
                    if (confirmed && self->m_isDamaged)
                        Robot::getInstance()->restoreParameters(hasCopy);
                });
}
