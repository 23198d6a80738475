// What the tool box holds for the whole session: the fringe order at which new centers are placed,
// the kind of the next aperture and obstruction, and which of its controls are live. The window
// shows and edits it; the mouse tools of every interferogram read it.
#pragma once
#include <functional>
#include <string>

#include "geometry/clsFringes.h"
#include "geometry/clsShape.h"

namespace morvane {

// While a figure is being drawn only its own Clear button is live, and cancels the drawing.
struct ToolControls {
    bool Enable = true, ApertureClear = true, ObstructionClear = true;

    bool MayClear(ShapeRole Role) const
    {
        return Enable || (Role == ShapeRole::Aperture ? ApertureClear : ObstructionClear);
    }
    friend bool operator==(const ToolControls&, const ToolControls&) = default;
};

class ToolBox {
public:
    // Called after each change of what is held here.
    std::function<void()> Changed;

    // 1 to MaxFringes, or whatever the user has typed: the fringe store refuses an order that it
    // cannot hold.
    int CurrentOrder() const { return m_currentOrder; }
    int PreviousOrder() const { return m_previousOrder; }
    // Of the box where the order is typed.
    const std::string& OrderText() const { return m_orderText; }
    // Takes the order and shows it.
    void SetOrder(int Order);
    // Takes the number that Text begins with, as it is, and leaves the text as the user typed it.
    void TypeOrder(const std::string& Text);
    // Where the arrows beside the box lead to, always 1 to MaxFringes.
    int OrderAfter(int Steps) const;

    ShapeKind KindOf(ShapeRole Role) const
    {
        return Role == ShapeRole::Aperture ? m_aperture : m_obstruction;
    }
    void SetKind(ShapeRole Role, ShapeKind Kind);

    const ToolControls& Controls() const { return m_controls; }
    void SetControls(const ToolControls& Controls);

    // From a right press until its menu has finished.
    bool PopupActive = false;
    // Of the interferogram last in front; new ones begin with it.
    bool EditMode = true;

private:
    void Tell();

    int m_currentOrder = 1, m_previousOrder = 1;
    std::string m_orderText = "1";
    ShapeKind m_aperture = ShapeKind::Circle, m_obstruction = ShapeKind::Circle;
    ToolControls m_controls;
};

} // namespace morvane
