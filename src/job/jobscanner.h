#pragma once

#include <QString>
#include <string_view>

/// Reads one line of a stored job from left to right. Whatever does not fit takes nothing.
class JobScanner {
public:
    JobScanner(const char *begin, const char *end) : m_at(begin), m_end(end) { }

    /// Goes past `expected`, if it comes next.
    bool take(std::string_view expected);
    /// The same, if nothing else is left.
    bool takeAll(std::string_view expected);
    /// What stands up to the next blank or the end.
    std::string_view word();
    bool atEnd() const { return m_at == m_end; }
    /// What is left, as far as it is text.
    QString rest() const;

    // A value, if one comes next that is in range; real numbers are finite.
    bool read(int &value);
    bool read(unsigned char &value);
    bool read(double &value);
    /// In quotes, UTF-8; \" and \\ stand for these two, \xHH for one byte below 0x20 or 0x7f, none
    /// of which stands as itself.
    bool read(QString &value);

private:
    template <class Number> bool readNumber(Number &value);

    const char *m_at;
    const char *m_end;
};
