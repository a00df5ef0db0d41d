#pragma once

#include "simulator/simulatedcontroller.h"
#include "wire/connection.h"
#include "wire/ids.h"
#include "wire/json.h"

#include <QHostAddress>
#include <QStringList>
#include <QTcpSocket>
#include <memory>

/// A pendant beside Robot: a connection of its own that keeps what it is sent. It says nothing by
/// itself: a switch that it holds is not renewed.
struct OtherPendant {
    explicit OtherPendant(quint16 port, const QString &name = QString())
    {
        Json::Value greeting(Json::objectValue);
        if (!name.isNull())
            greeting["name"] = name.toStdString();
        constexpr int kPatience = 60000; // milliseconds; reached only when something is wrong
        auto *socket = new QTcpSocket;
        connection =
            std::make_unique<wire::Connection>(socket, wire::Connection::Role::Pendant, greeting,
                                               wire::Timing{1000, kPatience, kPatience});
        QObject::connect(connection.get(), &wire::Connection::received,
                         [this](quint16 id, const QByteArray &body) {
                             if (id == wire::Status)
                                 take(*wire::parseObject(body));
                             else
                                 ++replies;
                         });
        socket->connectToHost(QHostAddress::LocalHost, port);
    }
    int state(const char *key) const { return wire::integer(status, key).value_or(-1); }
    void key(const char *name, int value)
    {
        connection->send(wire::Key,
                         "{\"key\":\"" + QByteArray(name)
                             + "\",\"value\":" + QByteArray::number(value) + "}");
    }
    void jog(int axis, int direction, int coordinate)
    {
        connection->send(wire::Key,
                         "{\"key\":\"jog\",\"value\":" + QByteArray::number(axis)
                             + ",\"direction\":" + QByteArray::number(direction)
                             + ",\"coord\":" + QByteArray::number(coordinate) + "}");
    }

    std::unique_ptr<wire::Connection> connection;
    Json::Value status; ///< the last one
    int statuses = 0;
    QStringList words; ///< what was said to the operator
    Json::Value told; ///< the last status with a word
    QString holder; ///< who was last said to have control
    int replies = 0;

private:
    void take(const Json::Value &body)
    {
        status = body;
        ++statuses;
        if (const std::optional<QString> word = wire::text(body, "message")) {
            words.append(*word);
            told = body;
        }
        holder = wire::text(body, "holder").value_or(holder);
    }
};
