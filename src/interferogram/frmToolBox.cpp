#include "interferogram/frmToolBox.h"

#include <QKeyEvent>

#include "ui_frmToolBox.h"

namespace morvane {
namespace {

// The lists hold the kinds in the order of their values, without None.
int ItemOf(ShapeKind Kind)
{
    return static_cast<int>(Kind) - 1;
}

ShapeKind KindOfItem(int Index)
{
    return static_cast<ShapeKind>(Index + 1);
}

} // namespace

frmToolBox::frmToolBox(Session& In, QWidget* Owner)
    : QDialog(Owner, Qt::Tool), m_session(In), m_ui(std::make_unique<Ui::frmToolBox>())
{
    m_ui->setupUi(this);
    for (const ShapeFrame& frame : ShapeFrames())
        ConnectShape(frame);
    ConnectFringes();
    m_session.Tools.Changed = [this] { Refresh(); };
    Refresh();
}

frmToolBox::~frmToolBox() = default;

std::array<frmToolBox::ShapeFrame, 2> frmToolBox::ShapeFrames() const
{
    return {{{ShapeRole::Aperture, *m_ui->cboAperture, *m_ui->cmdApertureAdd,
                 *m_ui->cmdApertureClear, *m_ui->cmdApertureLoad, *m_ui->cmdApertureSave},
        {ShapeRole::Obstruction, *m_ui->cboObstruction, *m_ui->cmdObstructionAdd,
            *m_ui->cmdObstructionClear, *m_ui->cmdObstructionLoad, *m_ui->cmdObstructionSave}}};
}

void frmToolBox::ConnectShape(const ShapeFrame& Of)
{
    const ShapeRole role = Of.Role;
    connect(&Of.Kind, &QComboBox::activated, this, [this, role](int item) {
        m_session.Tools.SetKind(role, KindOfItem(item));
        ReturnToPicture();
    });
    Connect(Of.Add, [this, role] { m_session.AddShape(role); });
    Connect(Of.Clear, [this, role] { m_session.ClearShape(role); });
    Connect(Of.Load, [this, role] { m_session.LoadShapeIntoActive(role); });
    Connect(Of.Save, [this, role] { m_session.SaveShape(role); });
    // The clicks of a drawing go to the picture, and so must the keys held down with them.
    connect(&Of.Add, &QPushButton::clicked, this, &frmToolBox::ReturnToPicture);
}

// A button that was clicked, not reached by keys, leaves the keys to the picture: the space bar
// runs through the orders there, and must not press the button again.
template <typename Command>
void frmToolBox::Connect(QPushButton& Button, Command Act)
{
    Button.setFocusPolicy(Qt::TabFocus);
    connect(&Button, &QPushButton::clicked, this, [this, &Button, Act] {
        Act();
        if (!Button.hasFocus())
            ReturnToPicture();
    });
}

void frmToolBox::ReturnToPicture()
{
    parentWidget()->activateWindow();
}

void frmToolBox::ConnectFringes()
{
    connect(m_ui->updOrder, &OrderBox::Typed, this,
        [this](const QString& text) { m_session.TypeOrder(text.toStdString()); });
    connect(m_ui->updOrder, &OrderBox::Stepped, this,
        [this](int steps) { m_session.StepOrder(steps); });
    Connect(*m_ui->cmdInsert, [this] { m_session.InsertFringe(); });
    Connect(*m_ui->cmdRemove, [this] { m_session.RemoveFringe(); });
    Connect(*m_ui->cmdRenumber, [this] { m_session.RenumberFringe(); });
}

void frmToolBox::Refresh()
{
    const ToolBox& tools = m_session.Tools;
    const ToolControls& controls = tools.Controls();
    for (const ShapeFrame& frame : ShapeFrames()) {
        frame.Kind.setCurrentIndex(ItemOf(tools.KindOf(frame.Role)));
        frame.Kind.setEnabled(controls.Enable);
        for (QPushButton* const button : {&frame.Add, &frame.Load, &frame.Save})
            button->setEnabled(controls.Enable);
        frame.Clear.setEnabled(controls.MayClear(frame.Role));
    }
    for (QWidget* const control : std::initializer_list<QWidget*>{
             m_ui->lblOrder, m_ui->updOrder, m_ui->cmdInsert, m_ui->cmdRemove, m_ui->cmdRenumber})
        control->setEnabled(controls.Enable);
    QAbstractSpinBox::StepEnabled steps;
    steps.setFlag(QAbstractSpinBox::StepUpEnabled, tools.OrderAfter(1) != tools.CurrentOrder());
    steps.setFlag(QAbstractSpinBox::StepDownEnabled, tools.OrderAfter(-1) != tools.CurrentOrder());
    m_ui->updOrder->ShowOrder(QString::fromStdString(tools.OrderText()), steps);
}

// Not a dialog that a key dismisses: its close box hides it.
void frmToolBox::keyPressEvent(QKeyEvent* Event)
{
    if (Event->key() == Qt::Key_Escape)
        ReturnToPicture();
    else
        QDialog::keyPressEvent(Event);
}

void frmToolBox::showEvent(QShowEvent* Event)
{
    QDialog::showEvent(Event);
    emit VisibilityChanged(true);
}

void frmToolBox::hideEvent(QHideEvent* Event)
{
    QDialog::hideEvent(Event);
    emit VisibilityChanged(isVisible());
}

} // namespace morvane
