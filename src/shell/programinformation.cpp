#include "shell/programinformation.h"

#include <utility>

void ProgramInformation::clear()
{
    QString kept = std::move(name);
    *this = ProgramInformation();
    name = std::move(kept);
}
