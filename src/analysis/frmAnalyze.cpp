#include "analysis/frmAnalyze.h"

#include <QKeyEvent>

#include "shell/modFileLib.h"
#include "shell/qt/FileChooser.h"
#include "ui_frmAnalyze.h"

namespace morvane {
namespace {

constexpr int NoReferenceItem = 0, SharedReferenceItem = 1; // before the files in cboReference

// The choices of a group, in the order of their values.
using Radios = std::array<QRadioButton*, 3>;

Radios ScalesOf(const Ui::frmAnalyze& Form)
{
    return {Form.optScaleFactor0, Form.optScaleFactor1, Form.optScaleFactor2};
}

Radios UnitsOf(const Ui::frmAnalyze& Form)
{
    return {Form.optDisplay0, Form.optDisplay1, Form.optDisplay2};
}

int Chosen(const Radios& Of)
{
    for (std::size_t i = 0; i < Of.size(); ++i)
        if (Of[i]->isChecked())
            return static_cast<int>(i);
    return 0;
}

std::array<std::pair<QCheckBox*, bool RemoveFlags::*>, 5> RemovesOf(const Ui::frmAnalyze& Form)
{
    return {{{Form.chkRemove0, &RemoveFlags::Tilt}, {Form.chkRemove1, &RemoveFlags::Focus},
        {Form.chkRemove2, &RemoveFlags::Astigmatism}, {Form.chkRemove3, &RemoveFlags::Coma},
        {Form.chkRemove4, &RemoveFlags::Spherical}}};
}

// What the user types stays as typed: the text of the options is what the field sent.
void ShowText(QLineEdit& Field, const std::string& Text)
{
    const QString text = QString::fromStdString(Text);
    if (Field.text() != text)
        Field.setText(text);
}

} // namespace

frmAnalyze::frmAnalyze(Session& In, QWidget* Owner)
    : QDialog(Owner, Qt::Tool), m_session(In), m_ui(std::make_unique<Ui::frmAnalyze>())
{
    m_ui->setupUi(this);
    m_ui->cboReference->installEventFilter(this);
    ConnectControls();
    m_session.Analyze.Changed = [this] { Refresh(); };
    Refresh();
}

frmAnalyze::~frmAnalyze() = default;

// Only what the user does is stored: these signals are silent when the program sets a control.
void frmAnalyze::ConnectControls()
{
    for (QAbstractButton* button : findChildren<QAbstractButton*>())
        if (button->isCheckable())
            connect(button, &QAbstractButton::clicked, this, &frmAnalyze::Store);
    for (QComboBox* list : {m_ui->cboReference, m_ui->cboLimitOrder})
        connect(list, &QComboBox::activated, this, &frmAnalyze::Store);
    for (QLineEdit* field : {m_ui->txtScaleFactor, m_ui->txtInputWL, m_ui->txtOutputWL})
        connect(field, &QLineEdit::textEdited, this, &frmAnalyze::Store);
    connect(m_ui->cmdBrowse, &QPushButton::clicked, this, &frmAnalyze::Browse);
    connect(m_ui->cmdApply, &QPushButton::clicked, this, [this] { m_session.AnalyzeFringes(); });
    connect(m_ui->cmdClose, &QPushButton::clicked, this, &QWidget::hide);
}

void frmAnalyze::Refresh()
{
    const AnalyzeOptions& options = m_session.Analyze.Options();
    RefreshReferences();
    ScalesOf(*m_ui)[static_cast<int>(options.Scale)]->setChecked(true);
    m_ui->txtScaleFactor->setEnabled(options.Scale == ScaleChoice::Custom);
    ShowText(*m_ui->txtScaleFactor, options.CustomScale);
    m_ui->chkInvertWavefront->setChecked(options.InvertWavefront);
    ShowText(*m_ui->txtInputWL, options.InputWavelength);
    ShowText(*m_ui->txtOutputWL, options.OutputWavelength);
    UnitsOf(*m_ui)[static_cast<int>(options.Unit)]->setChecked(true);
    m_ui->chkTrim->setChecked(options.TrimEdges);
    m_ui->cboLimitOrder->setCurrentIndex(static_cast<int>(options.Limit));
    for (const auto& [box, flag] : RemovesOf(*m_ui))
        box->setChecked(options.Removed.*flag);
}

void frmAnalyze::RefreshReferences()
{
    QStringList items{tr("None"), tr("Custom")};
    const clsRefPath& files = m_session.Analyze.References();
    for (int i = 1; i <= files.Count(); ++i)
        items.append(QString::fromStdString(FileTitle(files.GetItem(i), false)));
    QComboBox& list = *m_ui->cboReference;
    list.clear();
    list.addItems(items);
    for (int i = 1; i <= files.Count(); ++i)
        list.setItemData(
            SharedReferenceItem + i, QString::fromStdString(files.GetItem(i)), Qt::ToolTipRole);
    list.setCurrentIndex(m_session.Analyze.Options().Reference);
}

void frmAnalyze::Store()
{
    AnalyzeOptions options;
    options.Reference = m_ui->cboReference->currentIndex();
    options.Scale = static_cast<ScaleChoice>(Chosen(ScalesOf(*m_ui)));
    options.CustomScale = m_ui->txtScaleFactor->text().toStdString();
    options.InvertWavefront = m_ui->chkInvertWavefront->isChecked();
    options.InputWavelength = m_ui->txtInputWL->text().toStdString();
    options.OutputWavelength = m_ui->txtOutputWL->text().toStdString();
    options.Unit = static_cast<DisplayUnit>(Chosen(UnitsOf(*m_ui)));
    options.TrimEdges = m_ui->chkTrim->isChecked();
    options.Limit = static_cast<OrderLimit>(std::max(0, m_ui->cboLimitOrder->currentIndex()));
    for (const auto& [box, flag] : RemovesOf(*m_ui))
        options.Removed.*flag = box->isChecked();
    m_session.Analyze.SetOptions(options);
}

void frmAnalyze::Browse()
{
    const std::optional<FileChoice> choice = AskOpenFiles(this,
        {.Title = "Browse File",
            .Filter = "Zernikes (*.zrn *.mvd)|*.zrn;*.mvd",
            .Directory = m_session.Analyze.BrowseFolder,
            .FileName = {}});
    if (!choice)
        return;
    for (const std::string& path : choice->Paths) {
        m_session.Analyze.BrowseFolder = FileDirectory(path);
        if (const auto refusal = m_session.Analyze.AddReference(path))
            m_session.ShowMessage(refusal->Text, refusal->Flags, refusal->Title);
    }
}

void frmAnalyze::showEvent(QShowEvent* Event)
{
    QDialog::showEvent(Event);
    emit VisibilityChanged(true);
}

void frmAnalyze::hideEvent(QHideEvent* Event)
{
    QDialog::hideEvent(Event);
    emit VisibilityChanged(isVisible());
}

// Delete takes the chosen file off the closed list of references.
bool frmAnalyze::eventFilter(QObject* Watched, QEvent* Event)
{
    const QComboBox& list = *m_ui->cboReference;
    if (Watched == &list && Event->type() == QEvent::KeyPress
        && static_cast<QKeyEvent*>(Event)->key() == Qt::Key_Delete
        && list.currentIndex() > SharedReferenceItem) {
        m_session.Analyze.RemoveReference(list.currentIndex());
        return true;
    }
    return QDialog::eventFilter(Watched, Event);
}

} // namespace morvane
