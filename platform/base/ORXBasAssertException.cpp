#include "ORXBasAssertException.h"

void ORXBasAssertException::Throw(char const* file, int line)
{
    SetWhere(file, line);
    throw *this;
}
