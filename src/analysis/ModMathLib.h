// Small free functions shared by shapes, charts and mouse tools: angles, distances, circles and
// ellipses, a projection, number texts for axes, round axis limits. Lengths in the caller's unit,
// angles in radians unless told. NoPoint marks a result that does not exist.
#pragma once
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "platform/Point.h"

namespace morvane {

inline constexpr double Pi = 3.14159265358979323846;
inline constexpr double DegreesPerRadian = 57.29577951308238;

// arctan(y/x), less pi if y <= 0 and x <= 0, plus pi if y > 0 and x <= 0. x must not be 0.
double Atan2Quadrant(double X, double Y);

double VectorLength(Point P, Point Q);
// Bearing of P about Center with y up, over the whole circle.
double VectorAngle(Point P, Point Center);
// Bearing of A less the bearing of B about Center.
double TurnAngle(Point A, Point B, Point Center);
// 0 if dy = Q.Y - P.Y is 0; arctan(dy / (P.X - Q.X)); at equal x -pi/2 or +pi/2 by the sign of dy.
double SlopeAngle(Point P, Point Q);

struct Circle {
    Point Center;
    double Radius;
};
// None if all three x or all three y are equal. Collinear points on a slant give a circle that is
// not finite: the caller must treat that as none.
std::optional<Circle> CircleFrom3Points(Point P1, Point P2, Point P3);

struct TiltedEllipse {
    Point Center;
    double RadiusX, RadiusY, Angle; // semi-major, semi-minor, tilt
};
// The longest chord is the major axis, the third point lies on the outline. None if all three x or
// all three y are equal. The third point on an end of the axis gives a RadiusY that is not usable.
std::optional<TiltedEllipse> EllipseFrom3Points(Point P1, Point P2, Point P3);

// Mean of the fan of triangles from the first vertex, areas unsigned; NoPoint twice without area.
Point PolygonCentroid(std::span<const Point> Vertices);

double Log10(double X);
std::int32_t GreatestCommonDivisor(std::int32_t A, std::int32_t B);

struct SpacePoint {
    double X, Y, Z;
};
// Angles in degrees. Distance <= 0 is a parallel projection, otherwise the eye's distance; both
// coordinates are NoPoint where the eye's plane holds the point.
Point ProjectPoint(SpacePoint P, double Distance, double Azimuth, double Elevation);
void ProjectPoints(std::span<const SpacePoint> Points, double Distance, double Azimuth,
    double Elevation, std::span<Point> Screen);

enum class NumberStyle { Automatic = 0, Scientific = 1, Plain = 2 };
// The text of a number rid of binary noise: Digits above 0 rounds to that many significant digits,
// below 1 only removes runs of nines and zeros at the end.
std::string FormatSignificant(double Value, int Digits, NumberStyle Style);

// The leading digit of the span if one digit tells it, else 0.
std::int32_t AxisExponent(double Low, double High);

// Widens Low and High to round limits and returns the number of ticks that divides the axis.
// Frozen changes nothing; FixLow and FixHigh hold a limit; MinSpan (or NoPoint) is the least span.
int NiceAxisRange(
    double& Low, double& High, bool Frozen, bool FixLow, bool FixHigh, double MinSpan);

// Turns the range of the data into a round range of an axis, and gives the hint for its division:
// 10 of a logarithmic one, the leading digit of a range that is round as it is, else 0. Only free
// ends move, and not without a span. MinSpan is the least span; NoPoint sets no limit. The ends of
// a logarithmic axis go out to whole decades.
int AutoScaleRange(double& Min, double& Max, bool Log, bool FreeMin, bool FreeMax, double MinSpan);
// The hint for an axis whose limits are fixed: the span's digit if one tells it, else 0.
int ScaleDivisionHint(double Min, double Max);

// Replaces each "," by ".", for numbers written under a decimal-comma locale.
void CommaToPoint(std::string& Text);

} // namespace morvane
