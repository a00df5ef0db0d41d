// The top menu: what each button asks for, what it opens, and what happens when it may not.

#include "../support.h"

#include "displaysize.h"
#include "newtechnologywidget.h"
#include "shell/technologywidget.h"
#include "useraccounts.h"
#include "veltrixwidgetfoundation.h"

#include <QPushButton>
#include <QToolButton>

using support::child;

namespace {

/// What a click leads to, in order, as one line each: "rights 打磨工艺 yes", "page 47",
/// "title 8 47 0", "message 0x4602", "hide", "host 2 at 12,34 714x504".
class Trace : public QObject {
public:
    Trace(TechnologyWidget *pages, QWidget *host) : m_pages(pages), m_host(host)
    {
        connect(EventLog::getInstance(), &EventLog::recorded, this,
                [this](const QString &kind, const QVariantList &values) {
                    if (kind == QLatin1String("rights"))
                        lines += QStringLiteral("rights %1 %2")
                                     .arg(values.at(0).toString(),
                                          values.at(1).toBool() ? QStringLiteral("yes")
                                                                : QStringLiteral("no"));
                    else if (kind == QLatin1String("message"))
                        lines += QStringLiteral("message 0x%1").arg(values.at(0).toUInt(), 0, 16);
                });
        connect(pages, &QStackedWidget::currentChanged, this,
                [this](int index) { lines += QStringLiteral("page %1").arg(index); });
        connect(pages, &TechnologyWidget::tnw_WidgetTitle, this,
                [this](int group, int title, int third) {
                    lines += QStringLiteral("title %1 %2 %3").arg(group).arg(title).arg(third);
                });
        pages->installEventFilter(this);
        host->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched == m_pages && event->type() == QEvent::Hide)
            lines += QStringLiteral("hide");
        if (watched == m_host && event->type() == QEvent::Show)
            lines += QStringLiteral("host %1 at %2,%3 %4x%5")
                         .arg(static_cast<int>(NewTechnologyWidget::getInstance()->currentType()))
                         .arg(m_host->x())
                         .arg(m_host->y())
                         .arg(m_host->width())
                         .arg(m_host->height());
        if (watched == m_host && m_host->isVisible() && event->type() == QEvent::Resize)
            lines += QStringLiteral("resize");
        if (watched == m_host && m_host->isVisible() && event->type() == QEvent::Move)
            lines += QStringLiteral("move");
        return false;
    }

    QStringList lines;

private:
    TechnologyWidget *m_pages;
    QWidget *m_host;
};

const QStringList kMenuButtons = {
    QStringLiteral("BtnPalletTech"),    QStringLiteral("BtnWeldSetting"),
    QStringLiteral("BtnVisionSetting"), QStringLiteral("BtnLaserSetting"),
    QStringLiteral("BtnBWBTech"),       QStringLiteral("BtnTrackConveyor"),
    QStringLiteral("BtnPolish"),        QStringLiteral("BtnScrew"),
    QStringLiteral("BtnSpray"),         QStringLiteral("UserTechBtns"),
};

} // namespace

class TestMenu : public QObject {
    Q_OBJECT
private:
    QWidget *screen = nullptr;
    TechnologyWidget *pages = nullptr;
    NewTechnologyWidget *host = nullptr;

    void click(const QString &name)
    {
        QTest::mouseClick(child<QAbstractButton>(pages, name), Qt::LeftButton);
    }

private slots:
    void initTestCase()
    {
        // as in the main window: both stand in one content area
        screen = new QWidget;
        screen->resize(800, 600);
        pages = TechnologyWidget::getInstance();
        host = NewTechnologyWidget::getInstance();
        pages->setParent(screen);
        host->setParent(screen);
        DisplaySize::widgetX = 12;
        DisplaySize::widgetY = 34;
        screen->show();
        QVERIFY(QTest::qWaitForWindowExposed(screen));
        // Nobody has come into the special process yet.
        QVERIFY(child<QWidget>(pages, "btnOpenJob")->isHidden());
    }

    void init()
    {
        App::sysUser = AUTHORITY_ADMINISTRATOR;
        App::locked_ = false;
        host->hide();
        host->setGeometry(1, 1, 100, 100);
        pages->show();
        pages->return_mainPage();
        App::mainPage_ = 71;
        App::secondPage_ = 72;
    }

    void cleanupTestCase()
    {
        pages->setParent(nullptr);
        host->setParent(nullptr);
        delete screen;
    }

