#pragma once

#include "wire/frame.h"
#include "wire/json.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QtTest>
#include <vector>

/// A peer that sends whatever bytes a test wants: a bare TCP server and the socket of whoever
/// connected last.
class RawPeer : public QObject {
public:
    RawPeer()
    {
        m_server.listen(QHostAddress::LocalHost);
        connect(&m_server, &QTcpServer::newConnection, this, [this] {
            m_socket = m_server.nextPendingConnection();
            m_decoder = {};
            ++m_accepted;
        });
    }

    quint16 port() const { return m_server.serverPort(); }
    int accepted() const { return m_accepted; }
    QTcpSocket *socket() const { return m_socket; }

    void send(const QByteArray &bytes)
    {
        m_socket->write(bytes);
        m_socket->flush();
    }
    void send(quint16 id, const QByteArray &body) { send(wire::encodeFrame(id, body)); }

    /// The frames that have arrived since the last call.
    std::vector<wire::Frame> takeFrames()
    {
        std::vector<wire::Frame> frames;
        const QByteArray bytes = m_socket->readAll();
        int taken = 0;
        while (taken < bytes.size() && !m_decoder.failed()) {
            taken +=
                m_decoder.read(bytes.constData() + taken, static_cast<int>(bytes.size()) - taken);
            if (m_decoder.hasFrame())
                frames.push_back(m_decoder.take());
        }
        return frames;
    }

private:
    QTcpServer m_server;
    QTcpSocket *m_socket = nullptr;
    wire::FrameDecoder m_decoder;
    int m_accepted = 0;
};
