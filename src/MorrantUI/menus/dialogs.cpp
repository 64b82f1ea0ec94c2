#include "MorrantUI/menus/dialogs.h"

#include <MorrantUI/controls/values/LineEdit.h>
#include <MorrantUI/controls/values/NumericField.h>
#include <MorrantUI/menus/ModalDialog.h>

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>

namespace ui {

namespace {

constexpr int kLabelGap = 4; ///< logical pixels from the label to the field

/// A dialog with OK and Cancel around a labelled field. Null parent: the active window.
ModalDialog* makeDialog(const QString& title, const QString& text, LineEdit* field, QWidget* parent)
{
    auto* const dialog = new ModalDialog(title, parent ? parent : QApplication::activeWindow());
    auto* const content = new QWidget;
    auto* const column = new QVBoxLayout(content);
    auto* const label = new QLabel(text, content);
    label->setBuddy(field);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kLabelGap);
    column->addWidget(label);
    column->addWidget(field);
    field->setAccessibleName(text);
    dialog->setContent(content);
    dialog->setButtons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, QDialogButtonBox::Ok);
    field->setFocus(Qt::TabFocusReason); // with everything selected
    return dialog;
}

/// Runs a dialog and deletes it. `answer` is asked only when the user has confirmed.
template <typename Value>
std::optional<Value> run(QPointer<ModalDialog> dialog, const std::function<Value()>& answer)
{
    const bool confirmed = dialog->exec() == QDialog::Accepted && dialog;
    std::optional<Value> value;
    if (confirmed) {
        value = answer();
    }
    delete dialog.data(); // here, since the parent may go before the loop comes round
    return value;
}

} // namespace

std::optional<QString> getStringInput(
    const QString& title, const QString& label, const QString& initial, QWidget* parent)
{
    auto* const field = new LineEdit;
    field->setText(initial);
    ModalDialog* const dialog = makeDialog(title, label, field, parent);
    QPushButton* const ok = dialog->button(QDialogButtonBox::Ok);
    const auto offerOk = [ok](const QString& text) { ok->setEnabled(!text.trimmed().isEmpty()); };
    QObject::connect(field, &QLineEdit::textChanged, ok, offerOk);
    offerOk(initial);
    return run<QString>(dialog, [field] { return field->text(); });
}

std::optional<int> getIntegerInput(
    const QString& title,
    const QString& label,
    int initial,
    int minimum,
    int maximum,
    QWidget* parent)
{
    const int most = std::max(minimum, maximum);
    auto* const field = new NumericField;
    field->setMin(minimum);
    field->setMax(most);
    field->setValue(initial);
    ModalDialog* const dialog = makeDialog(title, label, field, parent);
    return run<int>(dialog, [field, minimum, most] {
        return static_cast<int>(std::clamp<double>(field->value(), minimum, most));
    });
}

} // namespace ui
