#include "analysis/modFit.h"

#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "analysis/ZernikeReference.h"

namespace morvane {

namespace {

constexpr int MaskSize = 400;
constexpr Point Middle{199.3, 201.1};

clsShape ellipse(double ratio, double angle)
{
    clsShape shape(ShapeRole::Aperture);
    shape.SetShapeType(ShapeKind::Ellipse);
    shape.SetCenter(Middle);
    shape.SetRadii({190, 190 * ratio});
    shape.SetAngle(angle);
    return shape;
}

clsShape circle(Point radii)
{
    clsShape shape(ShapeRole::Aperture);
    shape.SetShapeType(ShapeKind::Circle);
    shape.SetCenter(Middle);
    shape.SetRadii(radii);
    return shape;
}

clsShape polygon(const std::vector<Point>& vertices)
{
    clsShape shape(ShapeRole::Aperture);
    shape.Save(ShapeKind::Polygon, vertices);
    return shape;
}

struct PointList {
    std::vector<double> X, Y, Z;

    void Add(double x, double y, double z)
    {
        X.push_back(x);
        Y.push_back(y);
        Z.push_back(z);
    }
    FitSamples Samples() const { return {X, Y, Z}; }
};

// A mask that is all inside, in the middle of the unit circle; by default it fits into that.
struct Field {
    std::vector<std::uint8_t> Cells;
    MaskView Mask;
    Pupil Frame;

