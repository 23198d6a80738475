#include "interferogram/DragGeometry.h"

#include <cmath>

#include "analysis/ModMathLib.h"

namespace morvane {
namespace {

double Fold(double angle)
{
    const double size = std::abs(angle);
    return size <= Pi / 2 ? size : Pi - size;
}

// Signs of the steps of radius and center for a drag outwards; y of the image runs down.
struct Signs {
    double X, Y;
};

// By the quadrant of Start about the center.
Signs OutwardSigns(double bearing)
{
    const double x = std::abs(bearing) <= Pi / 2 ? 1 : -1;
    return {x, bearing >= 0 ? -1.0 : 1.0};
}

// The bearing of Q about P with y up.
double BearingOf(Point of, Point about)
{
    return std::atan2(about.Y - of.Y, of.X - about.X);
}

} // namespace

Point MovedPoint(Point Base, Point Start, Point At, bool Orthogonal)
{
    Point step{At.X - Start.X, At.Y - Start.Y};
    if (Orthogonal)
        (std::abs(step.Y) <= std::abs(step.X) ? step.Y : step.X) = 0;
    return {Base.X + step.X, Base.Y + step.Y};
}

RoundFigure ResizedCircle(const RoundFigure& Before, Point Start, Point At, ResizeAxis& Axis)
{
    const Point center = Before.Center;
    if (Axis == ResizeAxis::Undecided)
        Axis = std::abs(SlopeAngle(Start, center)) >= Pi / 4 ? ResizeAxis::Y : ResizeAxis::X;
    RoundFigure after{center, {}, 0};
    if (Axis == ResizeAxis::X) {
        const double half = (At.X - Start.X) / 2;
        after.Radii.X = std::abs(Before.Radii.X + (Start.X >= center.X ? half : -half));
        after.Center.X += half;
    } else {
        const double half = (At.Y - Start.Y) / 2;
        after.Radii.Y = std::abs(Before.Radii.Y + (Start.Y >= center.Y ? half : -half));
        after.Center.Y += half;
    }
    return after;
}

RoundFigure ResizedEllipse(const RoundFigure& Before, Point Start, Point At, ResizeAxis& Axis)
{
    const double angle = Before.Angle;
    const Point center = Before.Center;
    if (Axis == ResizeAxis::Undecided)
        Axis = Fold(SlopeAngle(Start, center) - angle) <= Pi / 4 ? ResizeAxis::X : ResizeAxis::Y;
    const bool isX = Axis == ResizeAxis::X;
    const Point step{At.X - Start.X, At.Y - Start.Y};
    const double fold = Fold(SlopeAngle(At, Start) - angle);
    const double share = isX ? std::abs(std::cos(fold)) : std::abs(std::sin(fold));
    const double radial = share * VectorLength(At, Start) / 2;
    const double cosA = std::abs(std::cos(angle)), sinA = std::abs(std::sin(angle));
    const double c = isX ? cosA : sinA, s = isX ? sinA : cosA;

    const Signs out = OutwardSigns(BearingOf(Start, center));
    const bool isOutwards = out.X * c * step.X + out.Y * s * step.Y >= 0;
    const double sign = isOutwards ? 1 : -1;
    RoundFigure after{center, {}, angle};
    // A side dragged across the center turns the figure inside out, not its axis around.
    (isX ? after.Radii.X : after.Radii.Y) =
        std::abs((isX ? Before.Radii.X : Before.Radii.Y) + sign * radial);
    after.Center.X += sign * out.X * c * radial;
    after.Center.Y += sign * out.Y * s * radial;
    return after;
}

double TurnBetween(Point From, Point To, Point Start, Point Center)
{
    const auto turn = [&](Point at) {
        return at == Center || Start == Center ? 0 : TurnAngle(at, Start, Center);
    };
    double step = turn(To) - turn(From);
    while (step > Pi)
        step -= 2 * Pi;
    while (step <= -Pi)
        step += 2 * Pi;
    return step;
}

} // namespace morvane
