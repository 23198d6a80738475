#include "interferogram/ToolBox.h"

#include <algorithm>

#include <algorithm>
#include <cstdint>

#include "platform/Numbers.h"

namespace morvane {

void ToolBox::SetOrder(int Order)
{
    m_previousOrder = m_currentOrder;
    m_currentOrder = Order;
    m_orderText = std::to_string(Order);
    Tell();
}

void ToolBox::TypeOrder(const std::string& Text)
{
    m_previousOrder = m_currentOrder;
    constexpr double longest = 99999; // far beyond all orders, and still a number to count from
    m_currentOrder = RoundToLong(std::clamp(LeadingNumber(Text), -longest, longest));
    m_orderText = Text;
    Tell();
}

int ToolBox::OrderAfter(int Steps) const
{
    const std::int64_t order = std::int64_t{m_currentOrder} + Steps;
    return static_cast<int>(std::clamp<std::int64_t>(order, 1, MaxFringes));
}

void ToolBox::SetKind(ShapeRole Role, ShapeKind Kind)
{
    (Role == ShapeRole::Aperture ? m_aperture : m_obstruction) = Kind;
    Tell();
}

void ToolBox::SetControls(const ToolControls& Controls)
{
    if (m_controls == Controls)
        return;
    m_controls = Controls;
    Tell();
}

void ToolBox::Tell()
{
    if (Changed)
        Changed();
}

} // namespace morvane