    explicit Field(int size = MaskSize) : Field(size, size * 0.71, ShapeKind::Circle) { }
    Field(int size, double radius, ShapeKind kind)
        : Cells(static_cast<std::size_t>(size) * size, MaskInside), Mask{Cells, size, size},
          Frame{size / 2.0, size / 2.0, 1 / radius, 1 / radius, kind}
    {
    }
    int Fit(const PointList& points, int& numTerms, ZernikeSet& coefficients) const
    {
        return FitFringeCenters(points.Samples(), Mask, Frame, numTerms, coefficients);
    }
};

PointList scatteredPoints(int count, int size = MaskSize)
{
    std::mt19937 random(11);
    std::uniform_real_distribution<double> position(0, size - 1), height(-3, 3);
    PointList points;
    for (int i = 0; i < count; ++i)
        points.Add(position(random), position(random), height(random));
    return points;
}

bool isAllZero(const ZernikeSet& coefficients)
{
    return coefficients == ZernikeSet{};
}

} // namespace

TEST(FitFringeCenters, ReturnsTheCoefficientsThatMadeTheSamples)
{
    const struct {
        const char* Name;
        clsShape Aperture;
        int NumPoints, NumTerms; // terms: what the aperture carries
    } cases[] = {
        {"circle", circle({190, 190}), 800, 36},
        {"circle, few points", circle({190, 190}), 110, 36},
        {"oval circle", circle({190, 120}), 800, 36},
        {"ellipse 0.7", ellipse(0.7, 0.4), 800, 36},
        {"ellipse 0.3", ellipse(0.3, -1.1), 2500, 36},
        {"ellipse 0.1", ellipse(0.1, 0.8), 9000, 36},
        {"square", polygon({{10, 10}, {390, 10}, {390, 390}, {10, 390}}), 800, 36},
        {"triangle", polygon({{200, 10}, {390, 330}, {10, 330}}), 800, 24},
        {"strip", polygon({{10, 100}, {390, 140}, {390, 190}, {10, 150}}), 2500, 8},
    };
    constexpr double tolerance = 1e-9; // waves, what the program promises
    for (const auto& c : cases) {
        std::mt19937 random(1);
        std::uniform_real_distribution<double> position(0, MaskSize), amount(-1, 1);
        ZernikeSet truth{};
        for (int i = 0; i < c.NumTerms; ++i)
            truth[i] = amount(random);
        truth[0] = 40; // fringes

        clsShape aperture = c.Aperture;
        Pupil frame;
        frame.SetScalefactors(aperture);
        clsMask mask;
        ASSERT_TRUE(mask.CreateMask(MaskSize, MaskSize));
        mask.UpdateApertureMask(aperture, false);

        PointList points;
        int numInside = 0;
        for (int i = 0; i < c.NumPoints; ++i) {
            const double x = position(random), y = position(random);
            const bool isInside = mask.View().IsInside(
                static_cast<int>(std::lrint(x)), static_cast<int>(std::lrint(y)));
            numInside += isInside ? 1 : 0;
            const double piston = 17; // any constant is absorbed
            const double height = ReferenceWavefront(truth,
                (static_cast<long double>(x) - frame.CenterX) * frame.ScaleX,
                (static_cast<long double>(y) - frame.CenterY) * frame.ScaleY);
            points.Add(x, y, isInside ? piston + height : 1e6); // outside must not count
        }
        int numTerms = NumZernikes;
        ZernikeSet found;
        found.fill(99);
        EXPECT_EQ(
            FitFringeCenters(points.Samples(), mask.View(), frame, numTerms, found), numInside)
            << c.Name;
        EXPECT_EQ(numTerms, c.NumTerms) << c.Name;
        for (int i = 0; i < NumZernikes; ++i)
            EXPECT_NEAR(found[i], truth[i], tolerance) << c.Name << " term " << i + 1;
    }
}

TEST(FitFringeCenters, LeavesNoiseThatNoTermExplains)
{
    const Field field;
    const PointList points = scatteredPoints(1500);
    for (const int requested : {8, 36}) {
        int numTerms = requested;
        ZernikeSet found{};
        ASSERT_EQ(field.Fit(points, numTerms, found), 1500);
        ZernikeSet products{}, means{};
        double mean = 0;
        for (int n = 0; n < 1500; ++n) {
            const double x = (points.X[n] - field.Frame.CenterX) * field.Frame.ScaleX;
            const double y = (points.Y[n] - field.Frame.CenterY) * field.Frame.ScaleY;
            const ZernikeSet terms = EvalZernikeTerms(x, y);
            const double residual = points.Z[n] - EvalZernikeWithTerms(terms, found);
            mean += residual / 1500;
            for (int i = 0; i < requested; ++i) {
                means[i] += terms[i] / 1500;
                products[i] += terms[i] * residual / 1500;
            }
        }
        constexpr double rounding = 1e-13;
        for (int i = 0; i < requested; ++i)
            EXPECT_NEAR(products[i], means[i] * mean, rounding) << requested << " term " << i + 1;
        for (int i = requested; i < NumZernikes; ++i)
            EXPECT_EQ(found[i], 0) << requested << " term " << i + 1;
    }
}

TEST(FitFringeCenters, ChoosesTheNumberOfTermsByTheNumberOfPoints)
{
    const struct {
        int NumPoints, NumTerms;
    } cases[] = {{4, 2}, {5, 8}, {25, 8}, {26, 15}, {40, 15}, {41, 24}, {70, 24}, {71, 36}};
    const Field field;
    for (const auto& c : cases) {
        PointList points = scatteredPoints(c.NumPoints);
        points.X.front() = -50; // a point off the mask is counted here all the same
        int numTerms = 0;
        ZernikeSet found;
        EXPECT_EQ(field.Fit(points, numTerms, found), c.NumPoints - 1);
        EXPECT_EQ(numTerms, c.NumTerms) << c.NumPoints;
    }
}

TEST(FitFringeCenters, HoldsAPolygonThatCoversLittleToFewTerms)
{
    // A radius of 50 cells: the circle has round(7853.98) of them.
    const struct {
        int NumInside, Requested;
        ShapeKind Kind;
        int NumTerms;
    } cases[] = {
        {1570, 36, ShapeKind::Polygon, 8},
        {1571, 36, ShapeKind::Polygon, 15},
        {3141, 36, ShapeKind::Polygon, 15},
        {3142, 36, ShapeKind::Polygon, 24},
        {4712, 36, ShapeKind::Polygon, 24},
        {4713, 36, ShapeKind::Polygon, 36},
        {2356, 24, ShapeKind::Polygon, 15},
        {2356, 8, ShapeKind::Polygon, 8},
        {2356, 0, ShapeKind::Polygon, 15},
        {2356, 0, ShapeKind::Circle, 36},
        {0, 36, ShapeKind::Polygon, 8},
    };
    const PointList points = scatteredPoints(200, 100);
    for (const auto& c : cases) {
        Field field(100, 50, c.Kind);
        std::fill(field.Cells.begin() + c.NumInside, field.Cells.end(), MaskObstruction);
        int numTerms = c.Requested;
        ZernikeSet found;
        field.Fit(points, numTerms, found);
        EXPECT_EQ(numTerms, c.NumTerms) << c.NumInside << " of " << c.Requested;
        for (int i = numTerms; i < NumZernikes; ++i)
            EXPECT_EQ(found[i], 0);
    }
}

TEST(FitFringeCenters, ChangesNothingWithoutPointsOrMask)
{
    const Field field, tiny(1);
    const PointList none, three = scatteredPoints(3), many = scatteredPoints(100);
    const struct {
        const char* Name;
        const PointList& Points;
        MaskView Mask;
    } cases[] = {
        {"no points", none, field.Mask},
        {"three points", three, field.Mask},
        {"no mask", many, MaskView{}},
        {"1 by 1", many, tiny.Mask},
        {"1 wide", many, {field.Cells, 1, 100}},
        {"1 high", many, {field.Cells, 100, 1}},
    };
    for (const auto& c : cases) {
        int numTerms = 0;
        ZernikeSet coefficients;
        coefficients.fill(0.5);
        EXPECT_EQ(FitFringeCenters(c.Points.Samples(), c.Mask, field.Frame, numTerms, coefficients),
            static_cast<int>(c.Points.X.size()))
            << c.Name;
        EXPECT_EQ(numTerms, 0) << c.Name;
        EXPECT_EQ(coefficients[0], 0.5) << c.Name;
        EXPECT_EQ(coefficients[35], 0.5) << c.Name;
    }
}

TEST(FitFringeCenters, IsAllZeroWhereATermDependsOnThoseBefore)
{
    PointList cross, column, outside = scatteredPoints(80);
    for (int i = 0; i < 100; ++i) {
        const double along = 20 + 3.5 * i;
        cross.Add(i % 2 == 0 ? along : 200, i % 2 == 0 ? 200 : along, 0.01 * i);
        column.Add(200, along, 0.01 * i);
    }
    for (double& x : outside.X)
        x += MaskSize;
    const struct {
        const char* Name;
        const PointList& Points;
        int NumTerms;
        bool IsZero;
    } cases[] = {
        {"x y is 0 on the axes: term 5", cross, 8, true},
        {"four terms do without it", cross, 4, false},
        {"x is 0: term 1", column, 2, true},
        {"no sample", outside, 8, true},
        {"no term", cross, -1, true},
    };
    const Field field;
    for (const auto& c : cases) {
        int numTerms = c.NumTerms;
        ZernikeSet found;
        found.fill(99);
        EXPECT_EQ(field.Fit(c.Points, numTerms, found),
            &c.Points == &outside ? 0 : static_cast<int>(c.Points.X.size()))
            << c.Name;
        EXPECT_EQ(isAllZero(found), c.IsZero) << c.Name;
    }
}

TEST(FitFringeCenters, TakesAPointByTheCellItRoundsTo)
{
    const double infinite = std::numeric_limits<double>::infinity();
    const struct {
        double X;
        bool Counts;
    } cases[] = {
        {0, true},
        {-0.5, true},
        {-0.51, false},
        {99, true},
        {99.49, true},
        {99.5, false},
        {99.6, false},
        {50.5, false}, // cell 50 is outside
        {51.5, true},
        {49.5, false},
        {48.5, true},
        {1e300, false},
        {-1e300, false},
        {infinite, false},
        {-infinite, false},
        {std::nan(""), false},
    };
    Field field(100);
    for (int row = 0; row < 100; ++row)
        field.Cells[static_cast<std::size_t>(row) * 100 + 50] = MaskOutside;
    for (const auto& c : cases) {
        PointList points = scatteredPoints(40, 40);
        points.Add(c.X, 20, 1);
        int numTerms = 8;
        ZernikeSet found;
        EXPECT_EQ(field.Fit(points, numTerms, found), c.Counts ? 41 : 40) << c.X;
    }
}

TEST(FitFringeCenters, OfOneOrderIsFlat)
{
    const Field field;
    PointList points = scatteredPoints(300);
    points.Z.assign(300, 12);
    int numTerms = 15;
    ZernikeSet found;
    field.Fit(points, numTerms, found);
    for (int i = 0; i < NumZernikes; ++i)
        EXPECT_NEAR(found[i], 0, 1e-12) << "term " << i + 1;
}

TEST(FitFringeCenters, StaysFiniteWithHostileNumbers)
{
    PointList huge = scatteredPoints(100), same, line;
    huge.Z.assign(100, 1e308);
    huge.Z[3] = -1e308;
    for (int i = 0; i < 100; ++i) {
        same.Add(10.3, 17.1, i);
        line.Add(3 + 0.7 * i, 5 + 1.9 * i, i % 7);
    }
    Pupil undefined, vast = Field().Frame;
    vast.ScaleX = vast.ScaleY = 1e300;
    const Field field;
    for (const Pupil& frame : {field.Frame, undefined, vast}) {
        for (const PointList& points : {huge, same, line}) {
            int numTerms = 36;
            ZernikeSet found;
            FitFringeCenters(points.Samples(), field.Mask, frame, numTerms, found);
            for (const double coefficient : found)
                EXPECT_TRUE(std::isfinite(coefficient));
        }
    }
}

} // namespace morvane
