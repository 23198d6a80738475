#include "analysis/ModMathLib.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "platform/Numbers.h"

namespace morvane {

namespace {

constexpr double RadiansPerDegree = 0.017453292519943278;

bool AllEqual(double a, double b, double c)
{
    return a == b && b == c;
}

double SquaredDistance(Point p, Point q)
{
    return (q.X - p.X) * (q.X - p.X) + (q.Y - p.Y) * (q.Y - p.Y);
}

Point Midpoint(Point p, Point q)
{
    return {std::midpoint(p.X, q.X), std::midpoint(p.Y, q.Y)};
}

struct Line {
    double Slope, Offset;
};

Line PerpendicularBisector(Point p, Point q)
{
    const Point middle = Midpoint(p, q);
    const double slope = -((q.X - p.X) / (q.Y - p.Y));
    return {slope, middle.Y - slope * middle.X};
}

struct Chord {
    Point A, B, Apex;
};

// With ties resolved so that the same three clicks always give the same ellipse.
Chord LongestChord(Point p1, Point p2, Point p3)
{
    const double d12 = SquaredDistance(p1, p2);
    const double d13 = SquaredDistance(p1, p3);
    const double d23 = SquaredDistance(p2, p3);
    if (d12 <= d13)
        return d13 > d23 ? Chord{p1, p3, p2} : Chord{p2, p3, p1};
    return d12 > d23 ? Chord{p1, p2, p3} : Chord{p2, p3, p1};
}

// Binary noise is a run of nines or zeros at the end of the 15 digits, the last one a little off.
void RemoveNoise(DecimalForm& form)
{
    constexpr std::size_t tail = 5;
    const auto endsIn = [&form](const char* run, char lowest, char highest) {
        const std::string& digits = form.Digits;
        return digits.size() > tail && digits.compare(digits.size() - tail, tail - 1, run) == 0
            && digits.back() >= lowest && digits.back() <= highest;
    };
    const std::size_t beforeTail = form.Digits.size() - std::min(form.Digits.size(), tail);
    if (endsIn("9999", '6', '9'))
        form.RoundTo(static_cast<int>(beforeTail));
    else if (endsIn("0000", '1', '3'))
        form.Digits.resize(form.Digits.find_last_not_of('0', beforeTail) + 1);
}

std::string ScientificText(const DecimalForm& form)
{
    std::string text = form.Negative ? "-" : "";
    text += form.Digits.front();
    if (form.Digits.size() > 1)
        text.append(1, '.').append(form.Digits, 1);
    return text + "E" + std::to_string(form.Exponent);
}

// A round length of an axis, Tenths / 10 * 10^Exponent, and the ticks that divide it.
struct AxisStep {
    int Tenths, Exponent, Count;

