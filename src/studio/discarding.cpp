// SPDX-License-Identifier: Apache-2.0
#include "discarding.h"

#include <MorrantUI/menus/ModalDialog.h>

#include <QCoreApplication>
#include <QPointer>
#include <QPushButton>

namespace studio {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("studio", text);
}

} // namespace

Leaving askToLeave(const QString& question, const QString& text, QWidget* parent)
{
    const auto buttons =
        QDialogButtonBox::Save | QDialogButtonBox::Discard | QDialogButtonBox::Cancel;
    switch (ModalDialog::getChoice(question, text, buttons, QDialogButtonBox::Save, parent)) {
    case QDialogButtonBox::Save: return Leaving::Save;
    case QDialogButtonBox::Discard: return Leaving::Discard;
    default: return Leaving::Stay;
    }
}

Overwriting askToOverwrite(const QString& question, const QString& text, QWidget* parent)
{
    // What the file holds now would be lost: that is what the button of discarding stands for.
    const QPointer<ModalDialog> dialog = new ModalDialog(question, parent);
    dialog->setText(text);
    dialog->setButtons(
        QDialogButtonBox::Save | QDialogButtonBox::Discard | QDialogButtonBox::Cancel,
        QDialogButtonBox::Cancel);
    dialog->button(QDialogButtonBox::Save)->setText(tr("Save &As…"));
    dialog->button(QDialogButtonBox::Discard)->setText(tr("&Overwrite"));
    dialog->exec();
    const auto chosen = dialog ? dialog->chosen() : QDialogButtonBox::Cancel;
    delete dialog.data(); // here, since the parent may go before the loop comes round
    switch (chosen) {
    case QDialogButtonBox::Save: return Overwriting::SaveAs;
    case QDialogButtonBox::Discard: return Overwriting::Overwrite;
    default: return Overwriting::Cancel;
    }
}

} // namespace studio
