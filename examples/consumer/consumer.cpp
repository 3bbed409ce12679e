// Builds against the installed package: one header, one imported target.
#include <ORXSrvBasic.h>

#include <cstdio>

int main()
{
    ORXString text("consumer");
    text += 1;
    std::printf("%s\n", text.CStr());
    return text == "consumer1" ? 0 : 1;
}
