// Questions: what is put up, in which order, and what both answers end in.

#include "app.h"
#include "eventlog.h"
#include "robot.h"
#include "shell/question.h"
#include "wire/ids.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

class TestQuestion : public QObject {
    Q_OBJECT

    QWidget m_page;
    QPushButton *m_first = new QPushButton(&m_page);
    QPushButton *m_second = new QPushButton(&m_page);

    Question question(Question::Guard guard) const
    {
        return {PromptWidget::PROMPT_CLEAN_PALLET, 8, guard, {m_first, m_second}};
    }

    static QStringList kinds(const QSignalSpy &journal)
    {
        QStringList list;
        for (const QList<QVariant> &entry : journal)
            list.append(entry.first().toString());
        return list;
    }

private slots:
    void init()
    {
        m_page.resize(400, 300);
        m_page.show();
        App::currentAction_ = 0;
    }

    void cleanup() { PromptWidget::getInstance()->close(); }

    void releasesTheSafetySwitchAndLocksThePage()
    {
        QSignalSpy journal(EventLog::getInstance(), &EventLog::recorded);
        ask(question(Question::Guard::SafetySwitch), QStringLiteral("工艺号2的参数"));
        QStringList order = kinds(journal);
        order.removeAll(QStringLiteral("key")); // the key to the controller,
        order.removeAll(QStringLiteral("link")); // which is not connected here
        QCOMPARE(order, QStringList({QStringLiteral("safetySwitch"), QStringLiteral("prompt")}));
        QCOMPARE(journal.first().at(1).toList().first().toInt(), 0);
        QCOMPARE(PromptWidget::getInstance()->currentWidget(), PromptWidget::PROMPT_CLEAN_PALLET);
        QCOMPARE(PromptWidget::getInstance()->text(), QStringLiteral("工艺号2的参数"));
        QVERIFY(!m_first->isEnabled() && !m_second->isEnabled());
        QCOMPARE(App::currentAction_, 8);

        endQuestion(question(Question::Guard::SafetySwitch));
        QVERIFY(m_first->isEnabled() && m_second->isEnabled());
        QCOMPARE(PromptWidget::getInstance()->currentWidget(), PromptWidget::PROMPT_NONE);
        QCOMPARE(App::currentAction_, 8); // the answer's own business
    }

    void coversEverythingElse()
    {
        QSignalSpy journal(EventLog::getInstance(), &EventLog::recorded);
        ask(question(Question::Guard::Cover), QStringLiteral("工艺号2"));
        endQuestion(question(Question::Guard::Cover));
        QCOMPARE(kinds(journal),
                 QStringList({QStringLiteral("cover"), QStringLiteral("prompt"),
                              QStringLiteral("promptClosed"), QStringLiteral("uncover")}));
    }

    /// The two buttons of the prompt give the two answers, each once per showing.
    void answersOnce()
    {
        PromptWidget *prompt = PromptWidget::getInstance();
        QSignalSpy yes(prompt, &PromptWidget::cleanPalletParameter);
        QSignalSpy no(prompt, &PromptWidget::cancelCleanPalletParameter);
        ask(question(Question::Guard::SafetySwitch), QStringLiteral("工艺号2的参数"));
        auto *confirm = prompt->findChild<QPushButton *>(QStringLiteral("promptConfirm"));
        QVERIFY(confirm);
        QTest::mouseClick(confirm, Qt::LeftButton);
        QTest::mouseClick(confirm, Qt::LeftButton);
        QCOMPARE(yes.count(), 1);
        QCOMPARE(no.count(), 0);
        endQuestion(question(Question::Guard::SafetySwitch));

        ask(question(Question::Guard::SafetySwitch), QStringLiteral("工艺号2的参数"));
        QTest::mouseClick(prompt->findChild<QPushButton *>(QStringLiteral("promptCancel")),
                          Qt::LeftButton);
        QCOMPARE(yes.count(), 1);
        QCOMPARE(no.count(), 1);
    }
};

QTEST_MAIN(TestQuestion)
#include "test_question.moc"
