// The wizard's lists of variables, and the board that they are chosen from by touch.

#include "wizardpage.h"

#include "pallet/wizard/variablebox.h"
#include "pendantstyle.h"

#include <QListWidget>
#include <memory>

using support::box;
using support::child;
using support::click;
using support::items;

namespace {

const QStringList kCounts = {QStringLiteral("totalVariable"), QStringLiteral("layerVariable"),
                             QStringLiteral("stackVariable")};

QStringList names(const char *prefix, int count)
{
    QStringList list;
    for (int number = 1; number <= count; ++number)
        list += QString::asprintf("%s%03d", prefix, number);
    return list;
}

} // namespace

class TestWizardLists : public QObject {
    Q_OBJECT
private:
    TechnologyWidget *pages = nullptr;
    std::unique_ptr<support::Wizard> wizard;

    QComboBox *typeOf(const QString &variable) const
    {
        return box(pages, variable + QStringLiteral("type"));
    }
    QComboBox *endVariable() const { return box(pages, QStringLiteral("paloffVariable")); }

    /// The board that a touch on the box opens; null when none comes.
    QWidget *touch(QComboBox *variable) const
    {
        QTest::mousePress(variable, Qt::LeftButton);
        QWidget *board = QApplication::activePopupWidget();
        QTest::mouseRelease(board ? board : variable, Qt::LeftButton, {}, QPoint(1, 1));
        return board && board->objectName() == QLatin1String("variableBoard") ? board : nullptr;
    }

private slots:
    void initTestCase()
    {
        PendantStyle::apply(*qApp);
        pages = TechnologyWidget::getInstance();
        pages->resize(714, 504);
        pages->show();
        QVERIFY(QTest::qWaitForWindowExposed(pages));
        wizard = std::make_unique<support::Wizard>(pages);
    }

    /// The list of end variables grows with each test otherwise.
    void init()
    {
        wizard->reset();
        pages->slotPALLETpaloffVariant(QString());
    }

    void cleanup()
    {
        if (QWidget *board = QApplication::activePopupWidget())
            board->close();
    }

    void cleanupTestCase() { wizard.reset(); }

    // ---- the lists ------------------------------------------------------------------------------

    void choices()
    {
        for (const QString &variable : kCounts)
            QCOMPARE(items(typeOf(variable)), QStringList({"无", "INT", "GINT"}));
        QCOMPARE(items(typeOf(QStringLiteral("paloffVariable"))), QStringList({"BOOL", "GBOOL"}));
        for (const char *leg : {"getProcess", "middleProcess", "palletProcess"})
            QCOMPARE(items(box(pages, QString::fromLatin1(leg))),
                     QStringList({"关节插补", "直线插补"}));
    }

    void freshForm()
    {
        TechnologyWidget fresh(nullptr);
        for (const QString &variable : kCounts + QStringList(QStringLiteral("paloffVariable")))
            QCOMPARE(box(&fresh, variable)->count(), 0);
    }

    void countVariables()
    {
        wizard->goTo(36);
        for (const QString &variable : kCounts) {
            QComboBox *list = box(pages, variable);
            const struct {
                int row;
                QStringList names;
            } steps[] = {{2, names("GI", 990)}, {1, names("I", 100)},  {0, {}},
                         {1, names("I", 100)},  {2, names("GI", 990)}, {0, {}}};
            for (const auto &step : steps) {
                typeOf(variable)->setCurrentIndex(step.row);
                QCOMPARE(items(list), step.names);
                QCOMPARE(list->currentText(), step.names.value(0));
                QCOMPARE(list->isEnabled(), !step.names.isEmpty());
            }
        }
        QCOMPARE(names("GI", 990).last(), QStringLiteral("GI990"));
        QCOMPARE(names("I", 100).first(), QStringLiteral("I001"));
    }

    /// Each type box has its own list.
    void listsAreApart()
    {
        for (const QString &variable : kCounts) {
            typeOf(variable)->setCurrentIndex(2);
            for (const QString &other : kCounts)
                QCOMPARE(box(pages, other)->count(), other == variable ? 990 : 0);
            typeOf(variable)->setCurrentIndex(0);
        }
    }

