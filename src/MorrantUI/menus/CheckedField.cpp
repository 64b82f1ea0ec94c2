// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/CheckedField.h"

#include <MorrantUI/controls/values/LineEdit.h>
#include <MorrantUI/theme/colors.h>

#include <QEvent>
#include <QLabel>
#include <QVBoxLayout>

#include <utility>

namespace ui {

namespace {

constexpr int kGap = 4; ///< logical pixels between label, field and note

QLabel* plainLabel(const QString& text, QWidget* parent)
{
    auto* const label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

} // namespace

CheckedField::CheckedField(const QString& label, const QString& text, Rule rule)
    : m_field(new LineEdit(this))
    , m_note(plainLabel(QString(), this))
    , m_rule(std::move(rule))
{
    auto* const column = new QVBoxLayout(this);
    auto* const name = plainLabel(label, this);
    name->setBuddy(m_field);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kGap);
    column->addWidget(name);
    column->addWidget(m_field);
    column->addWidget(m_note);
    m_note->setMinimumHeight(m_note->fontMetrics().lineSpacing()); // a note may come and go
    m_field->setAccessibleName(label);
    m_field->setText(text);
    connect(m_field, &QLineEdit::textChanged, this, &CheckedField::check);
    setFocusProxy(m_field);
    check();
}

QString CheckedField::text() const
{
    return m_field->text();
}

void CheckedField::setText(const QString& text)
{
    m_field->setText(text);
    m_field->selectAll();
}

void CheckedField::check()
{
    m_verdict = m_rule(m_field->text());
    m_field->setInvalid(m_verdict.isWrong);
    m_field->setAccessibleDescription(m_verdict.note);
    m_note->setText(m_verdict.note);
    colourNote();
    Q_EMIT checked(m_verdict.isUsable);
}

void CheckedField::colourNote()
{
    QPalette colours;
    colours.setColor(
        QPalette::WindowText,
        ui::colorQt(m_verdict.isWrong ? QStringLiteral("Red") : QStringLiteral("HelperHints")));
    m_note->setPalette(colours);
}

void CheckedField::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) {
        colourNote(); // the theme may be another
    }
    QWidget::changeEvent(event);
}

} // namespace ui
