#include "analysis/Zernike.h"

#include "analysis/ZernikeTerms.h"

namespace morvane {

ZernikeSet EvalZernikeTerms(double X, double Y)
{
    ZernikeSet terms;
    WriteZernikeTerms(X, Y, terms.data(), 1);
    return terms;
}

double EvalZernikeWithTerms(const ZernikeSet& Terms, const ZernikeSet& Coefficients)
{
    double sum = 0;
    for (int i = 0; i < NumZernikes; ++i)
        sum += Coefficients[i] * Terms[i];
    return sum;
}

double EvalZernike(double X, double Y, const ZernikeSet& Coefficients)
{
    return EvalZernikeWithTerms(EvalZernikeTerms(X, Y), Coefficients);
}

void Remove(const RemoveFlags& Flags, ZernikeSet& Coefficients)
{
    if (Flags.Tilt)
        Coefficients[0] = Coefficients[1] = 0;
    if (Flags.Focus)
        Coefficients[2] = 0;
    if (Flags.Astigmatism)
        Coefficients[3] = Coefficients[4] = 0;
    if (Flags.Coma)
        Coefficients[5] = Coefficients[6] = 0;
    if (Flags.Spherical)
        Coefficients[7] = 0;
}

} // namespace morvane
