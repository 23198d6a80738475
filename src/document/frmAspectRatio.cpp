#include "document/frmAspectRatio.h"

#include <QRegularExpressionValidator>

#include "platform/Numbers.h"
#include "ui_frmAspectRatio.h"

namespace morvane {

frmAspectRatio::frmAspectRatio(Session& In, QWidget* Owner)
    : QDialog(Owner), m_session(In), m_ui(std::make_unique<Ui::frmAspectRatio>())
{
    m_ui->setupUi(this);
    m_ui->txtAspectRatio->setValidator(
        new QRegularExpressionValidator(QRegularExpression("[0-9.]*"), this));
    m_ui->txtAspectRatio->setText(
        QString::fromStdString(ToDecimal(In.Prefs.ManualAspectRatio).PlainText()));
    m_ui->txtAspectRatio->selectAll();
}

frmAspectRatio::~frmAspectRatio() = default;

void frmAspectRatio::accept()
{
    const std::string ratio = m_ui->txtAspectRatio->text().toStdString();
    QDialog::accept();
    m_session.AdjustAspectRatio(LeadingNumber(ratio));
}

} // namespace morvane
