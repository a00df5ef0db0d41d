#include "setfontsize.h"

#include "getfont.h"

QFont SetFontSize::setSize(int points)
{
    return QFont(GetFont::getfonts(), points);
}
