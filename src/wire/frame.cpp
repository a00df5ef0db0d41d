#include "wire/frame.h"

#include "wire/checksum.h"

#include <QtEndian>
#include <algorithm>
#include <cstring>
#include <utility>

namespace wire {

namespace {

constexpr char kMagic[4] = {'R', 'C', 'P', 'L'};
constexpr int kVersionAt = 4;
constexpr int kIdAt = 6;
constexpr int kLengthAt = 8;
constexpr int kChecksumAt = 12;

quint32 checksum(const char *header, const QByteArray &body)
{
    return crc32(crc32(0, header, kChecksumAt), body.constData(), static_cast<int>(body.size()));
}

} // namespace

FrameHeader frameHeader(quint16 id, const QByteArray &body)
{
    FrameHeader header;
    char *bytes = header.data();
    std::copy(std::begin(kMagic), std::end(kMagic), bytes);
    qToBigEndian<quint16>(kFrameVersion, bytes + kVersionAt);
    qToBigEndian<quint16>(id, bytes + kIdAt);
    qToBigEndian<quint32>(static_cast<quint32>(body.size()), bytes + kLengthAt);
    qToBigEndian<quint32>(checksum(bytes, body), bytes + kChecksumAt);
    return header;
}

QByteArray encodeFrame(quint16 id, const QByteArray &body)
{
    const FrameHeader header = frameHeader(id, body);
    return QByteArray(header.data(), kHeaderSize) + body;
}

int FrameDecoder::read(const char *data, int size)
{
    if (m_whole || failed() || size <= 0)
        return 0;
    int taken = 0;
    if (m_headerSize < kHeaderSize) {
        taken = readHeader(data, size);
        checkHeader();
        if (failed() || m_headerSize < kHeaderSize)
            return taken;
        m_frame.id = qFromBigEndian<quint16>(m_header + kIdAt);
        m_frame.body = QByteArray(m_bodyLength, Qt::Uninitialized);
        m_bodySize = 0;
    }
    const int part = std::min(size - taken, m_bodyLength - m_bodySize);
    if (part > 0) {
        std::memcpy(m_frame.body.data() + m_bodySize, data + taken, static_cast<size_t>(part));
        m_bodySize += part;
        taken += part;
    }
    if (m_bodySize == m_bodyLength)
        finish();
    return taken;
}

Frame FrameDecoder::take()
{
    m_whole = false;
    m_headerSize = 0;
    return std::exchange(m_frame, {});
}

int FrameDecoder::readHeader(const char *data, int size)
{
    const int part = std::min(size, kHeaderSize - m_headerSize);
    std::memcpy(m_header + m_headerSize, data, static_cast<size_t>(part));
    m_headerSize += part;
    return part;
}

// Each field is judged as soon as it is there, so that a stranger is shown the door at its first
// byte and not when sixteen have come together.
void FrameDecoder::checkHeader()
{
    if (std::memcmp(m_header, kMagic, static_cast<size_t>(std::min(m_headerSize, kVersionAt)))
        != 0) {
        m_error = Error::Magic;
        return;
    }
    if (m_headerSize >= kIdAt && qFromBigEndian<quint16>(m_header + kVersionAt) != kFrameVersion) {
        m_error = Error::Version;
        return;
    }
    if (m_headerSize >= kChecksumAt) {
        const quint32 length = qFromBigEndian<quint32>(m_header + kLengthAt);
        if (length > static_cast<quint32>(m_maxBody)) {
            m_error = Error::Length;
            return;
        }
        m_bodyLength = static_cast<int>(length);
    }
}

void FrameDecoder::finish()
{
    if (qFromBigEndian<quint32>(m_header + kChecksumAt) != checksum(m_header, m_frame.body)) {
        m_error = Error::Checksum;
        m_frame = {};
        return;
    }
    m_whole = true;
}

const char *describe(FrameDecoder::Error error)
{
    switch (error) {
    case FrameDecoder::Error::None:
        return "no error";
    case FrameDecoder::Error::Magic:
        return "the bytes are no frame of this protocol";
    case FrameDecoder::Error::Version:
        return "the frame has another version";
    case FrameDecoder::Error::Length:
        return "the frame is longer than allowed";
    case FrameDecoder::Error::Checksum:
        return "the frame's checksum is wrong";
    }
    return "";
}

} // namespace wire
