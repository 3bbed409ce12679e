#pragma once
// Stored number of a value type: 2 is an int, 4 a double, 7 an int naming a member of a collection.
typedef int ORXSimTypeKey;
