#include "app/operator.h"

#include "app/pendant.h"
#include "link/reads.h"
#include "robot.h"
#include "veltrixwidgetfoundation.h"

#include <QApplication>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QMouseEvent>
#include <QTextStream>
#include <QTimer>

namespace {

constexpr int kPatience = 60000; ///< milliseconds to wait for an answer
constexpr int kSettling = 100; ///< milliseconds between two touches
constexpr int kStandstill = 500; ///< milliseconds of the same position: the arm has come to rest

/// A press gives the focus to what takes it, as one that comes from a screen does.
void giveFocus(QWidget *widget)
{
    while (widget && !(widget->isEnabled() && (widget->focusPolicy() & Qt::ClickFocus)))
        widget = widget->isWindow() ? nullptr : widget->parentWidget();
    if (widget)
        widget->setFocus(Qt::MouseFocusReason);
}

void send(QWidget *widget, QEvent::Type type, const QPoint &position)
{
    if (type == QEvent::MouseButtonPress)
        giveFocus(widget);
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

/// The name of a key of the letter keyboard, unshifted.
QString letterKeyName(QChar key)
{
    switch (key.unicode()) {
    case '-':
        return QStringLiteral("key_minus");
    case '_':
        return QStringLiteral("key_underscore");
    case '.':
        return QStringLiteral("key_point");
    default:
        return QStringLiteral("key_") + key;
    }
}

QString textOf(const QWidget *widget)
{
    if (const auto *edit = qobject_cast<const QLineEdit *>(widget))
        return edit->text();
    if (const auto *label = qobject_cast<const QLabel *>(widget))
        return label->text();
    const auto *box = qobject_cast<const QComboBox *>(widget);
    return box ? box->currentText() : QString();
}

} // namespace

Operator::Operator(Pendant &pendant, QString directory)
    : m_pendant(pendant), m_directory(std::move(directory))
{
}

/// The visible, enabled widget of that name, if a finger can reach its middle.
QWidget *Operator::find(const QString &objectName)
{
    QWidget *target = nullptr;
    for (QWidget *widget : m_pendant.window()->findChildren<QWidget *>(objectName)) {
        if (widget->isVisible() && widget->isEnabled())
            target = widget;
    }
    return reach(target, objectName);
}

/// What a finger on the middle of the widget meets: the widget or a part of it.
QWidget *Operator::reach(QWidget *target, const QString &name)
{
    if (!target || !target->isVisible() || !target->isEnabled()) {
        fail(QStringLiteral("%1 is not there to be touched").arg(name));
        return nullptr;
    }
    QWidget *window = m_pendant.window();
    const QPoint middle = target->mapTo(window, target->rect().center());
    QWidget *hit = window->childAt(middle);
    while (hit && hit->objectName() == QLatin1String("snackbar")) {
        tap(hit);
        hit = window->childAt(middle);
    }
    if (hit && (hit == target || target->isAncestorOf(hit)))
        return hit;
    fail(QStringLiteral("%1 is covered by %2")
             .arg(name, hit ? hit->objectName() : QStringLiteral("nothing")));
    return nullptr;
}

bool Operator::tap(QWidget *hit)
{
    if (!hit)
        return false;
    send(hit, QEvent::MouseButtonPress, hit->rect().center());
    send(hit, QEvent::MouseButtonRelease, hit->rect().center());
    return true;
}

bool Operator::press(const QString &objectName)
{
    QWidget *hit = find(objectName);
    if (!hit)
        return false;
    send(hit, QEvent::MouseButtonPress, hit->rect().center());
    settle();
    return true;
}

bool Operator::letGo(const QString &objectName)
{
    QWidget *hit = find(objectName);
    if (!hit)
        return false;
    send(hit, QEvent::MouseButtonRelease, hit->rect().center());
    settle();
    return true;
}

bool Operator::touch(const QString &objectName)
{
    if (!tap(find(objectName)))
        return false;
    settle();
    return true;
}

bool Operator::touchAt(QWidget *widget, const QPoint &place)
{
    QWidget *window = m_pendant.window();
    if (!widget->isVisible() || !widget->isEnabled()
        || window->childAt(widget->mapTo(window, place)) != widget)
        return fail(QStringLiteral("a place of %1 cannot be touched").arg(widget->objectName()));
    send(widget, QEvent::MouseButtonPress, place);
    send(widget, QEvent::MouseButtonRelease, place);
    settle();
    return true;
}

bool Operator::touchAll(const QStringList &objectNames)
{
    for (const QString &name : objectNames) {
        if (!touch(name))
            return false;
    }
    return true;
}

bool Operator::write(const QString &field, const QString &text)
{
    if (!touch(field))
        return false;
    for (const QChar character : text) {
        if (!character.isUpper()) {
            if (!touch(letterKeyName(character)))
                return false;
            continue;
        }
        if (!touchAll({QStringLiteral("key_shift"), letterKeyName(character.toLower()),
                       QStringLiteral("key_shift")}))
            return false;
    }
    return touch(QStringLiteral("key_ok"));
}

bool Operator::enter(const QString &field, const QString &keys)
{
    return touch(field) && enterOnKeypad(keys);
}

bool Operator::enter(QLineEdit *field, const QString &keys, const QString &name)
{
    if (!tap(reach(field, name)))
        return false;
    settle();
    return enterOnKeypad(keys);
}

bool Operator::enterOnKeypad(const QString &keys)
{
    for (const QChar key : keys) {
        // the sign key turns the sign of what stands there, so it comes behind the first digit
        if (key != QLatin1Char('-') && !tap(find(keyName(key))))
            return false;
    }
    if (keys.startsWith(QLatin1Char('-')) && !tap(find(keyName(QLatin1Char('-')))))
        return false;
    return touch(QStringLiteral("key_ok"));
}

bool Operator::chooseRow(const QString &comboBox, int row)
{
    return chooseRow(m_pendant.window()->findChild<QComboBox *>(comboBox), row, comboBox);
}

bool Operator::chooseRow(QComboBox *box, int row, const QString &name)
{
    if (!box || !box->isVisible() || !box->isEnabled())
        return fail(QStringLiteral("%1 is not there to be changed").arg(name));
    box->setFocus();
    while (box->currentIndex() != row) {
        const int before = box->currentIndex();
        QKeyEvent press(QEvent::KeyPress, before < row ? Qt::Key_Down : Qt::Key_Up, Qt::NoModifier);
        QApplication::sendEvent(box, &press);
        settle();
        if (box->currentIndex() == before)
            return fail(QStringLiteral("%1 does not go to row %2").arg(name).arg(row));
    }
    return true;
}

bool Operator::shows(const QString &widget, const QString &text)
{
    const auto *shown = m_pendant.window()->findChild<QWidget *>(widget);
    return waitFor(QStringLiteral("%1 to read %2").arg(widget, text),
                   [shown, text] { return textOf(shown) == text; });
}

bool Operator::waitFor(const QString &what, const std::function<bool()> &condition)
{
    const QDeadlineTimer deadline(kPatience);
    while (!condition()) {
        if (deadline.hasExpired())
            return fail(QStringLiteral("waited in vain for %1").arg(what));
        QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 50);
    }
    return true;
}

