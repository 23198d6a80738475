// The block of a document file that holds the fringes.
#include <string_view>

#include "document/clsParser.h"
#include "geometry/clsFringes.h"
#include "platform/Numbers.h"

namespace morvane {

void clsFringes::SaveToFile(std::string& Text) const
{
    Text.append("Fringes\r\n");
    AppendWholeLine(Text, "NumFringes,", m_numFringes);
    for (int index = 1; index <= m_numFringes; ++index) {
        AppendWholeLine(Text, "Order,", m_orders[index]);
        AppendWholeLine(Text, "NumTicks,", m_numTicks[index]);
        for (const Point& tick : Ticks(index)) {
            Text.append("Center,");
            AppendNumberField(Text, tick.X);
            AppendNumberLine(Text, ",", tick.Y);
        }
    }
    Text.append("EndFringes\r\n");
}

// Reads keyword groups, until one of them ends the reading.
class clsFringes::BlockReader {
public:
    BlockReader(clsFringes& fringes, clsParser& parser) : m_fringes(fringes), m_parser(parser) { }

    void Read()
    {
        m_parser.ReadBlock([this](std::string_view keyword) { return ReadGroup(keyword); });
    }

private:
    BlockWord ReadGroup(std::string_view keyword)
    {
        const auto lastUnless = [](bool fits) { return fits ? BlockWord::Read : BlockWord::Last; };
        if (keyword == "numfringes")
            return lastUnless(ReadNumFringes());
        if (keyword == "order")
            return lastUnless(ReadOrder());
        if (keyword == "numticks")
            return lastUnless(ReadNumTicks());
        if (keyword == "endfringes")
            return BlockWord::Last;
        if (keyword != "center")
            return BlockWord::Unknown;
        ReadCenter();
        return BlockWord::Read;
    }

    // False where the reading stops.
    bool ReadNumFringes()
    {
        const int count = m_parser.GetLong();
        const bool fits = count >= 0 && count <= MaxFringes;
        m_fringes.m_numFringes = fits ? count : 0;
        return fits;
    }

    bool ReadOrder()
    {
        m_tick = 0;
        if (++m_index > MaxFringes)
            return false;
        const int order = m_parser.GetLong();
        const bool fits = order >= 1 && order <= MaxFringes;
        m_fringes.m_orders[m_index] = fits ? order : NoFringe;
        return fits;
    }

    bool ReadNumTicks()
    {
        const int count = m_parser.GetLong();
        if (m_index == 0)
            return true;
        const bool fits = count >= 0 && count <= MaxTicks;
        if (fits)
            m_fringes.m_numTicks[m_index] = count;
        else
            m_fringes.m_orders[m_index] = NoFringe;
        return fits;
    }

    void ReadCenter()
    {
        if (m_tick == MaxTicks) {
            m_parser.SkipLine();
            return;
        }
        ++m_tick;
        const double x = m_parser.GetNumber();
        const double y = m_parser.GetNumber();
        if (m_index > 0)
            m_fringes.m_ticks[TickPlace(m_index, m_tick)] = {x, y};
    }

    clsFringes& m_fringes;
    clsParser& m_parser;
    int m_index = 0, m_tick = 0; // the last ones begun
};

void clsFringes::LoadFromFile(clsParser& Parser)
{
    BlockReader(*this, Parser).Read();
    // Slots that are not counted are free, and free slots have no ticks, whatever the block says.
    for (int index = 1; index <= MaxFringes; ++index) {
        if (index > m_numFringes)
            m_orders[index] = NoFringe;
        if (m_orders[index] == NoFringe)
            m_numTicks[index] = 0;
    }
}

} // namespace morvane
