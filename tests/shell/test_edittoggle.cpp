// The edit toggle, bare and guarded, on widgets of its own.

#include "../support.h"

#include "shell/buttonstyle.h"
#include "shell/edittoggle.h"

#include <QPushButton>

namespace {

const QString kView = QStringLiteral("修改");
const QString kEdit = QStringLiteral("保存");
const QString kNormalSheet = QStringLiteral(
    "QPushButton{border-image: url(:/new/btnBackground/Resources/res/ButtonReturnNormal.png);"
    "color:rgb(255,255,255)}"
    "QPushButton:pressed{border-image: "
    "url(:/new/btnBackground/Resources/res/ButtonReturnDown.png);}");
const QString kForbiddenSheet = QStringLiteral(
    "QPushButton{border-image: url(:/new/btnBackground/Resources/res/ButtonMenuForbidden.png);"
    "color:rgb(255,255,255)}");

/// A page with two fields, and for the guarded form a cancel button and three ways out.
struct Page {
    QWidget window;
    QPushButton modify{&window};
    QLineEdit first{&window};
    QLineEdit second{&window};
    QPushButton cancel{&window};
    QPushButton back{&window};
    QPushButton up{&window};
    QPushButton down{&window};

    explicit Page(bool guarded) : page{&modify, {&first, &second}}
    {
        if (guarded) {
            page.cancel = &cancel;
            page.navigation = {&back, &up, &down};
        }
    }

    EditPage page;

    /// Text, fields, cancel, ways out, as one line.
    QString state() const
    {
        const auto same = [](std::initializer_list<const QWidget *> widgets) {
            int enabled = 0;
            for (const QWidget *widget : widgets)
                enabled += widget->isEnabled() ? 1 : 0;
            return enabled == 0 ? "off" : enabled == static_cast<int>(widgets.size()) ? "on" : "?";
        };
        const auto sheet = [this]() -> const char * {
            const QStringList all = {back.styleSheet(), up.styleSheet(), down.styleSheet()};
            if (all.count(kNormalSheet) == 3)
                return "normal";
            if (all.count(kForbiddenSheet) == 3)
                return "forbidden";
            return all.count(QString()) == 3 ? "none" : "?";
        };
        return QStringLiteral("%1 fields %2 cancel %3 ways %4 %5")
            .arg(modify.text(), QLatin1String(same({&first, &second})),
                 QLatin1String(cancel.isHidden() ? "hidden" : "shown"),
                 QLatin1String(same({&back, &up, &down})), QLatin1String(sheet()));
    }
};

const QString kGuardedView = QStringLiteral("修改 fields off cancel hidden ways on normal");
const QString kGuardedEdit = QStringLiteral("保存 fields on cancel shown ways off forbidden");
// a bare page has no cancel button and locks nothing: those widgets stay as they were
const QString kBareView = QStringLiteral("修改 fields off cancel shown ways on none");
const QString kBareEdit = QStringLiteral("保存 fields on cancel shown ways on none");

/// Counts how often a widget is styled anew.
class StyleCounter : public QObject {
public:
    explicit StyleCounter(QWidget *widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::StyleChange ? 1 : 0;
        return false;
    }
    int count = 0;
};

} // namespace

class TestEditToggle : public QObject {
    Q_OBJECT
private:
    QStringList calls;

    void press(Page &page, bool accepts)
    {
        pressModify(
            page.page,
            [this, &page, accepts] {
                calls += QStringLiteral("accept: ") + page.state();
                return accepts;
            },
            [this, &page] { calls += QStringLiteral("send: ") + page.state(); });
    }

private slots:
    void init() { calls.clear(); }

    void sheets()
    {
        QCOMPARE(returnButtonSheet(), kNormalSheet);
        QCOMPARE(forbiddenButtonSheet(), kForbiddenSheet);
    }

    void picturesOfTheSheetsExist()
    {
        for (const char *name :
             {"ButtonReturnNormal.png", "ButtonReturnDown.png", "ButtonMenuForbidden.png",
              "ButtonMenuNormal.png", "ButtonMenuDown.png"}) {
            const QImage picture(QStringLiteral(":/new/btnBackground/Resources/res/")
                                 + QLatin1String(name));
            QVERIFY2(!picture.isNull(), name);
        }
    }

    void sheetIsSetOnceOnly()
    {
        QPushButton button;
        button.ensurePolished();
        StyleCounter counter(&button);
        setReturnButtonSheet({&button});
        QCOMPARE(counter.count, 1);
        setReturnButtonSheet({&button});
        setSheet(&button, kNormalSheet);
        QCOMPARE(counter.count, 1);
        setSheet(&button, kForbiddenSheet);
        QCOMPARE(counter.count, 2);
        QCOMPARE(button.styleSheet(), kForbiddenSheet);
    }

    void isGuarded()
    {
        QVERIFY(!Page(false).page.isGuarded());
        QVERIFY(Page(true).page.isGuarded());
    }

    void bareEntering()
    {
        Page page(false);
        showViewState(page.page);
        QCOMPARE(page.state(), kBareView);
        showEditState(page.page);
        showViewState(page.page);
        QCOMPARE(page.state(), kBareView);
    }

    /// The press in view state checks nothing and sends nothing.
    void bareEditing()
    {
        Page page(false);
        showViewState(page.page);
        press(page, false);
        QCOMPARE(calls, QStringList());
        QCOMPARE(page.state(), kBareEdit);
    }

