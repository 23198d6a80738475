// One outline in image pixels, y down: the aperture of the optic under test or the obstruction
// inside it. A circle is axis-aligned with a half extent for each axis, an ellipse is tilted, a
// polygon has up to MaxVertices corners in click order and its area centroid as center.
//
// A point at parameter t on a tilted ellipse is X = CenterX + a cos t cos A + b sin t sin A,
// Y = CenterY - a cos t sin A + b sin t cos A, with half axes a, b and Angle A, in radians from
// the +x axis to the a axis, counter-clockwise as seen on the screen.
//
// No operation reports an error: unusable points leave ShapeKind::None, arguments out of range
// are ignored or answered by NoPoint.
#pragma once
#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/Device.h"
#include "platform/Point.h"

namespace morvane {

class clsParser;
enum class BlockWord;

inline constexpr int MaxVertices = 50;

enum class ShapeKind : std::int32_t { None = 0, Circle = 1, Ellipse = 2, Polygon = 3 };
enum class ShapeRole : std::int32_t { None = 0, Aperture = 1, Obstruction = 2 };
enum class ShapePart { None = 0, CircleOutline = 1, EllipseOutline = 2, Edge = 3, Vertex = 4 };

struct ShapeHit {
    ShapePart Part = ShapePart::None;
    int Vertex = 2147483647; // vertex or edge number from 1, else NoFringe
};

class clsShape {
public:
    explicit clsShape(ShapeRole Role) : m_role(Role) { m_vertices.fill({0, 0}); }

    // Takes the type; of a polygon the vertices, with the centroid made anew and radii and angle
    // left as they are; of other types center, radii and angle. The role stays.
    void Copy(const clsShape& Source);

    // Defines the figure from clicked points: a circle by the extents of any number of points, an
    // ellipse by the first three, a polygon by 3 to MaxVertices corners. A figure that is not
    // finite counts as none.
    void Save(ShapeKind Type, std::span<const Point> Points);
    void Delete() { m_type = ShapeKind::None; }

    ShapeKind GetShapeType() const { return m_type; }
    // Takes the type and zeroes center, radii, angle and the number of vertices.
    void SetShapeType(ShapeKind Type);

    Point GetCenter() const { return m_center; }
    // A polygon moves as a whole; without area it has no center and stays.
    void SetCenter(Point Center);
    Point GetRadii() const { return m_radii; }
    void SetRadii(Point Radii) { m_radii = Radii; }
    double GetAngle() const { return m_angle; }
    void SetAngle(double Angle) { m_angle = Angle; }

    // Corners of a polygon; 0 for other types.
    int GetVertices() const;
    Point GetVertex(int Index) const;
    void SetVertex(Point At, int Index);
    std::span<const Point> Vertices() const;

    // Within 3 image pixels of the outline; vertices come before edges, and an edge counts along
    // its whole line.
    ShapeHit Find(Point At) const;

    // Circle, ellipse: new radii, NoPoint leaves one as it is. Polygon: Radii.X is the new
    // distance of Vertex from the center, and all other vertices move by the same ratio.
    void Resize(Point Radii, int Vertex);
    void Rotate(double Delta); // radians

    void Draw(Device& On, const ImageMapping& Map, RasterOp Op) const;

    // The "Aperture" or "Obstruction" block of a document file, appended to Text, CR LF; nothing
    // without a role.
    void SaveToFile(std::string& Text) const;
    // Reads the block whose first line has been taken from Parser already.
    void LoadFromFile(clsParser& Parser);

private:
    void SaveCircle(std::span<const Point> Points);
    void SaveEllipse(std::span<const Point> Points);
    void SavePolygon(std::span<const Point> Points);
    // The corners stored, kept while the shape is of another type.
    std::span<Point> Corners();
    bool HasVertex(int Index) const { return Index >= 1 && Index <= GetVertices(); }
    // Of a polygon with area; the corners turn and stretch about the center.
    bool HasCenter() const { return m_center.X != NoPoint; }
    ShapeHit FindVertexOrEdge(Point At) const;
    bool IsOnRoundOutline(Point At) const;
    void ResizePolygon(double Distance, int Vertex);
    void DrawTilted(Device& On, const ImageMapping& Map) const;
    void DrawPolygon(Device& On, const ImageMapping& Map) const;
    BlockWord LoadGroup(clsParser& Parser, std::string_view Keyword, int& NumRead);

    ShapeRole m_role;
    ShapeKind m_type = ShapeKind::None;
    Point m_center{0, 0}, m_radii{0, 0};
    double m_angle = 0; // of an ellipse; of no meaning for other types
    int m_numVertices = 0;
    std::array<Point, MaxVertices> m_vertices;
};

} // namespace morvane
