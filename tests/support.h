#pragma once

// What the tests of the pages share: widgets by their object names, clicks and typed text, what the
// pages ask of their surroundings, and replies as they come from the controller.

#include "app.h"
#include "eventlog.h"
#include "morerobot.h"
#include "robot.h"
#include "wire/ids.h"
#include "wire/json.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QVector>
#include <QtTest>

namespace support {

struct Entry {
    QString kind;
    QVariantList values;
};

struct Message {
    unsigned short id;
    QByteArray body;

    bool operator==(const Message &other) const { return id == other.id && body == other.body; }
};

/// Everything that reaches the journal while this object lives, whole and in order.
class Journal : public QObject {
public:
    Journal()
    {
        connect(EventLog::getInstance(), &EventLog::recorded, this,
                [this](const QString &kind, const QVariantList &values) {
                    m_entries.append({kind, values});
                });
    }

    const QVector<Entry> &entries() const { return m_entries; }
    void clear() { m_entries.clear(); }

    QStringList kinds() const
    {
        QStringList list;
        for (const Entry &entry : m_entries)
            list += entry.kind;
        return list;
    }

    /// The values of all entries of one kind.
    QVector<QVariantList> of(const char *kind) const
    {
        QVector<QVariantList> list;
        for (const Entry &entry : m_entries) {
            if (entry.kind == QLatin1String(kind))
                list += entry.values;
        }
        return list;
    }

    QVector<Message> messages() const
    {
        QVector<Message> list;
        for (const QVariantList &values : of("message"))
            list.append(
                {static_cast<unsigned short>(values.at(0).toUInt()), values.at(1).toByteArray()});
        return list;
    }

    QStringList toasts() const
    {
        QStringList list;
        for (const QVariantList &values : of("toast"))
            list += values.at(0).toString();
        return list;
    }

private:
    QVector<Entry> m_entries;
};

/// The widget of that object name; the test program ends when there is none.
template <typename Widget> Widget *child(const QObject *root, const QString &name)
{
    auto *found = root->findChild<Widget *>(name);
    if (!found)
        qFatal("there is no %s of the name %s", Widget::staticMetaObject.className(),
               qPrintable(name));
    return found;
}

template <typename Widget> Widget *child(const QObject *root, const char *name)
{
    return child<Widget>(root, QString::fromLatin1(name));
}

inline void click(const QObject *root, const char *name)
{
    QTest::mouseClick(child<QAbstractButton>(root, name), Qt::LeftButton);
}

/// Replaces the text of a field with what a keyboard can type; Latin-1 only. A field that takes no
/// input keeps its text.
inline void enter(QLineEdit *edit, const QString &text)
{
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, text);
}

/// A reply of the controller arrives.
inline void receive(wire::reply::Id id, const QByteArray &body)
{
    Robot::getInstance()->receiveMessage(id, body);
}

/// A message body as JSON; null when it is no object.
inline Json::Value json(const QByteArray &body)
{
    return wire::parseObject(body).value_or(Json::Value());
}

} // namespace support

inline char *toString(const support::Message &message)
{
    const QByteArray text =
        "0x" + QByteArray::number(message.id, 16) + " " + message.body.trimmed();
    return qstrdup(text.constData());
}

namespace support {
using ::toString;
}
