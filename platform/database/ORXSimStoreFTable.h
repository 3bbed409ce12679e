#pragma once
// A stored function table: labelled columns over rows of doubles, row-major.
#include "ORXString.h"

#include <vector>

class ORXSimStoreFTable
{
public:
    int rows = 0;
    int columns = 0;
    std::vector<ORXString> labels;
    std::vector<double> values;
};
