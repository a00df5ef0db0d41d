#pragma once

#include "wire/json.h"

#include <QByteArray>
#include <QtGlobal>
#include <array>

/// Frames: what crosses the TCP connection between pendant and controller.
///
/// A frame is a header of 16 bytes and a body of 0 to kMaxBody bytes. All numbers are unsigned and
/// in network byte order:
///
///     offset  bytes  content
///     0       4      magic "RCPL"
///     4       2      version of this layout, kFrameVersion
///     6       2      message id
///     8       4      length of the body
///     12      4      CRC-32 (as zlib computes it) over bytes 0 to 11 and the body
///     16      n      body
namespace wire {

constexpr int kHeaderSize = 16;
constexpr quint16 kFrameVersion = 1;

struct Frame {
    quint16 id = 0;
    QByteArray body;
};

using FrameHeader = std::array<char, kHeaderSize>;

/// What stands before `body` in its frame. `body` must not be longer than kMaxBody.
FrameHeader frameHeader(quint16 id, const QByteArray &body);
/// The bytes of a whole frame.
QByteArray encodeFrame(quint16 id, const QByteArray &body);

/// Makes frames of a stream of bytes that arrives in pieces of any size. The first bad frame is the
/// last thing it reads: there is no way back into step with a stream that has lost it.
class FrameDecoder {
public:
    enum class Error { None, Magic, Version, Length, Checksum };

    /// The longest body from the next frame on, 0 to kMaxBody; without this call it is kMaxBody.
    void setMaxBody(int size) { m_maxBody = size; }

    /// Reads from `data` up to the end of the current frame, at most `size` bytes, and returns how
    /// many it took. Whole frames have to be fetched with take() before more is read: the call
    /// takes nothing while one is waiting, nor after an error.
    int read(const char *data, int size);

    bool hasFrame() const { return m_whole; }
    /// The frame that is waiting; valid when hasFrame().
    Frame take();

    Error error() const { return m_error; }
    bool failed() const { return m_error != Error::None; }
    /// True within a frame: the stream may not end here.
    bool isInsideFrame() const { return !m_whole && m_headerSize > 0; }

private:
    int readHeader(const char *data, int size);
    void checkHeader();
    void finish();

    char m_header[kHeaderSize] = {};
    int m_headerSize = 0;
    int m_bodySize = 0;
    int m_maxBody = kMaxBody;
    int m_bodyLength = 0; ///< as the header says, once it is complete
    bool m_whole = false;
    Error m_error = Error::None;
    Frame m_frame;
};

/// What an error means, in English, for the journal.
const char *describe(FrameDecoder::Error error);

} // namespace wire
