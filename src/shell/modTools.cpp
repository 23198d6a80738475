// The session's commands of the mouse tools, the zoom and the tool box.
#include "platform/Numbers.h"
#include "shell/SavedShapes.h"
#include "shell/modMain.h"

namespace morvane {
namespace {

const char* SavedNameOf(ShapeRole role)
{
    return role == ShapeRole::Aperture ? SavedAperture : SavedObstruction;
}

clsShape& ShapeOf(clsDocument& of, ShapeRole role)
{
    return role == ShapeRole::Aperture ? of.Aperture : of.Obstruction;
}

} // namespace

MouseTools* Session::ActiveTools() const
{
    const clsDocument* const active = Active();
    return active && active->ImageViewExists() ? &active->ImageView()->Tools() : nullptr;
}

MouseTools* Session::ToolsInFront()
{
    if (ActiveTools() && Active()->ActiveView != ViewType::Interferogram)
        BringToFront(*Active());
    return ActiveTools();
}

void Session::SetZoom(int Percent)
{
    if (!ActiveTools() || !IsZoomLevel(Percent))
        return;
    Active()->ImageView()->SetZoom(Percent);
    m_frame.UpdateMainFrame();
}

void Session::StepZoom(ZoomStep Step)
{
    if (!ActiveTools())
        return;
    if (const auto level = NextZoom(Active()->ImageView()->ZoomPercent(), Step))
        SetZoom(*level);
}

void Session::SetEditMode(bool Edit)
{
    MouseTools* const tools = ActiveTools();
    if (!tools || Active()->ActiveView != ViewType::Interferogram)
        return;
    tools->SetEditMode(Edit);
    Tools.EditMode = Edit;
    m_frame.UpdateMainFrame();
}

void Session::AddShape(ShapeRole Role)
{
    MouseTools* const tools = ActiveTools();
    if (!tools)
        return;
    tools->StartShape(Role, Tools.KindOf(Role));
    BringToFront(*Active());
}

void Session::ClearShape(ShapeRole Role)
{
    if (MouseTools* const tools = ToolsInFront())
        tools->ClearShape(Role);
}

// There is one figure for all running programs, so it is looked up in the file each time.
bool Session::LoadShape(ShapeRole Role, clsDocument& Into)
{
    if (!m_settings)
        return false;
    SettingsStore present(m_settings->Path());
    return LoadSavedShape(present, SavedNameOf(Role), ShapeOf(Into, Role));
}

void Session::LoadShapeIntoActive(ShapeRole Role)
{
    if (!ActiveTools() || !LoadShape(Role, *Active()))
        return;
    Active()->InvalidateMask();
    Active()->ImageView()->RefreshContents();
    m_frame.UpdateMainFrame();
}

void Session::SaveShape(ShapeRole Role)
{
    clsDocument* const active = Active();
    if (!active || !m_settings)
        return;
    SettingsStore present(m_settings->Path()); // has given nothing: the figure goes there whole
    morvane::SaveShape(present, SavedNameOf(Role), ShapeOf(*active, Role));
    if (const FileResult saved = present.Save(); !saved)
        TellUnsavedSettings(saved);
}

void Session::InsertFringe()
{
    MouseTools* const tools = ToolsInFront();
    if (!tools)
        return;
    tools->SaveFringe(Tools.CurrentOrder());
    if (!tools->InsertFringe(Tools.CurrentOrder())) {
        m_frame.ShowHint("Order " + std::to_string(MaxFringes)
            + " is in use: there is no room for another fringe order.");
        return;
    }
    Active()->ImageView()->Repaint();
}

void Session::RemoveFringe()
{
    MouseTools* const tools = ToolsInFront();
    if (!tools)
        return;
    tools->SaveFringe(Tools.CurrentOrder());
    tools->DeleteFringe(Tools.CurrentOrder());
    Active()->ImageView()->Repaint();
}

void Session::RenumberFringe()
{
    if (!ToolsInFront())
        return;
    // Held, for a script may close it while the dialog is on the screen.
    const std::shared_ptr<clsDocument> renumbered = SharedDocument(m_activeDocument);
    const int order = Tools.CurrentOrder();
    const auto answer = m_frame.AskInput({.Caption = "Renumber Fringe",
        .Prompt = "Enter new fringe order:",
        .Text = std::to_string(order >= 2 ? order - 1 : 2),
        .Kind = InputKind::PositiveInteger,
        .Min = 1,
        .Max = MaxFringes});
    if (!answer || !renumbered->ImageViewExists())
        return;
    if (answer->Clamped) {
        ShowMessage("New fringe order is out of range", MessageOk, "Bad Input");
        return;
    }
    renumbered->ImageView()->Tools().RenumberFringe(RoundToLong(answer->Value), order);
}

void Session::SelectOrder(int Order)
{
    if (!ActiveTools() || Order < 1 || Order > MaxFringes)
        return;
    ActiveTools()->SaveFringe(Tools.CurrentOrder());
    Tools.SetOrder(Order);
    Active()->ImageView()->Repaint();
}

void Session::TypeOrder(const std::string& Text)
{
    MouseTools* const tools = ToolsInFront();
    if (tools)
        tools->SaveFringe(Tools.CurrentOrder());
    Tools.TypeOrder(Text);
    if (tools)
        Active()->ImageView()->Repaint();
}

void Session::StepOrder(int Steps)
{
    TypeOrder(std::to_string(Tools.OrderAfter(Steps)));
}

void Session::DeleteFringeCenter()
{
    if (MouseTools* const tools = ActiveTools())
        tools->DeleteHoverCenter();
}

void Session::ClearFringes()
{
    if (!ActiveTools())
        return;
    Active()->ClearFringes();
    m_frame.UpdateMainFrame();
}

} // namespace morvane
