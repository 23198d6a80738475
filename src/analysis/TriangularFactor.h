// The square-root-free triangular factorisation of a covariance matrix, without pivoting: the
// terms are made orthogonal to those before them, in their order.
#pragma once
#include <array>
#include <span>

#include "analysis/Zernike.h"

namespace morvane {

// Covariances of the terms, row >= column.
using TermCovariances = std::array<std::array<double, NumZernikes>, NumZernikes>;

class TriangularFactor {
public:
    // Factorises the first NumTerms rows and columns, 1 to NumZernikes.
    TriangularFactor(const TermCovariances& Covariances, int NumTerms);

    // A term depends exactly on those before it. There is no tolerance: a nearly dependent term
    // passes.
    bool IsSingular() const { return m_isSingular; }

    // The least part of a term's variance that the terms before it leave unexplained, 1 for
    // orthogonal terms; about the square of the smallest singular value over the largest.
    double LeastPivotShare() const { return m_leastPivotShare; }

    // The coefficients whose covariances with the terms are RightSide, 0 beyond NumTerms. Must not
    // be asked of a singular matrix.
    ZernikeSet Solve(std::span<const double> RightSide) const;

private:
    int m_numTerms;
    bool m_isSingular = false;
    double m_leastPivotShare = 1;
    std::array<double, NumZernikes> m_pivots{};
    TermCovariances m_upper{}; // row < column
};

} // namespace morvane
