// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/dialogs.h"

#include "MorrantUI/menus/CheckedField.h"
#include "MorrantUI/menus/PresetDialog.h"
#include "MorrantUI/menus/weblinks.h"
#include <MorrantUI/controls/values/LineEdit.h>
#include <MorrantUI/controls/values/NumericField.h>
#include <MorrantUI/menus/ModalDialog.h>

#include <QApplication>
#include <QCoreApplication>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>
#include <QValidator>

#include <algorithm>
#include <functional>

namespace ui {

namespace {

constexpr int kLabelGap = 4; ///< logical pixels from the label to the field

QWidget* parentOrActive(QWidget* parent)
{
    return parent ? parent : QApplication::activeWindow();
}

/// A dialog with OK and Cancel around a labelled field. Null parent: the active window.
ModalDialog* makeDialog(const QString& title, const QString& text, LineEdit* field, QWidget* parent)
{
    auto* const dialog = new ModalDialog(title, parentOrActive(parent));
    auto* const content = new QWidget;
    auto* const column = new QVBoxLayout(content);
    auto* const label = new QLabel(text, content);
    label->setTextFormat(Qt::PlainText);
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

/// Takes space away from around what is pasted or typed.
class TrimmingValidator : public QValidator
{
public:
    using QValidator::QValidator;

    State validate(QString& text, int& position) const override
    {
        const QString trimmed = text.trimmed();
        if (trimmed != text) {
            const auto before =
                std::find_if_not(text.begin(), text.end(), [](QChar c) { return c.isSpace(); });
            position -= static_cast<int>(before - text.begin());
            position = std::clamp(position, 0, static_cast<int>(trimmed.size()));
            text = trimmed;
        }
        return Acceptable;
    }
};

QString translated(const char* text)
{
    return QCoreApplication::translate("ui::dialogs", text);
}

CheckedField::Verdict linkVerdict(const QString& text)
{
    switch (links::checkWebLink(text).fault) {
    case links::Fault::None: return {QString(), true};
    case links::Fault::Empty:
        return {translated(QT_TRANSLATE_NOOP(
            "ui::dialogs", "Paste the address of the sheet, as the browser shows it."))};
    case links::Fault::HasSpace:
        return {
            translated(QT_TRANSLATE_NOOP("ui::dialogs", "A link has no spaces in it.")),
            false,
            true};
    case links::Fault::NotWeb:
        return {
            translated(QT_TRANSLATE_NOOP("ui::dialogs", "A link begins with https:// or http://")),
            false,
            true};
    case links::Fault::NoHost:
        return {
            translated(QT_TRANSLATE_NOOP(
                "ui::dialogs", "The name of the site is missing after the two slashes.")),
            false,
            true};
    case links::Fault::Malformed: break;
    }
    return {
        translated(QT_TRANSLATE_NOOP("ui::dialogs", "This is not a complete link.")), false, true};
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
    QPushButton* const ok = dialog->button(QDialogButtonBox::Ok);
    QObject::connect(ok, &QPushButton::pressed, ok, [ok] {
        ok->setFocus(); // also by its mnemonic: the field enters what was typed, or refuses it
    });
    return run<int>(dialog, [field, minimum, most] {
        return static_cast<int>(std::clamp<double>(field->value(), minimum, most));
    });
}

std::optional<QUrl> getSpreadsheetLink(
    const QString& title, const QString& label, const QUrl& initial, QWidget* parent)
{
    auto* const dialog = new ModalDialog(title, parentOrActive(parent));
    auto* const link = new CheckedField(label, initial.toString(QUrl::EncodeSpaces), linkVerdict);
    link->field()->setValidator(new TrimmingValidator(link));
    dialog->setContent(link);
    dialog->setButtons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, QDialogButtonBox::Ok);
    QPushButton* const ok = dialog->button(QDialogButtonBox::Ok);
    QObject::connect(link, &CheckedField::checked, ok, &QPushButton::setEnabled);
    ok->setEnabled(link->isUsable());
    link->field()->setFocus(Qt::TabFocusReason); // with everything selected
    return run<QUrl>(dialog, [link] { return links::checkWebLink(link->text()).url; });
}

std::optional<QString> getPresetName(
    const QString& title, const QStringList& existing, const QString& initial, QWidget* parent)
{
    auto* const dialog = new PresetDialog(title, existing, initial, parentOrActive(parent));
    return run<QString>(dialog, [dialog] { return dialog->name(); });
}

} // namespace ui