    void typesByText()
    {
        using Slot = void (TechnologyWidget::*)(const QString &);
        const Slot counts[] = {&TechnologyWidget::slotPALLETtotalGetVariant,
                               &TechnologyWidget::slotPALLETlayerGetVariant,
                               &TechnologyWidget::slotPALLETstackGetVariant};
        for (int i = 0; i < 3; ++i) {
            QComboBox *list = box(pages, kCounts.at(i));
            (pages->*counts[i])(QStringLiteral("GINT"));
            QCOMPARE(list->count(), 990);
            (pages->*counts[i])(QStringLiteral("BOOL"));
            QCOMPARE(list->count(), 0);
            (pages->*counts[i])(QStringLiteral("INT"));
            QCOMPARE(list->count(), 100);
            (pages->*counts[i])(QStringLiteral("无"));
            QCOMPARE(list->count(), 0);
        }
        pages->slotPALLETpaloffVariant(QStringLiteral("GBOOL"));
        QCOMPARE(items(endVariable()), names("GB", 990));
        pages->slotPALLETpaloffVariant(QStringLiteral("BOOL"));
        QCOMPARE(items(endVariable()), names("B", 100));
        pages->slotPALLETpaloffVariant(QStringLiteral("INT"));
        QCOMPARE(endVariable()->count(), 0);
    }

    /// Each opening of page 36 adds a hundred, also coming back; another type begins anew.
    void endVariables()
    {
        wizard->goTo(36);
        const QStringList hundred = names("B", 100);
        QCOMPARE(items(endVariable()), hundred);
        endVariable()->setCurrentIndex(41);
        click(pages, "createdFilePagedownBtn4");
        click(pages, "createdFilePageupBtn4");
        QCOMPARE(items(endVariable()), hundred + hundred);
        QCOMPARE(endVariable()->currentText(), QStringLiteral("B042"));
        click(pages, "createdFilePageupBtn3");
        click(pages, "createdFilePagedownBtn3");
        QCOMPARE(items(endVariable()), hundred + hundred + hundred);

        QComboBox *type = typeOf(QStringLiteral("paloffVariable"));
        type->setCurrentIndex(1);
        QCOMPARE(items(endVariable()), names("GB", 990));
        type->setCurrentIndex(0);
        QCOMPARE(items(endVariable()), hundred);
        type->setCurrentIndex(1);
        click(pages, "createdFilePagedownBtn4");
        click(pages, "createdFilePageupBtn4");
        QCOMPARE(items(endVariable()), names("GB", 990) + hundred);
    }

    // ---- the board ------------------------------------------------------------------------------

    void boardOfAThousand()
    {
        wizard->goTo(36);
        typeOf(QStringLiteral("totalVariable"))->setCurrentIndex(2);
        QComboBox *total = box(pages, QStringLiteral("totalVariable"));
        total->setCurrentIndex(234);
        QWidget *board = touch(total);
        QVERIFY(board);
        auto *hundreds = child<QListWidget>(board, "variableHundreds");
        QCOMPARE(hundreds->count(), 10);
        QCOMPARE(hundreds->currentRow(), 2);
        QVERIFY(!hundreds->isHidden());
        auto *current = child<QAbstractButton>(board, "entry_234");
        QVERIFY(current->isChecked());
        QCOMPARE(current->text(), QStringLiteral("GI235"));
        QVERIFY(board->width() <= 714 && board->height() <= 504);
        QVERIFY(current->height() >= 40 && current->width() >= 40);

        // the last hundred has ninety
        QTest::mouseClick(hundreds->viewport(), Qt::LeftButton, {},
                          hundreds->visualItemRect(hundreds->item(9)).center());
        QCOMPARE(child<QAbstractButton>(board, "entry_900")->text(), QStringLiteral("GI901"));
        QVERIFY(!child<QAbstractButton>(board, "entry_989")->isHidden());
        QVERIFY(child<QAbstractButton>(board, "entry_990")->isHidden());
        QCOMPARE(total->currentIndex(), 234);
        QSignalSpy chosen(total, QOverload<int>::of(&QComboBox::currentIndexChanged));
        click(board, "entry_989");
        QCOMPARE(total->currentText(), QStringLiteral("GI990"));
        QCOMPARE(static_cast<int>(chosen.size()), 1);
        QVERIFY(!QApplication::activePopupWidget());
    }

