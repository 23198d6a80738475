#include "analysis/TriangularFactor.h"

#include <algorithm>
#include <cmath>

namespace morvane {

TriangularFactor::TriangularFactor(const TermCovariances& Covariances, int NumTerms)
    : m_numTerms(NumTerms)
{
    for (int c = 0; c < m_numTerms && !m_isSingular; ++c) {
        double& pivot = m_pivots[c];
        pivot = Covariances[c][c];
        for (int r = 0; r < c; ++r) {
            double explained = 0;
            for (int q = 0; q < r; ++q)
                explained += m_upper[q][r] * m_upper[q][c] / m_pivots[q];
            m_upper[r][c] = Covariances[c][r] - explained;
            pivot -= m_upper[r][c] * m_upper[r][c] / m_pivots[r];
        }
        m_leastPivotShare = std::min(m_leastPivotShare, std::abs(pivot / Covariances[c][c]));
        m_isSingular = pivot == 0.0;
    }
}

ZernikeSet TriangularFactor::Solve(std::span<const double> RightSide) const
{
    ZernikeSet solution{};
    for (int r = 0; r < m_numTerms; ++r) {
        double explained = 0;
        for (int q = 0; q < r; ++q)
            explained += m_upper[q][r] * solution[q];
        solution[r] = (RightSide[r] - explained) / m_pivots[r];
    }
    for (int i = m_numTerms - 1; i >= 0; --i)
        for (int j = i + 1; j < m_numTerms; ++j)
            solution[i] -= m_upper[i][j] * solution[j] / m_pivots[i];
    return solution;
}

} // namespace morvane
