#pragma once
// Raised by a failed check of the services: what() is the text of the condition that failed.
#include "ORXBasException.h"

class ORXBasAssertException : public ORXBasException
{
public:
    explicit ORXBasAssertException(ORXString const& conditionText) : ORXBasException(conditionText) {}
    void Throw(char const* file, int line) override;
};
