#include "ORXBasException.h"

void ORXBasException::Throw(char const* file, int line)
{
    SetWhere(file, line);
    throw *this;
}
