#include "commandinsert.h"

#include "digitallineedit.h"
#include "keypad.h"
#include "screenhost.h"

#include <QCoreApplication>
#include <QPointer>
#include <QRegularExpressionValidator>

namespace {

constexpr int kOutOfSight = -1000; // pixels, for the field that the keypad serves

} // namespace

CommandInsert::CommandInsert(QObject *parent) : QObject(parent) { }

CommandInsert *CommandInsert::getInstance()
{
    static QPointer<CommandInsert> instance;
    if (!instance)
        instance = new CommandInsert(QCoreApplication::instance());
    return instance;
}

void CommandInsert::setCycleIndex()
{
    QWidget *host = ScreenHost::widget();
    if (!host)
        return;
    // The count has no field of its own on any page, and the keypad serves fields.
    auto *field = new DigitalLineEdit(QString::number(m_count == kEndless ? 1 : m_count), host);
    field->setObjectName(QStringLiteral("cycleIndexField"));
    field->setProperty("fieldName", tr("运行次数"));
    field->setValidator(new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral("[1-9][0-9]{0,3}")), field));
    field->move(kOutOfSight, kOutOfSight);
    field->show();
    connect(field, &DigitalLineEdit::finishType, this,
            [this, field] { choose(field->text().toInt()); });
    connect(Keypad::open(field), &QObject::destroyed, field, &QObject::deleteLater);
}

void CommandInsert::setCycleIndexOnce()
{
    choose(1);
}

void CommandInsert::setCycleIndexEver()
{
    choose(kEndless);
}

void CommandInsert::choose(int count)
{
    m_count = count;
    emit cycleIndexChosen(count);
}