bool Operator::waitForStandstill()
{
    QMap<QByteArray, QByteArray> places; // by kind of coordinates
    int told = 0;
    QElapsedTimer since;
    QObject context;
    QObject::connect(Robot::getInstance(), &Robot::receive_moreRobot_CurPosition, &context,
                     [&](const QByteArray &, const QByteArray &position) {
                         QByteArray &place = places[position.split(' ').value(1)];
                         if (place != position) {
                             place = position;
                             told = 0;
                             since.start();
                         }
                         ++told;
                     });
    return waitFor(QStringLiteral("the arm to stand still"),
                   [&] { return told >= 3 && since.hasExpired(kStandstill); });
}

void Operator::settle()
{
    QEventLoop loop;
    QTimer::singleShot(kSettling, &loop, &QEventLoop::quit);
    loop.exec();
    // An answer that is still on its way would fill a page in the middle of the next edit.
    const QDeadlineTimer deadline(kPatience);
    while (reads::areOpen() && !deadline.hasExpired())
        QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 50);
}

void Operator::picture(const QString &name, QWidget *widget)
{
    QApplication::processEvents(); // what a step without a touch has changed is laid out
    const QString file =
        QStringLiteral("%1-%2.png").arg(++m_pictures, 3, 10, QLatin1Char('0')).arg(name);
    (widget ? widget : m_pendant.window())->grab().save(QDir(m_directory).filePath(file));
    QTextStream(stdout) << file << Qt::endl;
}

bool Operator::fail(const QString &what)
{
    QTextStream(stderr) << "The tour stops: " << what << '.' << Qt::endl;
    return false;
}
