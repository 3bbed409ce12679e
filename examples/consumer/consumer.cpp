// Builds against the installed package: one header, one imported target.
#include <ORXSrvBasic.h>

#include <cstdio>

int main()
{
    ORXString text("consumer");
    text += 1;
    std::printf("%s\n", text.CStr());

    // Averages two points into one, for two components.
    float const matrix[2] = {0.5f, 0.5f};
    double const input[4] = {1.0, 10.0, 3.0, 30.0};
    double output[2] = {};
    ORXSrvExtrapolation::ExtrapolateDoublePrecision(2, 1, 2, 1, input, output, matrix);
    std::printf("extrapolated: %g %g\n", output[0], output[1]);

    return text == "consumer1" && output[0] == 2.0 && output[1] == 20.0 ? 0 : 1;
}