    void ownPages_data()
    {
        QTest::addColumn<QString>("text"); // on the button
        QTest::addColumn<QString>("label"); // that the right is asked for
        QTest::addColumn<int>("page");
        QTest::addColumn<int>("title");
        QTest::addColumn<int>("secondPage");
        QTest::newRow("BtnPalletTech") << "码垛工艺"
                                       << "码垛工艺" << 1 << 1 << 72;
        QTest::newRow("BtnLaserSetting") << "激光切割工艺"
                                         << "激光切割设置" << 15 << 5 << 72;
        QTest::newRow("BtnBWBTech") << "专用工艺"
                                    << "专用工艺" << 44 << 21 << 29;
        QTest::newRow("BtnTrackConveyor") << "传送带跟踪工艺"
                                          << "传送带跟踪工艺" << 6 << 22 << 72;
        QTest::newRow("BtnPolish") << "打磨工艺"
                                   << "打磨工艺" << 47 << 47 << 72;
        QTest::newRow("BtnSpray") << "喷涂工艺"
                                  << "喷涂工艺" << 49 << 49 << 72;
    }
    void ownPages()
    {
        QFETCH(QString, text);
        QFETCH(QString, label);
        QFETCH(int, page);
        QFETCH(int, title);
        QFETCH(int, secondPage);
        QCOMPARE(child<QToolButton>(pages, QTest::currentDataTag())->text(), text);

        Trace trace(pages, host);
        click(QString::fromLatin1(QTest::currentDataTag()));
        QCOMPARE(trace.lines,
                 QStringList({QStringLiteral("rights %1 yes").arg(label),
                              QStringLiteral("page %1").arg(page),
                              QStringLiteral("title 8 %1 0").arg(title)}));
        QCOMPARE(App::mainPage_, 71);
        QCOMPARE(App::secondPage_, secondPage);
        QVERIFY(pages->isVisible());
        QVERIFY(!host->isVisible());
    }

    void hostedPages_data()
    {
        QTest::addColumn<QString>("label");
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("group");
        QTest::addColumn<int>("title");
        QTest::newRow("BtnWeldSetting") << "焊接设置" << 2 << 1 << 29;
        QTest::newRow("BtnVisionSetting") << "视觉设置" << 3 << 1 << 31;
        QTest::newRow("BtnScrew") << "电批工艺" << 4 << 8 << 62;
    }
    void hostedPages()
    {
        QFETCH(QString, label);
        QFETCH(int, type);
        QFETCH(int, group);
        QFETCH(int, title);
        const QString name = QString::fromLatin1(QTest::currentDataTag());

        Trace trace(pages, host);
        click(name);
        QCOMPARE(trace.lines,
                 QStringList({QStringLiteral("rights %1 yes").arg(label), QStringLiteral("hide"),
                              QStringLiteral("host %1 at 12,34 714x504").arg(type),
                              QStringLiteral("title %1 %2 0").arg(group).arg(title)}));
        QVERIFY(!pages->isVisible());
        QVERIFY(host->isVisible());
        QCOMPARE(pages->currentIndex(), 0);
        QCOMPARE(App::mainPage_, 71);
        QCOMPARE(App::secondPage_, 72);
    }

    void screwTextDiffersFromItsLabel()
    {
        QCOMPARE(child<QToolButton>(pages, "BtnScrew")->text(), QStringLiteral("电批"));
    }

    /// With the host still on screen its steps can be told apart.
    void hostedPageIsSizedBeforeItIsMoved()
    {
        host->show();
        Trace trace(pages, host);
        click(QStringLiteral("BtnVisionSetting"));
        QCOMPARE(trace.lines,
                 QStringList({QStringLiteral("rights 视觉设置 yes"), QStringLiteral("hide"),
                              QStringLiteral("resize"), QStringLiteral("move"),
                              QStringLiteral("title 1 31 0")}));
        QCOMPARE(host->geometry(), QRect(12, 34, 714, 504));
        QCOMPARE(static_cast<int>(host->currentType()), 3);
    }