    // By way of the text, so that 0.3 is the double nearest to it and not 3 * 0.1.
    double Length() const
    {
        return LeadingNumber(std::to_string(Tenths) + "E" + std::to_string(Exponent - 1));
    }
};

// The step that holds a span, given that the span is not round itself.
AxisStep StepOver(double span, const DecimalForm& rounded)
{
    const int digit = rounded.Digits.front() - '0';
    const AxisStep round{10 * digit, rounded.Exponent, digit == 1 ? 10 : digit};
    if (span <= round.Length())
        return round;
    if (digit > 1)
        return {10 * (digit + 1), rounded.Exponent, digit + 1};
    const DecimalForm exact = ToDecimal(span);
    const int tenths = exact.Digits.size() < 2 || exact.Digits[1] < '2' ? 12 : 15;
    return {tenths, rounded.Exponent, tenths};
}

// The next longer step, for an axis whose lower limit was rounded down too far for the first.
AxisStep LongerStep(const AxisStep& step, const DecimalForm& rounded)
{
    const int digit = rounded.Digits.front() - '0';
    if (digit == 9)
        return {120, step.Exponent, 12};
    if (digit > 1)
        return {10 * (digit + 2), step.Exponent, digit + 2};
    if (step.Tenths == 15)
        return {20, step.Exponent, 10};
    const int tenths = step.Tenths == 12 ? 15 : 12;
    return {tenths, step.Exponent, tenths};
}

// The next longer step of AutoScaleRange: one that had been widened to hold the span takes two.
AxisStep GrownStep(const AxisStep& step, const DecimalForm& rounded, bool isWidened)
{
    const int digit = rounded.Digits.front() - '0';
    if (isWidened || digit == 1)
        return LongerStep(step, rounded);
    return {10 * (digit + 1), step.Exponent, digit + 1};
}

// The whole number below, where what binary numbers lack of a whole one does not count.
double WholeBelow(double value)
{
    constexpr double noise = 1e-9;
    return std::floor(value + noise);
}

// Whether the length reaches so far, noise aside.
bool HoldsAll(double reach, double length)
{
    return WholeBelow(-reach / length) >= -1;
}

double DecadeBelow(double value)
{
    return std::pow(10, WholeBelow(std::log10(value)));
}

double DecadeAbove(double value)
{
    return std::pow(10, -WholeBelow(-std::log10(value)));
}

void WidenToDecades(double& min, double& max, bool freeMin, bool freeMax)
{
    const double least = min, most = max;
    if (least <= 0)
        min = freeMax ? DecadeBelow(most) : most / 10;
    else if (freeMin)
        min = DecadeBelow(least);
    if (most <= 0)
        max = DecadeAbove(least);
    else if (freeMax)
        max = DecadeAbove(most);
    if (min == max && freeMax && least > 0)
        max *= 10;
    else if (min == max)
        min /= 10;
}

// Down to a whole tenth of the axis, never up by a rounding error.
double RoundedDown(double low, double length)
{
    const double tenth = length / 10;
    return std::min(low, std::floor(low / tenth) * tenth);
}

} // namespace

double Atan2Quadrant(double X, double Y)
{
    const double angle = std::atan(Y / X);
    if (X > 0)
        return angle;
    return Y <= 0 ? angle - Pi : angle + Pi;
}

double VectorLength(Point P, Point Q)
{
    return std::sqrt(SquaredDistance(P, Q));
}

double VectorAngle(Point P, Point Center)
{
    return std::atan2(Center.Y - P.Y, P.X - Center.X);
}

double TurnAngle(Point A, Point B, Point Center)
{
    return VectorAngle(A, Center) - VectorAngle(B, Center);
}

double SlopeAngle(Point P, Point Q)
{
    const double dy = Q.Y - P.Y;
    if (dy == 0)
        return 0;
    if (P.X != Q.X)
        return std::atan(dy / (P.X - Q.X));
    return dy < 0 ? -Pi / 2 : Pi / 2;
}

std::optional<Circle> CircleFrom3Points(Point P1, Point P2, Point P3)
{
    if (AllEqual(P1.X, P2.X, P3.X) || AllEqual(P1.Y, P2.Y, P3.Y))
        return std::nullopt;
    // Two chords that are not level: a level one has an upright bisector without a slope.
    const bool level12 = P1.Y == P2.Y;
    const bool level23 = P2.Y == P3.Y;
    const Line first =
        level12 || level23 ? PerpendicularBisector(P1, P3) : PerpendicularBisector(P1, P2);
    const Line second = level23 ? PerpendicularBisector(P1, P2) : PerpendicularBisector(P2, P3);
    const double x = (second.Offset - first.Offset) / (first.Slope - second.Slope);
    const Point center{x, first.Slope * x + first.Offset};
    return Circle{center, VectorLength(center, P2)};
}

std::optional<TiltedEllipse> EllipseFrom3Points(Point P1, Point P2, Point P3)
{
    if (AllEqual(P1.X, P2.X, P3.X) || AllEqual(P1.Y, P2.Y, P3.Y))
        return std::nullopt;
    const auto [a, b, apex] = LongestChord(P1, P2, P3);
    TiltedEllipse ellipse{Midpoint(a, b), VectorLength(a, b) / 2, 0, 0};
    const double dx = apex.X - ellipse.Center.X;
    const double dy = apex.Y - ellipse.Center.Y;
    const double apexSquared = dx * dx + dy * dy;

    double fromAxis = 0; // angle at the center between the major axis and the apex
    if (a.X == b.X) {
        ellipse.Angle = b.Y <= a.Y ? Pi / 2 : -Pi / 2;
        fromAxis = Pi / 2 + SlopeAngle(ellipse.Center, apex);
    } else {
        const double slope = (b.Y - a.Y) / (b.X - a.X);
        ellipse.Angle = -std::atan(slope);
        if (dx == 0) {
            fromAxis = Pi / 2 - ellipse.Angle;
        } else {
            const double apexSlope = dy / dx;
            if (apexSlope * slope == -1.0) {
                ellipse.RadiusY = std::sqrt(apexSquared);
                return ellipse;
            }
            fromAxis = std::atan((slope - apexSlope) / (apexSlope * slope + 1));
        }
    }
    // The apex at polar angle f and distance r lies on the outline: b^2 = r^2 a^2 sin^2 f /
    // (a^2 - r^2 cos^2 f).
    const double majorSquared = ellipse.RadiusX * ellipse.RadiusX;
    const double sine = std::sin(fromAxis);
    const double cosine = std::cos(fromAxis);
    ellipse.RadiusY = std::sqrt(
        apexSquared * majorSquared * sine * sine / (majorSquared - apexSquared * cosine * cosine));
    return ellipse;
}

Point PolygonCentroid(std::span<const Point> Vertices)
{
    constexpr double third = 0.3333333333333333;
    double area = 0, momentX = 0, momentY = 0;
    for (std::size_t i = 2; i < Vertices.size(); ++i) {
        const auto [x1, y1] = Vertices[0];
        const auto [x2, y2] = Vertices[i - 1];
        const auto [x3, y3] = Vertices[i];
        const double triangle =
            std::abs(x1 * y2 + y1 * x3 + x2 * y3 - x3 * y2 - x2 * y1 - x1 * y3) * 0.5;
        area += triangle;
        momentX += triangle * (x1 + x2 + x3) * third;
        momentY += triangle * (y1 + y2 + y3) * third;
    }
    const Point centroid{momentX / area, momentY / area};
    return area > 0 && std::isfinite(centroid.X) && std::isfinite(centroid.Y) ? centroid : Point();
}

double Log10(double X)
{
    constexpr double naturalLogOfTen = 2.30258509299405;
    return std::log(X) / naturalLogOfTen;
}

std::int32_t GreatestCommonDivisor(std::int32_t A, std::int32_t B)
{
    const auto magnitude = [](std::int32_t value) {
        return value < 0 ? 0u - static_cast<std::uint32_t>(value)
                         : static_cast<std::uint32_t>(value);
    };
    return static_cast<std::int32_t>(std::gcd(magnitude(A), magnitude(B)));
}

Point ProjectPoint(SpacePoint P, double Distance, double Azimuth, double Elevation)
{
    Point screen;
    ProjectPoints({&P, 1}, Distance, Azimuth, Elevation, {&screen, 1});
    return screen;
}

void ProjectPoints(std::span<const SpacePoint> Points, double Distance, double Azimuth,
    double Elevation, std::span<Point> Screen)
{
    constexpr double leastDepth = 1e-45; // nearer to the eye's plane there is no picture
    const double sinA = std::sin(Azimuth * RadiansPerDegree);
    const double cosA = std::cos(Azimuth * RadiansPerDegree);
    const double sinE = std::sin(Elevation * RadiansPerDegree);
    const double cosE = std::cos(Elevation * RadiansPerDegree);
    const SpacePoint axis{sinE * cosA, sinE * sinA, cosE}; // from the origin to the eye
    const std::size_t count = std::min(Points.size(), Screen.size());
    for (std::size_t i = 0; i < count; ++i) {
        SpacePoint p = Points[i];
        if (Distance > 0) {
            const SpacePoint view{
                Distance * axis.X - p.X, Distance * axis.Y - p.Y, Distance * axis.Z - p.Z};
            const double depth = axis.X * view.X + axis.Y * view.Y + axis.Z * view.Z;
            if (std::abs(depth) < leastDepth) {
                Screen[i] = {NoPoint, NoPoint};
                continue;
            }
            const double k = -(axis.X * p.X + axis.Y * p.Y + axis.Z * p.Z) / depth;
            p = {p.X + k * view.X, p.Y + k * view.Y, p.Z + k * view.Z};
        }
        Screen[i] = {cosA * p.Y - sinA * p.X, cosA * cosE * p.X + sinA * cosE * p.Y - sinE * p.Z};
    }
}

std::string FormatSignificant(double Value, int Digits, NumberStyle Style)
{
    constexpr int highestPlain = 5, lowestPlain = -3; // exponents
    if (!std::isfinite(Value) || Value == 0)
        return FormatGeneral(Value);
    DecimalForm form = ToDecimal(Value);
    if (Digits > 0)
        form.RoundTo(Digits);
    else
        RemoveNoise(form);
    const bool extreme = form.Exponent > highestPlain || form.Exponent < lowestPlain;
    const bool scientific =
        Style == NumberStyle::Scientific || (Style == NumberStyle::Automatic && extreme);
    return scientific ? ScientificText(form) : form.PlainText();
}

std::int32_t AxisExponent(double Low, double High)
{
    if (!(High > Low))
        return 0;
    const std::string text = FormatSignificant(High - Low, 1, NumberStyle::Scientific);
    return text[1] == 'E' ? text[0] - '0' : 0;
}

int NiceAxisRange(double& Low, double& High, bool Frozen, bool FixLow, bool FixHigh, double MinSpan)
{
    if (Frozen)
        return 0;
    if (!(High > Low)) {
        Low = 0;
        High = 1;
        return 0;
    }
    const double span = High - Low;
    if (!std::isfinite(span))
        return 0;
    const double least = MinSpan == NoPoint ? 0 : MinSpan;
    DecimalForm rounded = ToDecimal(span);
    rounded.RoundTo(1);
    AxisStep step = StepOver(span, rounded);
    if (span == step.Length()) {
        step.Count = rounded.Digits == "1" ? 1 : 0;
        if (least <= span)
            return step.Count;
    }
    if (FixLow && FixHigh)
        return step.Count;
    double length = std::max(step.Length(), least);
    if (FixLow) {
        High = Low + length;
    } else if (FixHigh) {
        Low = High - length;
    } else {
        if (RoundedDown(Low, length) + length < High) {
            step = LongerStep(step, rounded);
            length = std::max(step.Length(), least);
        }
        Low = RoundedDown(Low, length);
        High = std::max(High, Low + length); // a least span may still end a little too low
    }
    return step.Count;
}

int AutoScaleRange(double& Min, double& Max, bool Log, bool FreeMin, bool FreeMax, double MinSpan)
{
    if (Log) {
        if ((FreeMin || FreeMax) && (Min > 0 || Max > 0))
            WidenToDecades(Min, Max, FreeMin, FreeMax);
        return 10;
    }
    if (!(Max > Min) || !std::isfinite(Max - Min))
        return 0;
    const double span = LeadingNumber(FormatGeneral(Max - Min)); // 3.3 - 0.3 is to be 3
    const double least = MinSpan == NoPoint ? 0 : MinSpan;
    DecimalForm rounded = ToDecimal(span);
    rounded.RoundTo(1);
    const int digit = rounded.Digits.front() - '0';
    const double nearest = AxisStep{10 * digit, rounded.Exponent, digit}.Length();
    if (span == nearest && span >= least)
        return digit;
    const AxisStep step = StepOver(span, rounded);
    double length = std::max(step.Length(), least);
    if (FreeMin && FreeMax) {
        const double low = Min;
        const double base = WholeBelow(low / length) * length;
        Min = WholeBelow(low / length * 10) * length / 10;
        if (!HoldsAll(Max - Min, length)) {
            length = std::max(GrownStep(step, rounded, span > nearest).Length(), least);
            Min = WholeBelow((low - base) / length * 10) * length / 10 + base;
        }
        Max = Min + length;
    } else if (FreeMin) {
        Min = Max - length;
    } else if (FreeMax) {
        Max = Min + length;
    }
    return 0;
}

int ScaleDivisionHint(double Min, double Max)
{
    const double span = Max - Min;
    if (!(span > 0) || !std::isfinite(span))
        return 0;
    DecimalForm form = ToDecimal(span);
    form.RoundTo(2);
    return form.Digits.size() == 1 ? form.Digits.front() - '0' : 0;
}

void CommaToPoint(std::string& Text)
{
    std::replace(Text.begin(), Text.end(), ',', '.');
}

} // namespace morvane
