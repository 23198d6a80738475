// What a drag makes of the object under the mouse. Start is where the drag, or its present phase,
// began, At where the mouse is; image pixels, y down, angles counter-clockwise as seen.
#pragma once
#include "geometry/clsShape.h"

namespace morvane {

// Base moved by the drag; Orthogonal along the axis of the larger step only, a tie horizontally.
Point MovedPoint(Point Base, Point Start, Point At, bool Orthogonal);

// Which radius a resize works on, from its first step to its last.
enum class ResizeAxis { Undecided = 0, X = 1, Y = 2 };

// Center, radii and angle of a round figure; a radius of NoPoint stays what it is.
struct RoundFigure {
    Point Center, Radii;
    double Angle = 0;
};

// The grabbed side follows half the step, the side opposite to it stays where it is: only the
// radius of Axis changes, and the center moves along it. Axis is decided by Start if it is not yet.
RoundFigure ResizedCircle(const RoundFigure& Before, Point Start, Point At, ResizeAxis& Axis);
RoundFigure ResizedEllipse(const RoundFigure& Before, Point Start, Point At, ResizeAxis& Axis);

// The turn about Center from one mouse position to the next, in (-pi, pi]; none if Start or the
// position lies on Center.
double TurnBetween(Point From, Point To, Point Start, Point Center);

} // namespace morvane
