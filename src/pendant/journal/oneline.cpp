#include "oneline.h"

namespace {

QString hidden(uint character)
{
    switch (character) {
    case '\t':
        return QStringLiteral("\\t");
    case '\n':
        return QStringLiteral("\\n");
    case '\r':
        return QStringLiteral("\\r");
    case '\\':
        return QStringLiteral("\\\\");
    default:
        break;
    }
    switch (QChar::category(character)) {
    case QChar::Other_Control:
        return QStringLiteral("\\x%1").arg(character, 2, 16, QLatin1Char('0'));
    case QChar::Other_Format:
    case QChar::Other_Surrogate:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return QStringLiteral("\\u{%1}").arg(character, 0, 16);
    default:
        return {};
    }
}

} // namespace

QString oneLine(const QString &text)
{
    QString out;
    out.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        const QChar first = text.at(i);
        if (first.unicode() >= ' ' && first.unicode() < 0x7f && first != QLatin1Char('\\')) {
            out += first;
            continue;
        }
        const bool isPair =
            first.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        const QString shown =
            hidden(isPair ? QChar::surrogateToUcs4(first, text.at(i + 1)) : uint(first.unicode()));
        if (!shown.isEmpty())
            out += shown;
        else
            out += first;
        if (isPair && shown.isEmpty())
            out += text.at(i + 1);
        i += isPair ? 1 : 0;
    }
    return out;
}