    /// The menu slot knows nothing of the welding and vision buttons; their own slots open the
    /// page, whichever of the two runs first.
    void twoSlotsOnOneButton_data()
    {
        QTest::addColumn<bool>("menuFirst");
        QTest::newRow("menu slot first") << true;
        QTest::newRow("own slot first") << false;
    }
    void twoSlotsOnOneButton()
    {
        QFETCH(bool, menuFirst);
        TechnologyWidget fresh(nullptr);
        auto *button = child<QToolButton>(&fresh, "BtnWeldSetting");
        QVERIFY(disconnect(button, &QToolButton::clicked, &fresh, &TechnologyWidget::buttonClick));
        QVERIFY(
            disconnect(button, &QToolButton::clicked, &fresh, &TechnologyWidget::showWeldingPage));
        {
            Trace trace(&fresh, host);
            button->click();
            QCOMPARE(trace.lines, QStringList());
        }
        const auto connectMenu = [&] {
            connect(button, &QToolButton::clicked, &fresh, &TechnologyWidget::buttonClick);
        };
        if (menuFirst)
            connectMenu();
        {
            Trace trace(&fresh, host);
            button->click();
            QCOMPARE(trace.lines, QStringList());
        }
        connect(button, &QToolButton::clicked, &fresh, &TechnologyWidget::showWeldingPage);
        if (!menuFirst)
            connectMenu();

        Trace trace(&fresh, host);
        button->click();
        QCOMPARE(trace.lines,
                 QStringList({QStringLiteral("rights 焊接设置 yes"),
                              QStringLiteral("host 2 at 12,34 714x504"),
                              QStringLiteral("title 1 29 0")}));
    }

    /// Every tool button of the menu goes through the one menu slot, those without a branch too.
    void everyButtonReachesTheMenuSlot()
    {
        TechnologyWidget fresh(nullptr);
        const auto buttons =
            child<QWidget>(&fresh, "techBackwidget")->findChildren<QToolButton *>();
        QCOMPARE(static_cast<int>(buttons.size()), static_cast<int>(kMenuButtons.size()));
        for (QToolButton *button : buttons) {
            QVERIFY2(kMenuButtons.contains(button->objectName()), qPrintable(button->objectName()));
            QVERIFY2(
                disconnect(button, &QToolButton::clicked, &fresh, &TechnologyWidget::buttonClick),
                qPrintable(button->objectName()));
            QVERIFY2(
                !disconnect(button, &QToolButton::clicked, &fresh, &TechnologyWidget::buttonClick),
                qPrintable(button->objectName()));
        }
    }

    void menuSlotWithoutASender()
    {
        Trace trace(pages, host);
        pages->buttonClick();
        QCOMPARE(trace.lines, QStringList());
        QCOMPARE(pages->currentIndex(), 0);
    }

    /// An unlisted button that is connected to the menu slot does nothing.
    void menuSlotWithAStranger()
    {
        QPushButton stranger;
        stranger.setObjectName(QStringLiteral("btnpolish"));
        connect(&stranger, &QPushButton::clicked, pages, &TechnologyWidget::buttonClick);
        Trace trace(pages, host);
        stranger.click();
        QCOMPARE(trace.lines, QStringList());
    }

