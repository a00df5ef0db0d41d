#include "jobname.h"

#include <QChar>
#include <QVector>
#include <algorithm>
#include <iterator>

namespace {

struct CodeRange {
    char32_t first;
    char32_t last;
};

/// Characters that show nothing though their category says nothing of it. The others that Unicode
/// calls default-ignorable are of the category Format or unassigned.
constexpr CodeRange kInvisible[] = {
    {U'\u034f', U'\u034f'}, // joiner of graphemes
    {U'\u115f', U'\u1160'}, // fillers
    {U'\u17b4', U'\u17b5'}, // vowels without a form
    {U'\u180b', U'\u180f'}, // variation selectors
    {U'\u2800', U'\u2800'}, // braille pattern without a dot
    {U'\u3164', U'\u3164'}, // filler
    {U'\ufe00', U'\ufe0f'}, // variation selectors
    {U'\uffa0', U'\uffa0'}, // filler
    {U'\U000e0100', U'\U000e01ef'}, // variation selectors
};

bool isInvisible(uint character)
{
    return std::any_of(std::begin(kInvisible), std::end(kInvisible), [=](const CodeRange &range) {
        return character >= range.first && character <= range.last;
    });
}

/// Letters, digits, marks, punctuation, symbols and blanks; nothing that is invisible or
/// unassigned.
bool isPlainCharacter(uint character)
{
    if (isInvisible(character))
        return false;
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Other_Surrogate:
    case QChar::Other_PrivateUse:
    case QChar::Other_NotAssigned:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return false;
    default:
        return true;
    }
}

} // namespace

bool jobname::isValid(const QString &name)
{
    static const QString forbidden = QStringLiteral("/\\:*?\"<>|");
    if (name.isEmpty() || name != name.trimmed() || name.startsWith(QLatin1Char('.'))
        || name.endsWith(QLatin1Char('.')) || name.at(0).isMark())
        return false;
    if (!name.isValidUtf16() || name.toUtf8().size() > kMaxBytes
        || name != name.normalized(QString::NormalizationForm_C))
        return false;
    const auto characters = name.toUcs4();
    return std::all_of(characters.begin(), characters.end(), [](uint character) {
        return isPlainCharacter(character)
            && (character > 0xffff || !forbidden.contains(QChar(static_cast<ushort>(character))));
    });
}
