// The block of a document file that holds a shape.
#include <algorithm>

#include "document/clsParser.h"
#include "geometry/clsShape.h"
#include "platform/Numbers.h"

namespace morvane {

namespace {

void AppendPointLine(std::string& text, std::string_view keyword, Point value)
{
    text.append(keyword);
    AppendNumberField(text, value.X);
    AppendNumberLine(text, ",", value.Y);
}

Point ReadPoint(clsParser& parser)
{
    const double x = parser.GetNumber();
    const double y = parser.GetNumber();
    return {x, y};
}

ShapeKind ReadShapeKind(clsParser& parser)
{
    const auto type = ShapeKind{parser.GetLong()};
    return type > ShapeKind::None && type <= ShapeKind::Polygon ? type : ShapeKind::None;
}

} // namespace

void clsShape::SaveToFile(std::string& Text) const
{
    if (m_role != ShapeRole::Aperture && m_role != ShapeRole::Obstruction)
        return;
    Text.append(m_role == ShapeRole::Aperture ? "Aperture\r\n" : "Obstruction\r\n");
    AppendWholeLine(Text, "ShapeType,", static_cast<int>(m_type));
    AppendPointLine(Text, "Center,", m_center);
    AppendNumberLine(Text, "RadiusX,", m_radii.X);
    AppendNumberLine(Text, "RadiusY,", m_radii.Y);
    AppendNumberLine(Text, "Angle,", m_angle);
    AppendWholeLine(Text, "NumVertices,", m_numVertices);
    for (const Point& vertex : std::span(m_vertices).first(static_cast<std::size_t>(m_numVertices)))
        AppendPointLine(Text, "Vertex,", vertex);
    Text.append("EndShape\r\n");
}

void clsShape::LoadFromFile(clsParser& Parser)
{
    int numRead = 0;
    Parser.ReadBlock([&](std::string_view keyword) { return LoadGroup(Parser, keyword, numRead); });
}

BlockWord clsShape::LoadGroup(clsParser& Parser, std::string_view Keyword, int& NumRead)
{
    if (Keyword == "shapetype")
        m_type = ReadShapeKind(Parser);
    else if (Keyword == "center")
        m_center = ReadPoint(Parser);
    else if (Keyword == "radiusx")
        m_radii.X = Parser.GetNumber();
    else if (Keyword == "radiusy")
        m_radii.Y = Parser.GetNumber();
    else if (Keyword == "angle")
        m_angle = Parser.GetNumber();
    else if (Keyword == "numvertices")
        m_numVertices = std::clamp(Parser.GetLong(), 0, MaxVertices);
    else if (Keyword == "vertex" && NumRead < MaxVertices)
        m_vertices[static_cast<std::size_t>(NumRead++)] = ReadPoint(Parser);
    else
        return Keyword == "endshape" ? BlockWord::Last : BlockWord::Unknown;
    return BlockWord::Read;
}

} // namespace morvane
