#pragma once
// Raised by the database for a use it cannot serve: a view that does not fit a distribution, a
// buffer of the wrong size, a closed document, an identity that names nothing. what() says what
// did not fit.
#include "ORXBasException.h"

class ORXSimDatabaseException : public ORXBasException
{
public:
    explicit ORXSimDatabaseException(ORXString const& text) : ORXBasException(text) {}
    void Throw(char const* file, int line) override;
};
