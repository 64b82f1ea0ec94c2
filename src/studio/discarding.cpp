#include "discarding.h"

#include <MorrantUI/menus/ModalDialog.h>

namespace studio {

bool mayDiscard(const QString& question, const QString& consequence, QWidget* parent)
{
    const auto buttons = QDialogButtonBox::Discard | QDialogButtonBox::Cancel;
    return ModalDialog::getChoice(question, consequence, buttons, QDialogButtonBox::Cancel, parent)
           == QDialogButtonBox::Discard;
}

} // namespace studio
