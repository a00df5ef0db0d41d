#include "jobscanner.h"

#include <QTextCodec>
#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

/// Nothing when the bytes are no UTF-8.
bool decode(const char *bytes, int size, QString &value)
{
    if (std::all_of(bytes, bytes + size,
                    [](char byte) { return static_cast<unsigned char>(byte) < 0x80; })) {
        value = QString::fromLatin1(bytes, size);
        return true;
    }
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const QString text = QTextCodec::codecForName("UTF-8")->toUnicode(bytes, size, &state);
    if (state.invalidChars > 0 || state.remainingChars > 0)
        return false;
    value = text;
    return true;
}

/// A byte that never stands as itself in a text.
bool isEscaped(int byte)
{
    return byte < 0x20 || byte == 0x7f;
}

int hexDigit(char digit)
{
    const std::string_view digits = "0123456789abcdef";
    const std::size_t at = digits.find(digit);
    return at == std::string_view::npos ? -1 : static_cast<int>(at);
}

} // namespace

bool JobScanner::take(std::string_view expected)
{
    if (static_cast<std::size_t>(m_end - m_at) < expected.size()
        || !std::equal(expected.begin(), expected.end(), m_at))
        return false;
    m_at += expected.size();
    return true;
}

bool JobScanner::takeAll(std::string_view expected)
{
    return static_cast<std::size_t>(m_end - m_at) == expected.size() && take(expected);
}

std::string_view JobScanner::word()
{
    const char *begin = m_at;
    m_at = std::find(m_at, m_end, ' ');
    return {begin, static_cast<std::size_t>(m_at - begin)};
}

QString JobScanner::rest() const
{
    return QString::fromUtf8(m_at, static_cast<int>(m_end - m_at));
}

template <class Number> bool JobScanner::readNumber(Number &value)
{
    Number number = {};
    const auto [stop, error] = std::from_chars(m_at, m_end, number);
    if (error != std::errc())
        return false;
    m_at = stop;
    value = number;
    return true;
}

bool JobScanner::read(int &value)
{
    return readNumber(value);
}

bool JobScanner::read(unsigned char &value)
{
    return readNumber(value);
}

bool JobScanner::read(double &value)
{
    double number = 0.0;
    if (!readNumber(number) || !std::isfinite(number))
        return false;
    value = number;
    return true;
}

bool JobScanner::read(QString &value)
{
    if (m_at == m_end || *m_at != '"')
        return false;
    QByteArray bytes;
    const char *at = m_at + 1;
    const char *plain = at; // what is not yet in `bytes`
    for (; at < m_end && *at != '"'; ++at) {
        if (isEscaped(static_cast<unsigned char>(*at)))
            return false;
        if (*at != '\\')
            continue;
        bytes.append(plain, static_cast<int>(at - plain));
        const std::ptrdiff_t left = m_end - at;
        if (left >= 2 && (at[1] == '"' || at[1] == '\\')) {
            bytes.append(at[1]);
            at += 1;
        } else if (left >= 4 && at[1] == 'x' && hexDigit(at[2]) >= 0 && hexDigit(at[3]) >= 0) {
            const int byte = hexDigit(at[2]) * 16 + hexDigit(at[3]);
            if (!isEscaped(byte))
                return false;
            bytes.append(static_cast<char>(byte));
            at += 3;
        } else {
            return false;
        }
        plain = at + 1;
    }
    if (at == m_end)
        return false;
    bool isText = false;
    if (bytes.isEmpty()) {
        isText = decode(plain, static_cast<int>(at - plain), value);
    } else {
        bytes.append(plain, static_cast<int>(at - plain));
        isText = decode(bytes.constData(), static_cast<int>(bytes.size()), value);
    }
    if (isText)
        m_at = at + 1;
    return isText;
}
