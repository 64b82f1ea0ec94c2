// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeline/MarkerNameEdit.h"

#include "MorrantUI/controls/buttons/buttonlook.h"
#include <MorrantUI/timeline/TimelineScene.h>
#include <MorrantUI/timeline/TimelineView.h>

#include <QKeyEvent>

#include <utility>

MarkerNameEdit::MarkerNameEdit(TimelineView* view, int marker, const QString& name)
    : LineEdit(view->viewport())
    , m_view(view)
    , m_marker(marker)
{
    setAccessibleName(tr("Marker name"));
    setText(name);
    m_shown = text();
    selectAll();
    setCursor(Qt::IBeamCursor);
}

MarkerNameEdit::~MarkerNameEdit() = default;

/// Return and Escape are kept from the window's shortcuts.
bool MarkerNameEdit::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (key.key() == Qt::Key_Escape || ui::isReturn(key)) {
            event->accept();
            return true;
        }
    }
    return LineEdit::event(event);
}

void MarkerNameEdit::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape || ui::isReturn(*event)) {
        finish(event->key() != Qt::Key_Escape);
    } else {
        LineEdit::keyPressEvent(event);
    }
}

void MarkerNameEdit::focusOutEvent(QFocusEvent* event)
{
    const bool staysOpen = goesToOwnMenu(*event);
    LineEdit::focusOutEvent(event);
    if (!staysOpen) {
        finish(true);
    }
}

void MarkerNameEdit::finish(bool takesName)
{
    if (std::exchange(m_isFinished, true)) {
        return;
    }
    deleteLater();
    if (hasFocus()) {
        m_view->setFocus(Qt::OtherFocusReason);
    }
    hide();
    std::optional<TimelineMarker> marker = m_view->getTimelineScene()->marker(m_marker);
    if (takesName && marker && text() != m_shown) {
        marker->name = text().trimmed();
        m_view->changeMarker(*marker);
    }
}
