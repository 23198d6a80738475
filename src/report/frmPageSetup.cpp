#include "report/frmPageSetup.h"

#include <QPushButton>
#include <algorithm>

#include "report/PagePreview.h"
#include "shell/qt/DialogPlace.h"
#include "ui_frmPageSetup.h"

namespace morvane {
namespace {

struct PaneControls {
    QLabel* Label;
    QComboBox* View;
};

std::array<PaneControls, MaxPanes> PanesOf(const Ui::frmPageSetup& form)
{
    return {{{form.lblPane1, form.cboViews1}, {form.lblPane2, form.cboViews2},
        {form.lblPane3, form.cboViews3}, {form.lblPane4, form.cboViews4},
        {form.lblPane5, form.cboViews5}, {form.lblPane6, form.cboViews6}}};
}

struct ShowControl {
    QCheckBox* Box;
    bool ReportPreferences::*Flag;
};

std::array<ShowControl, 15> ShownRowsOf(const Ui::frmPageSetup& form)
{
    using Report = ReportPreferences;
    return {{{form.chkShow0, &Report::ShowComments}, {form.chkShow1, &Report::ShowOperator},
        {form.chkShow2, &Report::ShowDate}, {form.chkShow3, &Report::ShowWavelength},
        {form.chkShow4, &Report::ShowDescription}, {form.chkShow5, &Report::ShowDataPts},
        {form.chkShow6, &Report::ShowScale}, {form.chkShow7, &Report::ShowSpherical},
        {form.chkShow8, &Report::ShowComa}, {form.chkShow9, &Report::ShowAstigmatism},
        {form.chkShow10, &Report::ShowDefocus}, {form.chkShow11, &Report::ShowTilt},
        {form.chkShow12, &Report::ShowStrehl}, {form.chkShow13, &Report::ShowPV},
        {form.chkShow14, &Report::ShowRMS}}};
}

} // namespace

frmPageSetup::frmPageSetup(ReportPreferences& Edited, SettingsStore& Settings, QWidget* Owner)
    : QDialog(Owner), m_edited(Edited), m_settings(Settings),
      m_ui(std::make_unique<Ui::frmPageSetup>())
{
    m_ui->setupUi(this);
    m_ui->buttons->button(QDialogButtonBox::Ok)->setObjectName("cmdOK");
    m_ui->buttons->button(QDialogButtonBox::Cancel)->setObjectName("cmdCancel");
    Fill();
    ConnectControls();
    UpdatePanes();
    TakeKeptPlace(*this, Settings, PageSetupPlace);
}

frmPageSetup::~frmPageSetup() = default;

void frmPageSetup::Fill()
{
    const bool landscape = m_edited.PageOrientation == LandscapeOrientation;
    (landscape ? m_ui->optOrient2 : m_ui->optOrient1)->setChecked(true);
    m_ui->chkDrawGrid->setChecked(m_edited.DrawPageGrid);
    m_ui->cboPanes->setCurrentIndex(std::clamp(m_edited.NumPanes, 1, MaxPanes) - 1);
    const auto panes = PanesOf(*m_ui);
    for (std::size_t i = 0; i < panes.size(); ++i) {
        QComboBox& views = *panes[i].View;
        for (const PaneChoice& choice : PaneChoices)
            views.addItem(choice.Name, static_cast<int>(choice.View));
        views.setCurrentIndex(views.findData(m_edited.Pane[i]));
        views.setMaxVisibleItems(views.count());
    }
    for (const auto& [box, flag] : ShownRowsOf(*m_ui))
        box->setChecked(m_edited.*flag);
}

void frmPageSetup::ConnectControls()
{
    const auto redraw = [this] { m_ui->picPreview->ShowPage(Chosen()); };
    connect(m_ui->cboPanes, &QComboBox::currentIndexChanged, this, &frmPageSetup::UpdatePanes);
    for (const PaneControls& pane : PanesOf(*m_ui))
        connect(pane.View, &QComboBox::currentIndexChanged, this, redraw);
    for (QAbstractButton* const button : {static_cast<QAbstractButton*>(m_ui->chkDrawGrid),
             static_cast<QAbstractButton*>(m_ui->optOrient2)})
        connect(button, &QAbstractButton::toggled, this, redraw);
}

void frmPageSetup::UpdatePanes()
{
    const auto panes = PanesOf(*m_ui);
    for (int i = 0; i < MaxPanes; ++i) {
        panes[i].Label->setEnabled(i <= m_ui->cboPanes->currentIndex());
        panes[i].View->setEnabled(i <= m_ui->cboPanes->currentIndex());
    }
    m_ui->picPreview->ShowPage(Chosen());
}

ReportPreferences frmPageSetup::Chosen() const
{
    ReportPreferences chosen;
    chosen.PageOrientation =
        m_ui->optOrient2->isChecked() ? LandscapeOrientation : PortraitOrientation;
    chosen.DrawPageGrid = m_ui->chkDrawGrid->isChecked();
    chosen.NumPanes = m_ui->cboPanes->currentIndex() + 1;
    const auto panes = PanesOf(*m_ui);
    for (std::size_t i = 0; i < panes.size(); ++i)
        chosen.Pane[i] = panes[i].View->currentData().toInt();
    for (const auto& [box, flag] : ShownRowsOf(*m_ui))
        chosen.*flag = box->isChecked();
    return chosen;
}

void frmPageSetup::accept()
{
    m_edited = Chosen();
    QDialog::accept();
}

void frmPageSetup::done(int Result)
{
    KeepPlace(*this, m_settings, PageSetupPlace);
    QDialog::done(Result);
}

} // namespace morvane
