#include "getfont.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QStringList>

namespace {

QStringList chineseFamilies()
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return QFontDatabase::families(QFontDatabase::SimplifiedChinese);
#else
    return QFontDatabase().families(QFontDatabase::SimplifiedChinese);
#endif
}

QString chooseFamily()
{
    const QStringList preferred = {QStringLiteral("WenQuanYi Micro Hei"),
                                   QStringLiteral("Noto Sans CJK SC")};
    const QStringList present = chineseFamilies();
    for (const QString &family : preferred) {
        for (const QString &candidate : present) {
            // A foundry may follow the name: "Noto Sans CJK SC [Goog]".
            if (candidate == family || candidate.startsWith(family + QStringLiteral(" [")))
                return candidate;
        }
    }
    return present.isEmpty() ? preferred.first() : present.first();
}

} // namespace

QString GetFont::getfonts()
{
    // Fonts can be listed only once the application object is there.
    if (!qGuiApp)
        return QStringLiteral("WenQuanYi Micro Hei");
    static const QString family = chooseFamily();
    return family;
}
