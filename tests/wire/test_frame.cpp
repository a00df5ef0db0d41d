// Frames: every cut, every kind of damage.

#include "wire/frame.h"

#include <QtEndian>
#include <QtTest>
#include <vector>

using wire::Frame;
using wire::FrameDecoder;

namespace {

/// Feeds `bytes` in pieces of `piece` bytes and collects the frames that come out.
std::vector<Frame> feed(FrameDecoder &decoder, const QByteArray &bytes, int piece)
{
    std::vector<Frame> frames;
    for (int at = 0; at < bytes.size() && !decoder.failed(); at += piece) {
        const int size = std::min<int>(piece, static_cast<int>(bytes.size()) - at);
        int taken = 0;
        while (taken < size && !decoder.failed()) {
            taken += decoder.read(bytes.constData() + at + taken, size - taken);
            if (decoder.hasFrame())
                frames.push_back(decoder.take());
        }
    }
    return frames;
}

std::vector<Frame> feed(FrameDecoder &decoder, const QByteArray &bytes)
{
    return feed(decoder, bytes, static_cast<int>(bytes.size()));
}

QByteArray withLength(quint32 length)
{
    QByteArray frame = wire::encodeFrame(7, "body");
    qToBigEndian(length, frame.data() + 8);
    return frame;
}

} // namespace

class TestFrame : public QObject {
    Q_OBJECT
private slots:
    void layout()
    {
        // Written out by hand, so that the bytes cannot change unnoticed. The checksum is that of
        // the 12 bytes before it and of the body.
        const QByteArray expected = QByteArray::fromHex("5243504c 0001 4602 00000002")
            + QByteArray::fromHex(kChecksumOfExample) + "{}";
        QCOMPARE(wire::encodeFrame(0x4602, "{}").toHex(), expected.toHex());
    }

    void wholeAtEveryCut()
    {
        const QByteArray bodies[] = {"{\"robot\":1}\n", "", QByteArray(900, 'x'), "z"};
        QByteArray stream;
        quint16 id = 100;
        for (const QByteArray &body : bodies)
            stream += wire::encodeFrame(id++, body);

        for (int cut = 0; cut <= stream.size(); ++cut) {
            FrameDecoder decoder;
            std::vector<Frame> frames = feed(decoder, stream.left(cut));
            for (Frame &frame : feed(decoder, stream.mid(cut)))
                frames.push_back(frame);
            QCOMPARE(frames.size(), std::size(bodies));
            for (size_t i = 0; i < frames.size(); ++i) {
                QCOMPARE(frames[i].id, quint16(100 + i));
                QCOMPARE(frames[i].body, bodies[i]);
            }
            QVERIFY(!decoder.isInsideFrame());
        }
    }

    void wholeInPiecesOfEverySize()
    {
        const QByteArray stream = wire::encodeFrame(1, QByteArray(50, 'a'))
            + wire::encodeFrame(2, {}) + wire::encodeFrame(3, QByteArray(31, 'b'));
        for (int piece = 1; piece <= stream.size(); ++piece) {
            FrameDecoder decoder;
            const std::vector<Frame> frames = feed(decoder, stream, piece);
            QCOMPARE(frames.size(), size_t(3));
            QCOMPARE(frames[0].body, QByteArray(50, 'a'));
            QCOMPARE(frames[1].body, QByteArray());
            QCOMPARE(frames[2].body, QByteArray(31, 'b'));
        }
    }

    void nothingBeforeTheLastByte()
    {
        const QByteArray frame = wire::encodeFrame(1, "0123456789");
        FrameDecoder decoder;
        QVERIFY(feed(decoder, frame.left(frame.size() - 1), 1).empty());
        QVERIFY(decoder.isInsideFrame());
        QVERIFY(!decoder.failed());
    }

    void emptyBody()
    {
        FrameDecoder decoder;
        const std::vector<Frame> frames = feed(decoder, wire::encodeFrame(9, {}));
        QCOMPARE(frames.size(), size_t(1));
        QCOMPARE(frames[0].id, quint16(9));
        QVERIFY(frames[0].body.isEmpty());
    }

    void longestBody()
    {
        const QByteArray body(wire::kMaxBody, 'x');
        FrameDecoder decoder;
        const std::vector<Frame> frames = feed(decoder, wire::encodeFrame(9, body), 65536);
        QCOMPARE(frames.size(), size_t(1));
        QVERIFY(frames[0].body == body);
    }

