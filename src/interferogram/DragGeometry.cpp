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

// The part of a step that runs along a direction of length 1.
double Along(Point step, Point direction)
{
    return step.X * direction.X + step.Y * direction.Y;
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
    const Point axis =
        isX ? Point{std::cos(angle), -std::sin(angle)} : Point{std::sin(angle), std::cos(angle)};
    // Towards the end of the axis on whose side the figure was grabbed; between both to the right
    // or up.
    const double reach = Along({Start.X - center.X, Start.Y - center.Y}, axis);
    const double side = reach > 0 || (isX && reach == 0) ? 1 : -1;
    const double half = Along({At.X - Start.X, At.Y - Start.Y}, axis) / 2;
    RoundFigure after{center, {}, angle};
    // A side dragged across the center turns the figure inside out, not its axis around.
    (isX ? after.Radii.X : after.Radii.Y) =
        std::abs((isX ? Before.Radii.X : Before.Radii.Y) + side * half);
    after.Center.X += axis.X * half;
    after.Center.Y += axis.Y * half;
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
