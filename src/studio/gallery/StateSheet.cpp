// SPDX-License-Identifier: Apache-2.0
#include "gallery/StateSheet.h"

#include "gallery/sections.h"
#include <MorrantUI/controls/values/RenamableLabel.h>

#include <QAccessible>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>

#include <algorithm>

namespace studio {

namespace {

constexpr int kCellWidth = 130; ///< logical pixels
constexpr int kOtherColumn = static_cast<int>(std::size(gallery::kStates)) + 1;

QString nameOf(gallery::State state)
{
    using gallery::State;
    switch (state) {
    case State::Hovered: return StateSheet::tr("Hovered");
    case State::Pressed: return StateSheet::tr("Pressed");
    case State::Focused: return StateSheet::tr("Focused");
    case State::On: return StateSheet::tr("On");
    case State::Disabled: return StateSheet::tr("Disabled");
    case State::Rest: break;
    }
    return StateSheet::tr("At rest");
}

/// What can have the focus is called as its row is, unless it says what it is.
void nameParts(QWidget& whole, const QString& name)
{
    for (QWidget* part : QWidgetList{&whole} + whole.findChildren<QWidget*>()) {
        const QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(part);
        if (part->focusPolicy() != Qt::NoFocus && seen->text(QAccessible::Name).isEmpty()) {
            part->setAccessibleName(name);
        }
    }
}

} // namespace

StateSheet::StateSheet(QWidget* parent)
    : QWidget(parent)
    , m_grid(new QGridLayout(this))
    , m_focus(new QLabel(this))
{
    m_focus->setAccessibleName(tr("Focus of the controls in these pictures"));
    m_grid->setContentsMargins({});
    addHeadings();
    int line = 1;
    for (const gallery::SpecimenRow& row : gallery::specimenRows()) {
        addRow(line++, row);
    }
}

StateSheet::~StateSheet() = default;

bool StateSheet::event(QEvent* event)
{
    // Gestures end with the window's activity, and without it nothing has the focus, which it gives
    // only after this event.
    if (event->type() == QEvent::Show || event->type() == QEvent::WindowActivate) {
        QMetaObject::invokeMethod(this, &StateSheet::forceStates, Qt::QueuedConnection);
    }
    return QWidget::event(event);
}

void StateSheet::addHeadings()
{
    int column = 1;
    for (const gallery::State state : gallery::kStates) {
        m_grid->addWidget(gallery::caption(nameOf(state)), 0, column);
        m_grid->setColumnMinimumWidth(column++, kCellWidth);
    }
    m_grid->setColumnMinimumWidth(kOtherColumn, kCellWidth);
    m_grid->setColumnStretch(kOtherColumn + 1, 1);
}

void StateSheet::addRow(int line, const gallery::SpecimenRow& row)
{
    m_grid->addWidget(gallery::caption(row.name), line, 0);
    int column = 1;
    for (const gallery::State state : gallery::kStates) {
        if (const auto [widget, part] = row.make(state); widget) {
            nameParts(*widget, row.name);
            addCell(line, column, widget);
            if (state != gallery::State::Rest) {
                widget->setAttribute(Qt::WA_TransparentForMouseEvents);
                const bool isWhole = part == nullptr || state == gallery::State::Disabled;
                m_forced.push_back({isWhole ? widget : part, state});
            }
        }
        ++column;
    }
    if (row.other) {
        QWidget* other = row.other();
        nameParts(*other, row.name);
        addCell(line, kOtherColumn, other);
        m_grid->addWidget(gallery::caption(row.otherName), line, kOtherColumn + 1);
        m_renamed = m_renamed ? m_renamed.data() : qobject_cast<RenamableLabel*>(other);
    }
}

void StateSheet::addCell(int line, int column, QWidget* widget)
{
    if (widget->sizePolicy().expandingDirections().testFlag(Qt::Horizontal)) {
        const int width = kCellWidth - m_grid->horizontalSpacing();
        widget->setFixedWidth(std::max(width, widget->minimumSizeHint().width()));
    }
    m_grid->addWidget(widget, line, column, Qt::AlignLeft | Qt::AlignVCenter);
}

void StateSheet::forceStates()
{
    if (!isVisible()) {
        return;
    }
    for (const auto& [part, state] : m_forced) {
        gallery::force(part, state, m_focus);
    }
    if (isActiveWindow() && m_renamed) {
        pictureEditing();
    }
    window()->setAttribute(Qt::WA_KeyboardFocusChange);
    m_focus->setFocus(Qt::OtherFocusReason);
}

/// Only one widget at a time is really edited: a picture stands for it.
void StateSheet::pictureEditing()
{
    m_renamed->startEditing();
    auto* picture = new QLabel(this);
    picture->setPixmap(m_renamed->grab());
    delete m_grid->replaceWidget(m_renamed, picture);
    delete m_renamed;
    picture->show();
}

} // namespace studio
