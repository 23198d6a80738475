#include "CameraDialog.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QSpinBox>

namespace morvane::demo {
namespace {

QSpinBox* addValue(QFormLayout& to, const char* name, const char* caption, int least, int most,
    int value, const char* unit)
{
    auto* const box = new QSpinBox;
    box->setObjectName(name);
    box->setRange(least, most);
    box->setValue(value);
    box->setSuffix(QString::fromUtf8(unit));
    to.addRow(caption, box);
    return box;
}

} // namespace

void EditSettings(CameraSettings& Settings)
{
    QDialog dialog(QApplication::activeWindow());
    dialog.setWindowTitle("Demo Camera");
    auto* const form = new QFormLayout(&dialog);
    const QSpinBox* const fringes =
        addValue(*form, "spnFringes", "&Fringe Count", 1, 60, Settings.Fringes, "");
    const QSpinBox* const tilt =
        addValue(*form, "spnTilt", "&Tilt of the Fringes", -90, 90, Settings.Tilt, "°");
    const QSpinBox* const noise =
        addValue(*form, "spnNoise", "&Noise", 0, 60, Settings.Noise, " gray levels");
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    form->addRow(buttons);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    if (dialog.exec() == QDialog::Accepted)
        Settings = {fringes->value(), tilt->value(), noise->value()};
}

} // namespace morvane::demo
