#pragma once
// The point set of an element specification: its stored set when it has one, otherwise the points
// 0 to n - 1 of the document's point collection, n following from the element's shape (and, for
// the "AXA" family of names, from the digit that ends the name).
#include "ORXSimCSet.h"
#include "ORXSimPosition.h"

ORXSimCSet ORXSrvGetPointSetFromElementSpec(ORXSimPosition const& elementSpec);