    void refused_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("label");
        QTest::addColumn<int>("user");
        const auto row = [](const char *button, const char *label, AUTHORITY user) {
            QTest::addRow("%s as %d", button, static_cast<int>(user))
                << QString::fromLatin1(button) << QString::fromUtf8(label)
                << static_cast<int>(user);
        };
        row("BtnPalletTech", "码垛工艺", AUTHORITY_NONE);
        row("BtnLaserSetting", "激光切割设置", AUTHORITY_NONE);
        row("BtnLaserSetting", "激光切割设置", AUTHORITY_OPERATOR);
        row("BtnBWBTech", "专用工艺", AUTHORITY_NONE);
        row("BtnTrackConveyor", "传送带跟踪工艺", AUTHORITY_NONE);
        row("BtnPolish", "打磨工艺", AUTHORITY_NONE);
        row("BtnSpray", "喷涂工艺", AUTHORITY_NONE);
        row("BtnScrew", "电批工艺", AUTHORITY_NONE);
        row("BtnScrew", "电批工艺", AUTHORITY_OPERATOR);
        row("BtnWeldSetting", "焊接设置", AUTHORITY_NONE);
        row("BtnWeldSetting", "焊接设置", AUTHORITY_OPERATOR);
        row("BtnVisionSetting", "视觉设置", AUTHORITY_NONE);
        row("BtnVisionSetting", "视觉设置", AUTHORITY_OPERATOR);
    }
    /// The right is asked for once, the refusal is told by its own message, and nothing else moves.
    void refused()
    {
        QFETCH(QString, button);
        QFETCH(QString, label);
        QFETCH(int, user);
        App::sysUser = static_cast<AUTHORITY>(user);
        child<QWidget>(pages, "btnOpenJob")->show();
        support::Journal journal;
        Trace trace(pages, host);
        click(button);
        QCOMPARE(trace.lines, QStringList(QStringLiteral("rights %1 no").arg(label)));
        QCOMPARE(journal.kinds(), QStringList({QStringLiteral("rights"), QStringLiteral("toast")}));
        QVERIFY(journal.toasts().first().contains(label));
        QCOMPARE(pages->currentIndex(), 0);
        QVERIFY(pages->isVisible());
        QVERIFY(!host->isVisible());
        QCOMPARE(App::mainPage_, 71);
        QCOMPARE(App::secondPage_, 72);
        QVERIFY(!child<QWidget>(pages, "btnOpenJob")->isHidden());
    }

    /// What an operator may open, by the table of rights.
    void operatorOpens_data()
    {
        QTest::addColumn<int>("page");
        QTest::newRow("BtnPalletTech") << 1;
        QTest::newRow("BtnBWBTech") << 44;
        QTest::newRow("BtnTrackConveyor") << 6;
        QTest::newRow("BtnPolish") << 47;
        QTest::newRow("BtnSpray") << 49;
    }
    void operatorOpens()
    {
        QFETCH(int, page);
        App::sysUser = AUTHORITY_OPERATOR;
        click(QString::fromLatin1(QTest::currentDataTag()));
        QCOMPARE(pages->currentIndex(), page);
    }

    /// The way in from the menu decides which buttons the project pages show.
    void specialProcess()
    {
        auto *back = child<QWidget>(pages, "ReturnProject_Button");
        auto *open = child<QWidget>(pages, "OpenProject_Button");
        auto *job = child<QWidget>(pages, "btnOpenJob");
        QVERIFY(pages->widget(44)->isAncestorOf(back));
        QVERIFY(pages->widget(44)->isAncestorOf(open));
        QVERIFY(pages->widget(43)->isAncestorOf(job));
        back->hide();
        open->hide();
        job->show();
        int secondPageAtPage = 0;
        const auto connection = connect(pages, &QStackedWidget::currentChanged, pages,
                                        [&] { secondPageAtPage = App::secondPage_; });
        click(QStringLiteral("BtnBWBTech"));
        disconnect(connection);
        QCOMPARE(pages->currentIndex(), 44);
        QCOMPARE(secondPageAtPage, 29);
        QVERIFY(!back->isHidden());
        QVERIFY(!open->isHidden());
        QVERIFY(job->isHidden());
        QVERIFY(App::isInCurrentInterface(71, 29));
    }

    void returns_data()
    {
        QTest::addColumn<QString>("enter");
        QTest::newRow("m_pBtnPalletTechReturn") << "BtnPalletTech";
        QTest::newRow("m_pBtnLaserTechReturn") << "BtnLaserSetting";
        QTest::newRow("m_pBtnTrackConReturn") << "BtnTrackConveyor";
        QTest::newRow("m_pBtnPolishReturn") << "BtnPolish";
        QTest::newRow("m_pBtnSprayReturn") << "BtnSpray";
        QTest::newRow("ReturnProject_Button") << "BtnBWBTech";
    }
    void returns()
    {
        QFETCH(QString, enter);
        const QString button = QString::fromLatin1(QTest::currentDataTag());
        click(enter);
        QVERIFY(pages->currentIndex() > 0);
        QVERIFY(pages->currentWidget()->isAncestorOf(child<QWidget>(pages, button)));
        App::mainPage_ = 71;
        App::secondPage_ = 72;
        Trace trace(pages, host);
        click(button);
        QCOMPARE(trace.lines,
                 QStringList({QStringLiteral("page 0"), QStringLiteral("title 8 0 0")}));
        QCOMPARE(App::mainPage_, 2);
        QCOMPARE(App::secondPage_, 28);
        QCOMPARE(child<QPushButton>(pages, button)->text(), QStringLiteral("返回"));
    }

    void firstLevels()
    {
        struct Row {
            void (TechnologyWidget::*show)();
            int page;
            int title;
        };
        for (const Row &row : {Row{&TechnologyWidget::return_PalletPage, 1, 1},
                               Row{&TechnologyWidget::return_polishwiget, 47, 47},
                               Row{&TechnologyWidget::return_spraywiget, 49, 49}}) {
            pages->return_mainPage();
            App::secondPage_ = 72;
            Trace trace(pages, host);
            (pages->*row.show)();
            QCOMPARE(trace.lines,
                     QStringList({QStringLiteral("page %1").arg(row.page),
                                  QStringLiteral("title 8 %1 0").arg(row.title)}));
            QCOMPARE(App::secondPage_, 72);
        }
    }

    /// Page and title belong together; a title is told again when its page is shown again.
    void titleIsToldEachTime()
    {
        QSignalSpy titles(pages, &TechnologyWidget::tnw_WidgetTitle);
        pages->return_mainPage();
        pages->return_mainPage();
        QCOMPARE(static_cast<int>(titles.size()), 2);
        QCOMPARE(titles.last(), QVariantList({8, 0, 0}));
    }

    void userButton()
    {
        QSignalSpy spy(VeltrixWidgetFoundation::getGlobalMainWindow(),
                       &VeltrixWidgetFoundation::signal_clickUserBtn);
        Trace trace(pages, host);
        click(QStringLiteral("UserTechBtns"));
        QCOMPARE(static_cast<int>(spy.size()), 1);
        QCOMPARE(trace.lines, QStringList());
        QCOMPARE(pages->currentIndex(), 0);
    }

    void reducedDevice()
    {
        App::DCAll_In_One = true;
        TechnologyWidget reduced(nullptr);
        App::DCAll_In_One = false;
        QStringList shown;
        for (const QString &name : kMenuButtons) {
            if (!child<QToolButton>(&reduced, name)->isHidden())
                shown += name;
        }
        QCOMPARE(shown,
                 QStringList({QStringLiteral("BtnBWBTech"), QStringLiteral("UserTechBtns")}));
        QCOMPARE(child<QToolButton>(&reduced, "BtnBWBTech")->pos(), QPoint(17, 20));
        Trace trace(&reduced, host);
        child<QToolButton>(&reduced, "BtnBWBTech")->click();
        QCOMPARE(reduced.currentIndex(), 44);
    }

    void fullDevice()
    {
        TechnologyWidget full(nullptr);
        for (const QString &name : kMenuButtons)
            QVERIFY2(!child<QToolButton>(&full, name)->isHidden(), qPrintable(name));
        QVERIFY(child<QToolButton>(&full, "BtnBWBTech")->pos() != QPoint(17, 20));
    }

    void menuButtonsDoNotOverlap()
    {
        QRegion taken;
        for (const QString &name : kMenuButtons) {
            const QRect place = child<QToolButton>(pages, name)->geometry();
            QVERIFY2(QRect(0, 0, 714, 504).contains(place), qPrintable(name));
            QVERIFY2(!taken.intersects(place), qPrintable(name));
            taken += place;
        }
    }

    void lockedByTheGlobal()
    {
        App::locked_ = true;
        for (const QString &name : kMenuButtons) {
            click(name);
            QVERIFY2(pages->currentIndex() == 0, qPrintable(name));
            QVERIFY2(pages->isVisible() && !host->isVisible(), qPrintable(name));
            QCOMPARE(App::secondPage_, 72);
        }
        App::locked_ = false;
    }

    /// From a real log-in to the lock screen and back.
    void lockedByTheAccounts()
    {
        UserAccounts *accounts = UserAccounts::getInstance();
        accounts->setHashCost(1, 8192);
        accounts->start(false);
        QVERIFY(App::locked_);
        const auto nothingOpens = [this] {
            for (const QString &name : kMenuButtons)
                click(name);
            return pages->currentIndex() == 0 && pages->isVisible() && !host->isVisible()
                && App::secondPage_ == 72;
        };
        QVERIFY(nothingOpens());
        QString error;
        QVERIFY2(accounts->setFirstPassword(QStringLiteral("correct horse"), &error),
                 qPrintable(error));
        QVERIFY(!App::locked_);
        click(QStringLiteral("BtnPolish"));
        QCOMPARE(pages->currentIndex(), 47);
        pages->return_mainPage();
        App::mainPage_ = 71;
        App::secondPage_ = 72;

        QVERIFY(accounts->lock());
        QVERIFY(App::locked_);
        QCOMPARE(static_cast<int>(App::sysUser), static_cast<int>(AUTHORITY_NONE));
        QVERIFY(nothingOpens());
        QCOMPARE(accounts->logIn(UserAccounts::firstAdministrator(), QStringLiteral("wrong one")),
                 UserAccounts::LogIn::WrongPassword);
        QVERIFY(nothingOpens());
        accounts->setClock([] { return QDateTime::currentMSecsSinceEpoch() + 3600 * 1000; });
        QCOMPARE(
            accounts->logIn(UserAccounts::firstAdministrator(), QStringLiteral("correct horse")),
            UserAccounts::LogIn::Good);
        click(QStringLiteral("BtnPolish"));
        QCOMPARE(pages->currentIndex(), 47);
    }
};

QTEST_MAIN(TestMenu)
#include "test_menu.moc"
