#include "shell/frmInput.h"

#include <QEvent>
#include <QPushButton>
#include <QValidator>
#include <algorithm>

#include "shell/qt/DialogPlace.h"
#include "ui_frmInput.h"

namespace morvane {
namespace {

class CharacterFilter final : public QValidator {
public:
    CharacterFilter(InputKind Kind, QObject* Parent) : QValidator(Parent), m_kind(Kind) { }

    State validate(QString& Text, int&) const override
    {
        const bool passes = std::ranges::all_of(Text.toStdU32String(),
            [this](char32_t character) { return AcceptsCharacter(m_kind, character); });
        return passes ? Acceptable : Invalid;
    }

private:
    const InputKind m_kind;
};

} // namespace

frmInput::frmInput(const InputRequest& Request, SettingsStore& Settings, QWidget* Owner)
    : QDialog(Owner), m_request(Request), m_settings(Settings),
      m_ui(std::make_unique<Ui::frmInput>())
{
    m_ui->setupUi(this);
    setWindowTitle(QString::fromStdString(Request.Caption));
    m_ui->lblPrompt->setText(QString::fromStdString(Request.Prompt));
    m_ui->txtInput->setText(QString::fromStdString(Request.Text));
    m_ui->txtInput->setValidator(new CharacterFilter(Request.Kind, this));
    m_ui->txtInput->installEventFilter(this);
    m_ui->txtInput->selectAll(); // even if the window system is slow to give it the focus
    m_ui->buttons->button(QDialogButtonBox::Ok)->setObjectName("cmdOK");
    m_ui->buttons->button(QDialogButtonBox::Cancel)->setObjectName("cmdCancel");
    TakeKeptPlace(*this, Settings, InputPlace);
}

frmInput::~frmInput() = default;

InputAnswer frmInput::Answer() const
{
    return AnswerOf(m_request, m_ui->txtInput->text().toStdString());
}

void frmInput::done(int Result)
{
    KeepPlace(*this, m_settings, InputPlace);
    QDialog::done(Result);
}

// After the press that gives it the focus, which sets the cursor.
bool frmInput::eventFilter(QObject* Watched, QEvent* Event)
{
    if (Watched == m_ui->txtInput && Event->type() == QEvent::FocusIn)
        QMetaObject::invokeMethod(m_ui->txtInput, &QLineEdit::selectAll, Qt::QueuedConnection);
    return QDialog::eventFilter(Watched, Event);
}

} // namespace morvane
