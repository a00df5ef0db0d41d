// The checksum against its definition: bit by bit, every length and start.

#include "wire/checksum.h"

#include <QtTest>

namespace {

quint32 byDefinition(quint32 crc, const QByteArray &bytes)
{
    crc = ~crc;
    for (const char byte : bytes) {
        crc ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ (crc & 1u ? 0xedb88320u : 0u);
    }
    return ~crc;
}

QByteArray noise(int size)
{
    QByteArray bytes;
    quint32 state = 2463534242u;
    for (int i = 0; i < size; ++i) {
        state ^= state << 13;
        state ^= state >> 17;
        state ^= state << 5;
        bytes.append(static_cast<char>(state));
    }
    return bytes;
}

quint32 checksum(quint32 crc, const QByteArray &bytes)
{
    return wire::crc32(crc, bytes.constData(), static_cast<int>(bytes.size()));
}

} // namespace

class TestChecksum : public QObject {
    Q_OBJECT
private slots:
    void knownValues()
    {
        QCOMPARE(checksum(0, {}), 0u);
        QCOMPARE(checksum(0, "123456789"), 0xcbf43926u); // the check value of CRC-32
        QCOMPARE(wire::crc32(0xcbf43926u, nullptr, 0), 0xcbf43926u); // nothing follows
    }

    void everyLength()
    {
        const QByteArray bytes = noise(600);
        for (int size = 0; size <= bytes.size(); ++size)
            QCOMPARE(checksum(0, bytes.left(size)), byDefinition(0, bytes.left(size)));
    }

    void everyAlignment()
    {
        const QByteArray bytes = noise(400);
        for (int start = 0; start < 80; ++start) {
            QCOMPARE(wire::crc32(0, bytes.constData() + start, 300),
                     byDefinition(0, bytes.mid(start, 300)));
        }
    }

    void inPieces()
    {
        const QByteArray bytes = noise(500);
        const quint32 whole = byDefinition(0, bytes);
        for (int cut = 0; cut <= bytes.size(); ++cut)
            QCOMPARE(checksum(checksum(0, bytes.left(cut)), bytes.mid(cut)), whole);
    }

    void large()
    {
        const QByteArray bytes = noise(1 << 20);
        QCOMPARE(checksum(0, bytes), byDefinition(0, bytes));
        QCOMPARE(checksum(0, QByteArray(1 << 20, '\0')),
                 byDefinition(0, QByteArray(1 << 20, '\0')));
    }
};

QTEST_GUILESS_MAIN(TestChecksum)
#include "test_checksum.moc"
