#pragma once
// A closed range of integers: first is the lowest member, second the highest.
struct ORXSimIntRange
{
    int first;
    int second;
};