    void boardOfAHundred()
    {
        wizard->goTo(36);
        typeOf(QStringLiteral("layerVariable"))->setCurrentIndex(1);
        QComboBox *layer = box(pages, QStringLiteral("layerVariable"));
        QWidget *board = touch(layer);
        QVERIFY(board);
        QVERIFY(child<QListWidget>(board, "variableHundreds")->isHidden());
        for (int row = 0; row < 100; ++row)
            QVERIFY(
                !child<QAbstractButton>(board, QStringLiteral("entry_%1").arg(row))->isHidden());
        click(board, "entry_99");
        QCOMPARE(layer->currentText(), QStringLiteral("I100"));
    }

    void boardIsLeft()
    {
        wizard->goTo(36);
        typeOf(QStringLiteral("stackVariable"))->setCurrentIndex(2);
        QComboBox *stack = box(pages, QStringLiteral("stackVariable"));
        stack->setCurrentIndex(7);
        QWidget *board = touch(stack);
        QVERIFY(board);
        child<QListWidget>(board, "variableHundreds")->setCurrentRow(5);
        click(board, "variableCancel");
        QVERIFY(!QApplication::activePopupWidget());
        QCOMPARE(stack->currentIndex(), 7);

        board = touch(stack); // beside it
        QVERIFY(board);
        QTest::mouseClick(board, Qt::LeftButton, {}, QPoint(-5, -5));
        QVERIFY(!QApplication::activePopupWidget());
        QCOMPARE(stack->currentIndex(), 7);

        board = touch(stack);
        QVERIFY(board);
        QTest::keyClick(board, Qt::Key_Escape);
        QVERIFY(!QApplication::activePopupWidget());
        QCOMPARE(stack->currentIndex(), 7);

        board = touch(stack);
        QVERIFY(board);
        stack->hidePopup();
        QVERIFY(!QApplication::activePopupWidget());
    }

    /// A question that comes up takes the board away, which would lie over it.
    void boardUnderAQuestion()
    {
        wizard->goTo(36);
        QVERIFY(touch(endVariable()));
        pages->exitCreateFile();
        QVERIFY(!QApplication::activePopupWidget());
        QCOMPARE(PromptWidget::getInstance()->currentWidget(), PromptWidget::PROMPT_WIZARD_EXIT);
        wizard->answer(false);
        QCOMPARE(pages->currentIndex(), 36);
    }

    void noBoardOfNothing()
    {
        wizard->goTo(36);
        QVERIFY(!touch(box(pages, QStringLiteral("totalVariable"))));
        VariableBox empty;
        empty.showPopup();
        QVERIFY(!QApplication::activePopupWidget());
    }

    void boardOfAListThatGrew()
    {
        wizard->goTo(36);
        pages->slotPALLETpaloffVariant(QStringLiteral("GBOOL"));
        for (int time = 0; time < 3; ++time)
            pages->palletCreatedFileWidget4();
        QCOMPARE(endVariable()->count(), 1290);
        QWidget *board = touch(endVariable());
        QVERIFY(board);
        auto *hundreds = child<QListWidget>(board, "variableHundreds");
        QCOMPARE(hundreds->count(), 13);
        hundreds->setCurrentRow(12);
        click(board, "entry_1289");
        QCOMPARE(endVariable()->currentIndex(), 1289);
        QCOMPARE(endVariable()->currentText(), QStringLiteral("B100"));
    }

    /// A list that changes takes its board away, whose keys would not do what they say.
    void boardOfAListThatChanges()
    {
        wizard->goTo(36);
        QVERIFY(touch(endVariable()));
        typeOf(QStringLiteral("paloffVariable"))->setCurrentIndex(1);
        QVERIFY(!QApplication::activePopupWidget());
        QVERIFY(touch(endVariable()));
        pages->palletCreatedFileWidget4();
        QVERIFY(!QApplication::activePopupWidget());
    }

    void titleOfTheBoard()
    {
        wizard->goTo(36);
        QWidget *board = touch(endVariable());
        QVERIFY(board);
        QStringList labels;
        const auto found = board->findChildren<QLabel *>();
        for (const QLabel *label : found)
            labels += label->text();
        QVERIFY(labels.contains(QStringLiteral("码垛结束判断")));
    }
};

QTEST_MAIN(TestWizardLists)
#include "test_wizard_lists.moc"
