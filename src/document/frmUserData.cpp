#include "document/frmUserData.h"

#include <QPushButton>

#include "shell/qt/DialogPlace.h"
#include "ui_frmUserData.h"

namespace morvane {
namespace {

// A text of several lines, as documents keep it.
std::string LinesOf(const QPlainTextEdit& box)
{
    return box.toPlainText().replace("\n", "\r\n").toStdString();
}

} // namespace

frmUserData::frmUserData(clsDocument& Of, Session& In, SettingsStore& Settings, QWidget* Owner)
    : QDialog(Owner), m_document(Of), m_session(In), m_settings(Settings),
      m_ui(std::make_unique<Ui::frmUserData>())
{
    m_ui->setupUi(this);
    m_ui->buttons->button(QDialogButtonBox::Ok)->setObjectName("cmdOK");
    m_ui->buttons->button(QDialogButtonBox::Cancel)->setObjectName("cmdCancel");
    Fill();
    connect(m_ui->cmdToday, &QPushButton::clicked, this,
        [this] { m_ui->txtDate->setText(QString::fromStdString(TodayText())); });
    TakeKeptPlace(*this, Settings, UserDataPlace);
}

frmUserData::~frmUserData() = default;

void frmUserData::Fill()
{
    const UserData& shown = m_document.Optic;
    m_ui->txtDescription->setText(QString::fromStdString(shown.Description));
    m_ui->txtDate->setText(QString::fromStdString(shown.Date));
    m_ui->txtOperator->setText(QString::fromStdString(shown.Operator));
    m_ui->txtComments->setPlainText(QString::fromStdString(shown.Comments));
    m_ui->chkSetDefault->setChecked(m_session.Prefs.SetAsDefault);
}

void frmUserData::accept()
{
    m_session.SetUserData(m_document,
        {.Description = m_ui->txtDescription->text().toStdString(),
            .Date = m_ui->txtDate->text().toStdString(),
            .Operator = m_ui->txtOperator->text().toStdString(),
            .Comments = LinesOf(*m_ui->txtComments)},
        m_ui->chkSetDefault->isChecked());
    QDialog::accept();
}

void frmUserData::done(int Result)
{
    KeepPlace(*this, m_settings, UserDataPlace);
    QDialog::done(Result);
}

} // namespace morvane