    void bareRefused()
    {
        Page page(false);
        showEditState(page.page);
        press(page, false);
        QCOMPARE(calls, QStringList(QStringLiteral("accept: ") + kBareEdit));
        QCOMPARE(page.state(), kBareEdit);
        press(page, true);
        QCOMPARE(page.state(), kBareView);
    }

    /// A bare page sends first and goes back to view state then.
    void bareSaved()
    {
        Page page(false);
        showEditState(page.page);
        press(page, true);
        QCOMPARE(calls,
                 QStringList({QStringLiteral("accept: ") + kBareEdit,
                              QStringLiteral("send: ") + kBareEdit}));
        QCOMPARE(page.state(), kBareView);
        press(page, true);
        QCOMPARE(page.state(), kBareEdit);
        QCOMPARE(static_cast<int>(calls.size()), 2);
    }

    void guardedEntering()
    {
        Page page(true);
        page.modify.setText(QStringLiteral("anything"));
        showViewState(page.page);
        QCOMPARE(page.state(), kGuardedView);
        showEditState(page.page);
        showViewState(page.page);
        QCOMPARE(page.state(), kGuardedView);
    }

    void guardedEditing()
    {
        Page page(true);
        showViewState(page.page);
        press(page, false);
        QCOMPARE(calls, QStringList());
        QCOMPARE(page.state(), kGuardedEdit);
    }

    /// A save that is refused leaves the ways out locked and cancel at hand.
    void guardedRefused()
    {
        Page page(true);
        showEditState(page.page);
        press(page, false);
        QCOMPARE(calls, QStringList(QStringLiteral("accept: ") + kGuardedEdit));
        QCOMPARE(page.state(), kGuardedEdit);
        for (const QPushButton *way : {&page.back, &page.up, &page.down})
            QVERIFY(!way->isEnabled());
        QVERIFY(!page.cancel.isHidden());
        press(page, false);
        QCOMPARE(page.state(), kGuardedEdit);
    }

    /// A guarded page goes back to view state first and sends then.
    void guardedSaved()
    {
        Page page(true);
        showEditState(page.page);
        press(page, true);
        QCOMPARE(calls,
                 QStringList({QStringLiteral("accept: ") + kGuardedEdit,
                              QStringLiteral("send: ") + kGuardedView}));
        QCOMPARE(page.state(), kGuardedView);
    }

    /// Cancel is nothing but entering the page again: view state, then the question to the
    /// controller, whose answer overwrites the edit.
    void guardedCancelled()
    {
        Page page(true);
        const auto show = [&] {
            showViewState(page.page);
            calls += QStringLiteral("get: ") + page.state();
            page.first.setText(QStringLiteral("stored"));
        };
        connect(&page.cancel, &QPushButton::clicked, &page.window, show);
        show();
        calls.clear();
        press(page, true);
        page.first.setText(QStringLiteral("typed"));
        page.window.show();
        QTest::mouseClick(&page.cancel, Qt::LeftButton);
        QCOMPARE(calls, QStringList(QStringLiteral("get: ") + kGuardedView));
        QCOMPARE(page.state(), kGuardedView);
        QCOMPARE(page.first.text(), QStringLiteral("stored"));
        press(page, true);
        QCOMPARE(page.state(), kGuardedEdit);
    }

    /// The locked ways out do not answer to a touch.
    void guardedWaysAreLocked()
    {
        Page page(true);
        page.window.show();
        int left = 0;
        for (QPushButton *way : {&page.back, &page.up, &page.down})
            connect(way, &QPushButton::clicked, &page.window, [&left] { ++left; });
        showEditState(page.page);
        for (QPushButton *way : {&page.back, &page.up, &page.down})
            QTest::mouseClick(way, Qt::LeftButton);
        QCOMPARE(left, 0);
        showViewState(page.page);
        for (QPushButton *way : {&page.back, &page.up, &page.down})
            QTest::mouseClick(way, Qt::LeftButton);
        QCOMPARE(left, 3);
    }

    void anotherText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("guarded");
        for (const char *text : {"", "修改 ", " 保存", "修改保存", "确定", "Save", "Modify"}) {
            QTest::addRow("bare '%s'", text) << QString::fromUtf8(text) << false;
            QTest::addRow("guarded '%s'", text) << QString::fromUtf8(text) << true;
        }
    }
    void anotherText()
    {
        QFETCH(QString, text);
        QFETCH(bool, guarded);
        Page page(guarded);
        showEditState(page.page);
        page.modify.setText(text);
        const QString before = page.state();
        press(page, true);
        QCOMPARE(calls, QStringList());
        QCOMPARE(page.state(), before);
    }

    void pageWithoutFields()
    {
        QPushButton modify;
        EditPage page{&modify, {}};
        showViewState(page);
        QCOMPARE(modify.text(), kView);
        int sent = 0;
        pressModify(
            page, [] { return true; }, [&sent] { ++sent; });
        QCOMPARE(modify.text(), kEdit);
        pressModify(
            page, [] { return true; }, [&sent] { ++sent; });
        QCOMPARE(modify.text(), kView);
        QCOMPARE(sent, 1);
    }
};

QTEST_MAIN(TestEditToggle)
#include "test_edittoggle.moc"
