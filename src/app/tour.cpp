#include "app/tour.h"

#include "app/pendant.h"
#include "language.h"
#include "robot.h"
#include "shell/technologywidget.h"
#include "veltrixwidgetfoundation.h"

#include <QApplication>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QDir>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTextStream>

namespace {

constexpr int kPatience = 10000; ///< milliseconds to wait for an answer

void send(QWidget *widget, QEvent::Type type, const QPoint &position)
{
    QMouseEvent event(type, position, widget->mapToGlobal(position), Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

/// The name of a key of the keypad.
QString keyName(QChar key)
{
    if (key == QLatin1Char('.'))
        return QStringLiteral("key_point");
    if (key == QLatin1Char('-'))
        return QStringLiteral("key_sign");
    return QStringLiteral("key_") + key;
}

} // namespace

Tour::Tour(Pendant &pendant, QString directory)
    : m_pendant(pendant), m_directory(std::move(directory))
{
}

bool Tour::run()
{
    if (!QDir().mkpath(m_directory))
        return fail(QStringLiteral("%1 cannot be made").arg(m_directory));
    if (!waitFor(QStringLiteral("the connection to the controller"),
                 [] { return Robot::getInstance()->isConnected(); }))
        return false;
    for (const QString &language : {QStringLiteral("zh"), QStringLiteral("en")}) {
        if (!Language::getInstance()->setCurrent(language))
            return fail(QStringLiteral("the language %1 cannot be had").arg(language));
        if (!visitPackages(language) || !visitHostedPages() || !visitApplicationPages()
            || !setUpPolishing() || !walkPalletChain())
            return false;
    }
    QTextStream(stdout) << m_pictures << " pictures in " << m_directory << Qt::endl;
    return true;
}

bool Tour::visitPackages(const QString &language)
{
    picture(QStringLiteral("menu-") + language);
    const struct {
        const char *button;
        const char *back;
    } packages[] = {
        {"BtnPalletTech", "m_pBtnPalletTechReturn"}, {"BtnLaserSetting", "m_pBtnLaserTechReturn"},
        {"BtnBWBTech", "ReturnProject_Button"},      {"BtnTrackConveyor", "m_pBtnTrackConReturn"},
        {"BtnPolish", "m_pBtnPolishReturn"},         {"BtnSpray", "m_pBtnSprayReturn"},
    };
    for (const auto &package : packages) {
        if (!touch(QLatin1String(package.button)))
            return false;
        picture(QLatin1String(package.button));
        if (!touch(QLatin1String(package.back)))
            return false;
    }
    return true;
}

bool Tour::visitHostedPages()
{
    for (const char *button : {"BtnWeldSetting", "BtnVisionSetting", "BtnScrew"}) {
        if (!touch(QLatin1String(button)))
            return false;
        picture(QLatin1String(button));
        if (!touch(QStringLiteral("hostedPageBack")))
            return false;
    }
    return true;
}

bool Tour::visitApplicationPages()
{
    for (const char *button : {"areaEvents", "areaUsers"}) {
        if (!touch(QLatin1String(button)))
            return false;
        picture(QLatin1String(button));
    }
    return touch(QStringLiteral("areaProcess"));
}

/// Reads process number 3, changes it, is refused a value, saves, and finds it again.
bool Tour::setUpPolishing()
{
    const QString wear = Language::getInstance()->current() == QLatin1String("zh")
        ? QStringLiteral("12.5")
        : QStringLiteral("-0.25");
    if (!touch(QStringLiteral("BtnPolish")) || !touch(QStringLiteral("BtnPolishPara"))
        || !chooseRow(QStringLiteral("m_pPolishCombox"), 2))
        return false;
    picture(QStringLiteral("polish-view"));
    if (!touch(QStringLiteral("btnPolishModify")) || !touch(QStringLiteral("toolWear")))
        return false;
    picture(QStringLiteral("polish-keypad"));
    if (!touch(QStringLiteral("key_cancel")) || !enter(QStringLiteral("toolWear"), wear)
        || !enter(QStringLiteral("AutoCompensationCycle"), QStringLiteral("-4"))
        || !touch(QStringLiteral("btnPolishModify")))
        return false;
    picture(QStringLiteral("polish-refused"));
    if (!enter(QStringLiteral("AutoCompensationCycle"), QStringLiteral("40"))
        || !touch(QStringLiteral("btnPolishModify")))
        return false;
    picture(QStringLiteral("polish-saved"));
    if (!chooseRow(QStringLiteral("m_pPolishCombox"), 0)
        || !chooseRow(QStringLiteral("m_pPolishCombox"), 2)
        || !shows(QStringLiteral("toolWear"), wear)
        || !shows(QStringLiteral("AutoCompensationCycle"), QStringLiteral("40")))
        return false;
    picture(QStringLiteral("polish-read-again"), m_pendant.pages());
    return touch(QStringLiteral("btnPolishReturn")) && touch(QStringLiteral("m_pBtnPolishReturn"));
}

/// Opens craft 2 in complete mode and turns the pages of the chain to its end and back to the menu.
bool Tour::walkPalletChain()
{
    if (!touch(QStringLiteral("BtnPalletTech")) || !touch(QStringLiteral("BtnPalletType"))
        || !chooseRow(QStringLiteral("m_pPalletCraftNum"), 1))
        return false;
    picture(QStringLiteral("pallet-type"));
    if (!touch(QStringLiteral("BtnPalletComplete")))
        return false;
    picture(QStringLiteral("pallet-navigation"));
    for (const char *button :
         {"palletNavigationStart", "tongsPageDown", "trayPageDown", "positionPageDown",
          "workpiecePageDown", "approachPageDown", "overlappingExplainBtn",
          "overlapExplainReturnBtn1", "overlappingPageDown", "planeModifyBtn"}) {
        if (!touch(QLatin1String(button)))
            return false;
        picture(QLatin1String("pallet-") + QLatin1String(button));
    }
    for (int type = 1; type <= 3; ++type) {
        if (!chooseRow(QStringLiteral("planeTemplateComboBox"), type))
            return false;
        picture(QStringLiteral("pallet-template-%1").arg(type));
    }
    for (const char *button :
         {"planeModifyCancelBtn", "returnNavigationBtn7", "palletNavigationReturn",
          "palletTypeReturn", "m_pBtnPalletTechReturn"}) {
        if (!touch(QLatin1String(button)))
            return false;
    }
    return true;
}

bool Tour::touch(const QString &objectName)
{
    QWidget *window = m_pendant.window();
    QWidget *target = nullptr;
    for (QWidget *widget : window->findChildren<QWidget *>(objectName)) {
        if (widget->isVisible() && widget->isEnabled())
            target = widget;
    }
    if (!target)
        return fail(QStringLiteral("%1 is not there to be touched").arg(objectName));
    const QPoint inWindow = target->mapTo(window, target->rect().center());
    QWidget *hit = window->childAt(inWindow);
    if (!hit || (hit != target && !target->isAncestorOf(hit)))
        return fail(QStringLiteral("%1 is covered by %2")
                        .arg(objectName, hit ? hit->objectName() : QStringLiteral("nothing")));
    const QPoint inHit = hit->mapFrom(window, inWindow);
    send(hit, QEvent::MouseButtonPress, inHit);
    send(hit, QEvent::MouseButtonRelease, inHit);
    settle();
    return true;
}

bool Tour::enter(const QString &field, const QString &keys)
{
    if (!touch(field))
        return false;
    for (const QChar key : keys) {
        // the sign key turns the sign of what stands there, so it comes behind the first digit
        if (key != QLatin1Char('-') && !touch(keyName(key)))
            return false;
    }
    if (keys.startsWith(QLatin1Char('-')) && !touch(keyName(QLatin1Char('-'))))
        return false;
    return touch(QStringLiteral("key_ok"));
}

bool Tour::chooseRow(const QString &comboBox, int row)
{
    auto *box = m_pendant.window()->findChild<QComboBox *>(comboBox);
    if (!box || !box->isVisible() || !box->isEnabled())
        return fail(QStringLiteral("%1 is not there to be changed").arg(comboBox));
    box->setFocus();
    while (box->currentIndex() != row) {
        const int before = box->currentIndex();
        QKeyEvent press(QEvent::KeyPress, before < row ? Qt::Key_Down : Qt::Key_Up, Qt::NoModifier);
        QApplication::sendEvent(box, &press);
        settle();
        if (box->currentIndex() == before)
            return fail(QStringLiteral("%1 does not go to row %2").arg(comboBox).arg(row));
    }
    return true;
}

bool Tour::shows(const QString &field, const QString &text)
{
    auto *edit = m_pendant.window()->findChild<QLineEdit *>(field);
    return waitFor(QStringLiteral("%1 to read %2").arg(field, text),
                   [edit, text] { return edit && edit->text() == text; });
}

bool Tour::waitFor(const QString &what, const std::function<bool()> &condition)
{
    const QDeadlineTimer deadline(kPatience);
    while (!condition()) {
        if (deadline.hasExpired())
            return fail(QStringLiteral("waited in vain for %1").arg(what));
        QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 50);
    }
    return true;
}

/// Answers that are under way come in, as they would before an operator's next touch.
void Tour::settle()
{
    const QDeadlineTimer deadline(150);
    while (!deadline.hasExpired())
        QApplication::processEvents(QEventLoop::AllEvents, 20);
}

void Tour::picture(const QString &name, QWidget *widget)
{
    settle();
    const QString file =
        QStringLiteral("%1-%2.png").arg(++m_pictures, 2, 10, QLatin1Char('0')).arg(name);
    (widget ? widget : m_pendant.window())->grab().save(QDir(m_directory).filePath(file));
    QTextStream(stdout) << file << Qt::endl;
}

bool Tour::fail(const QString &what)
{
    QTextStream(stderr) << "The tour stops: " << what << '.' << Qt::endl;
    return false;
}
