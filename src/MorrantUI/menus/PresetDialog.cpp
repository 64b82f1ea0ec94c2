// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/PresetDialog.h"

#include "MorrantUI/menus/CheckedField.h"
#include "MorrantUI/menus/presetnames.h"
#include <MorrantUI/controls/values/LineEdit.h>

#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace ui {

namespace {

constexpr int kGap = 8;      ///< logical pixels between field and list
constexpr int kLabelGap = 4; ///< from a label to what it names
constexpr int kMostRows = 8; ///< of the list without scrolling

QString faultText(const presets::Checked& checked)
{
    switch (checked.fault) {
    case presets::Fault::None:
    case presets::Fault::Empty: break;
    case presets::Fault::HasForbidden:
        return checked.forbidden.isEmpty()
                   ? PresetDialog::tr("A name has no line breaks or control characters.")
                   : PresetDialog::tr("A name cannot contain %1").arg(checked.forbidden);
    case presets::Fault::EndsWithDot: return PresetDialog::tr("A name cannot end with a dot.");
    case presets::Fault::IsReserved:
        return PresetDialog::tr("This name is reserved by the system.");
    case presets::Fault::TooLong: return PresetDialog::tr("This name is too long.");
    }
    return {};
}

CheckedField::Verdict verdictOn(const QStringList& existing, const QString& text)
{
    const presets::Checked checked = presets::checkName(text);
    if (checked.fault == presets::Fault::Empty) {
        return {};
    }
    if (checked.fault != presets::Fault::None) {
        return {faultText(checked), false, true};
    }
    const bool replaces = !presets::sameName(existing, text).isEmpty();
    return {replaces ? PresetDialog::tr("Replaces the preset of this name.") : QString(), true};
}

} // namespace

PresetDialog::PresetDialog(
    const QString& title, const QStringList& existing, const QString& initial, QWidget* parent)
    : ModalDialog(title, parent)
    , m_existing(existing)
{
    m_existing.removeAll(QString());
    setButtons(QDialogButtonBox::Save | QDialogButtonBox::Cancel, QDialogButtonBox::Save);
    setContent(makeContent(initial));
    QPushButton* const save = button(QDialogButtonBox::Save);
    connect(m_field, &CheckedField::checked, save, &QPushButton::setEnabled);
    save->setEnabled(m_field->isUsable());
    m_field->field()->setFocus(Qt::TabFocusReason); // with everything selected
}

QWidget* PresetDialog::makeContent(const QString& initial)
{
    auto* const content = new QWidget;
    auto* const column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kGap);
    m_field = new CheckedField(tr("Name:"), initial, [existing = m_existing](const QString& text) {
        return verdictOn(existing, text);
    });
    m_field->field()->installEventFilter(this);
    column->addWidget(m_field);
    if (m_existing.isEmpty()) {
        return content;
    }
    auto* const label = new QLabel(tr("Existing presets:"), content);
    m_list = new QListWidget(content);
    label->setBuddy(m_list);
    m_list->setAccessibleName(label->text());
    fillList();
    auto* const listColumn = new QVBoxLayout;
    listColumn->setSpacing(kLabelGap);
    listColumn->addWidget(label);
    listColumn->addWidget(m_list);
    column->addLayout(listColumn);
    connect(m_field->field(), &QLineEdit::textChanged, this, &PresetDialog::markInList);
    connect(m_list, &QListWidget::itemSelectionChanged, this, &PresetDialog::followList);
    connect(m_list, &QListWidget::itemDoubleClicked, this, [this] {
        button(QDialogButtonBox::Save)->click();
    });
    markInList();
    return content;
}

void PresetDialog::fillList()
{
    m_list->setUniformItemSizes(true);
    m_list->addItems(m_existing);
    m_list->ensurePolished();
    const auto rows = std::min<qsizetype>(m_existing.size(), kMostRows);
    m_list->setFixedHeight(
        static_cast<int>(rows) * m_list->sizeHintForRow(0) + 2 * m_list->frameWidth());
}

/// The chosen name goes into the field.
void PresetDialog::followList()
{
    const QList<QListWidgetItem*> chosen = m_list->selectedItems();
    if (!chosen.isEmpty()) {
        m_field->setText(chosen.first()->text());
    }
}

/// The name in the field, if it is there, is chosen in the list.
void PresetDialog::markInList()
{
    const QSignalBlocker blocker(m_list); // the field has it already
    const qsizetype row = m_existing.indexOf(presets::sameName(m_existing, m_field->text()));
    if (row < 0) {
        m_list->clearSelection();
    } else {
        m_list->setCurrentRow(static_cast<int>(row));
    }
}

QString PresetDialog::name() const
{
    const QString existing = presets::sameName(m_existing, m_field->text());
    return existing.isEmpty() ? m_field->text().trimmed() : existing;
}

bool PresetDialog::mayAccept()
{
    if (!m_field->isUsable()) {
        return false;
    }
    const QString existing = presets::sameName(m_existing, m_field->text());
    return existing.isEmpty()
           || getChoice(
                  tr("Replace the preset?"),
                  tr("There is a preset named \u201c%1\u201d. What is in it will be lost.")
                      .arg(existing),
                  QDialogButtonBox::Yes | QDialogButtonBox::No,
                  QDialogButtonBox::No,
                  this)
                  == QDialogButtonBox::Yes;
}

/// Up and down in the field walk the list.
bool PresetDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && m_list) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Down || key == Qt::Key_Up) {
            const int row = m_list->selectedItems().isEmpty() ? -1 : m_list->currentRow();
            const int step = key == Qt::Key_Down ? 1 : -1;
            m_list->setCurrentRow(std::clamp(row + step, 0, m_list->count() - 1));
            return true;
        }
    }
    return ModalDialog::eventFilter(watched, event);
}

} // namespace ui