    void lengthOverTheLimit_data()
    {
        QTest::addColumn<quint32>("length");
        QTest::newRow("one over") << quint32(wire::kMaxBody) + 1;
        QTest::newRow("2^31") << quint32(0x80000000);
        QTest::newRow("2^32-1") << quint32(0xffffffff);
    }
    void lengthOverTheLimit()
    {
        QFETCH(quint32, length);
        FrameDecoder decoder;
        // The length alone is enough: no body is waited for, nor kept room for.
        QVERIFY(feed(decoder, withLength(length).left(12)).empty());
        QVERIFY(decoder.error() == FrameDecoder::Error::Length);
    }

    void garbageBeforeAFrame()
    {
        for (const QByteArray &garbage :
             {QByteArray("G"), QByteArray("RCPK"), QByteArray(1, '\0')}) {
            FrameDecoder decoder;
            QVERIFY(feed(decoder, garbage + wire::encodeFrame(1, "x")).empty());
            QVERIFY(decoder.error() == FrameDecoder::Error::Magic);
        }
    }

    void strangersFirstByteIsEnough()
    {
        FrameDecoder decoder;
        feed(decoder, "H");
        QVERIFY(decoder.error() == FrameDecoder::Error::Magic);
    }

    void otherVersion()
    {
        QByteArray frame = wire::encodeFrame(1, "x");
        qToBigEndian(quint16(wire::kFrameVersion + 1), frame.data() + 4);
        FrameDecoder decoder;
        QVERIFY(feed(decoder, frame.left(6)).empty());
        QVERIFY(decoder.error() == FrameDecoder::Error::Version);
    }

    void everyFlippedBitIsFound()
    {
        const QByteArray good = wire::encodeFrame(0x4603, "{\"robot\":1}\n");
        for (int bit = 0; bit < good.size() * 8; ++bit) {
            QByteArray bad = good;
            bad[bit / 8] = static_cast<char>(bad.at(bit / 8) ^ (1 << bit % 8));
            FrameDecoder decoder;
            // A frame that has become longer is found out by what follows.
            const std::vector<Frame> frames = feed(decoder, bad + QByteArray(64 * 1024, 'R'));
            QVERIFY2(frames.empty(), qPrintable(QString::number(bit)));
        }
    }

    void goodFramesBeforeABadOne()
    {
        QByteArray bad = wire::encodeFrame(2, "two");
        bad[bad.size() - 1] = '!';
        FrameDecoder decoder;
        const std::vector<Frame> frames =
            feed(decoder, wire::encodeFrame(1, "one") + bad + wire::encodeFrame(3, "three"));
        QCOMPARE(frames.size(), size_t(1));
        QCOMPARE(frames[0].body, QByteArray("one"));
        QVERIFY(decoder.error() == FrameDecoder::Error::Checksum);
    }

    void nothingIsReadAfterAnError()
    {
        FrameDecoder decoder;
        feed(decoder, "garbage");
        const QByteArray frame = wire::encodeFrame(1, "x");
        QCOMPARE(decoder.read(frame.constData(), static_cast<int>(frame.size())), 0);
        QVERIFY(!decoder.hasFrame());
        QVERIFY(decoder.failed());
    }

    void nothingIsReadWhileAFrameWaits()
    {
        const QByteArray two = wire::encodeFrame(1, "x") + wire::encodeFrame(2, "y");
        FrameDecoder decoder;
        const int first = decoder.read(two.constData(), static_cast<int>(two.size()));
        QCOMPARE(first, static_cast<int>(two.size()) / 2);
        QCOMPARE(decoder.read(two.constData() + first, first), 0);
        QCOMPARE(decoder.take().id, quint16(1));
        QCOMPARE(decoder.read(two.constData() + first, first), first);
        QCOMPARE(decoder.take().id, quint16(2));
    }

private:
    static const QByteArray kChecksumOfExample;
};

// Python: zlib.crc32(bytes.fromhex("5243504c0001460200000002") + b"{}")
const QByteArray TestFrame::kChecksumOfExample("795ded64");

QTEST_GUILESS_MAIN(TestFrame)
#include "test_frame.moc"
