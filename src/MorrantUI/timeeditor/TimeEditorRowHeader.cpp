// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/TimeEditorRowHeader.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/platform/vectorregisters.h"
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/drawing.h>
#include <MorrantUI/timeeditor/TimeEditorBaseItem.h>
#include <MorrantUI/timeeditor/TimeEditorView.h>

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QWheelEvent>

#include <algorithm>

namespace {

constexpr int kMargin = 4;      ///< logical pixels, at either end of a label
constexpr int kIndent = 14;     ///< logical pixels a level
constexpr int kArrow = 16;      ///< logical pixels across, the arrow's own place
constexpr int kIcon = 16;       ///< logical pixels across
constexpr int kSpacing = 4;     ///< logical pixels between icon and text
constexpr int kDeepest = 10000; ///< levels that are told apart: pixels are whole numbers
constexpr int kUsualWidth = 200;
constexpr std::size_t kLeastTidied = 64; ///< entries that came since
constexpr float kLineAlpha = 0.28F;      ///< of the line below a row, as the view draws it

int indent(const TimeRowLabel& label)
{
    return kMargin + std::clamp(label.depth, 0, kDeepest) * kIndent;
}

} // namespace

TimeEditorRowHeader::TimeEditorRowHeader(TimeEditorView* view, QWidget* parent)
    : Widget(parent)
    , m_view(view)
{
    setFocusPolicy(Qt::StrongFocus);
    ui::installAccessible<TimeEditorRowHeader, ui::AccessibleAs<QAccessible::List>>();
    setAccessibleName(tr("Rows"));
    if (!view) {
        return;
    }
    const QScrollBar* const bar = view->verticalScrollBar();
    const auto repaint = qOverload<>(&QWidget::update);
    connect(bar, &QScrollBar::valueChanged, this, repaint);
    connect(bar, &QScrollBar::rangeChanged, this, repaint);
    view->viewport()->installEventFilter(this);
}

TimeEditorRowHeader::~TimeEditorRowHeader() = default;

void TimeEditorRowHeader::setLabel(TimeEditorBaseItem* row, const TimeRowLabel& label)
{
    if (!row) {
        return;
    }
    if (const Entry* const known = find(row)) {
        m_entries[static_cast<std::size_t>(known - m_entries.data())].label = label;
    } else {
        tidy();
        m_places.insert(row, m_entries.size());
        m_entries.push_back({row, label});
    }
    update();
}

/// Forgets dead rows, seldom enough for that to cost nothing.
void TimeEditorRowHeader::tidy()
{
    if (m_entries.size() < m_tidyAt) {
        return;
    }
    std::erase_if(m_entries, [](const Entry& entry) { return !entry.row; });
    m_places.clear();
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        m_places.insert(m_entries[i].row, i);
    }
    m_tidyAt = 2 * m_entries.size() + kLeastTidied;
}

const TimeRowLabel* TimeEditorRowHeader::label(const TimeEditorBaseItem* row) const
{
    const Entry* const entry = find(row);
    return entry ? &entry->label : nullptr;
}

void TimeEditorRowHeader::clear()
{
    m_entries.clear();
    m_places.clear();
    m_current = nullptr; // readers hear of it when the next one is set, perhaps the same again
    update();
}

void TimeEditorRowHeader::setCurrentRow(TimeEditorBaseItem* row)
{
    TimeEditorBaseItem* const wanted = find(row) ? row : nullptr;
    const QString text = wanted ? label(wanted)->text : QString();
    if (text != accessibleDescription()) { // of rows that were filled anew
        setAccessibleDescription(text);
    }
    if (m_current != wanted) {
        m_current = wanted;
        update();
    }
}

void TimeEditorRowHeader::showRow(TimeEditorBaseItem* row)
{
    const Entry* const entry = find(row);
    if (!entry || !m_view) {
        return;
    }
    const QRect place = labelRect(*entry);
    const QRect seen = viewportRect();
    const int below = std::max(0, place.bottom() - seen.bottom());
    const int above = std::max(0, seen.top() - (place.top() - below));
    QScrollBar* const bar = m_view->verticalScrollBar();
    bar->setValue(bar->value() + below - above);
}

TimeEditorBaseItem* TimeEditorRowHeader::rowAt(QPoint position) const
{
    for (const Entry* const entry : living()) {
        if (labelRect(*entry).contains(position)) {
            return entry->row;
        }
    }
    return nullptr;
}

QRect TimeEditorRowHeader::labelRect(const TimeEditorBaseItem* row) const
{
    const Entry* const entry = find(row);
    return entry ? labelRect(*entry) : QRect();
}

QRect TimeEditorRowHeader::foldRect(const TimeEditorBaseItem* row) const
{
    const Entry* const entry = find(row);
    return entry ? foldRect(*entry) : QRect();
}

QSize TimeEditorRowHeader::sizeHint() const
{
    return {kUsualWidth, m_view ? m_view->sizeHint().height() : 0};
}

const TimeEditorRowHeader::Entry* TimeEditorRowHeader::find(const TimeEditorBaseItem* row) const
{
    const auto place = m_places.constFind(row);
    const Entry* const entry = place != m_places.cend() ? &m_entries[*place] : nullptr;
    return row && entry && entry->row == row ? entry : nullptr; // another may have had its address
}

std::vector<const TimeEditorRowHeader::Entry*> TimeEditorRowHeader::living() const
{
    std::vector<const Entry*> entries;
    for (const Entry& entry : m_entries) {
        if (m_view && entry.row && entry.row->isVisible()) {
            entries.push_back(&entry);
        }
    }
    std::stable_sort(entries.begin(), entries.end(), [](const Entry* a, const Entry* b) {
        return a->row->scenePos().y() < b->row->scenePos().y();
    });
    return entries;
}

/// The view's viewport in this widget's coordinates: all that the two need in common.
QRect TimeEditorRowHeader::viewportRect() const
{
    const QWidget* const seen = m_view->viewport();
    const int top = mapFromGlobal(seen->mapToGlobal(QPoint())).y();
    return {0, top, width(), seen->height()};
}

QRect TimeEditorRowHeader::labelRect(const Entry& entry) const
{
    if (!m_view || !entry.row) {
        return {};
    }
    const QPointF place = entry.row->scenePos();
    const int top = m_view->mapFromScene(place).y();
    const int bottom = m_view->mapFromScene(place + QPointF(0.0, entry.row->rect().bottom())).y();
    return {0, viewportRect().top() + top, width(), bottom - top};
}

QRect TimeEditorRowHeader::foldRect(const Entry& entry) const
{
    const QRect place = labelRect(entry);
    const QRect fold(indent(entry.label), place.top(), kArrow, place.height());
    return entry.label.foldable ? mirrored(fold) : QRect();
}

/// Where something is whose place is meant from left to right.
QRect TimeEditorRowHeader::mirrored(const QRect& place) const
{
    return QStyle::visualRect(layoutDirection(), rect(), place);
}

bool TimeEditorRowHeader::eventFilter(QObject* watched, QEvent* event)
{
    // Only the viewport is watched, and its last events come when its view is none any more.
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move) {
        update();
    }
    return Widget::eventFilter(watched, event);
}

void TimeEditorRowHeader::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.setLayoutDirection(layoutDirection()); // Qt would ask the application
    painter.fillRect(rect(), ui::colorQt(QStringLiteral("Window")));
    if (!m_view) {
        return;
    }
    painter.setClipRect(viewportRect());
    for (const Entry* const entry : living()) {
        if (labelRect(*entry).intersects(event->rect())) {
            paintLabel(painter, *entry);
        }
    }
    painter.setClipping(false);
    if (m_showsFocus) {
        ui::drawFocusRing(painter, rect(), 0.0);
    }
}

void TimeEditorRowHeader::paintLabel(QPainter& painter, const Entry& entry) const
{
    const QRect place = labelRect(entry);
    const TimeRowLabel& label = entry.label;
    if (entry.row == m_current) {
        painter.fillRect(place, ui::colorQt(QStringLiteral("RowHighlight2")));
        ui::drawSelectionEdge(painter, place, isRightToLeft() ? Qt::RightEdge : Qt::LeftEdge);
    }
    QColor line = ui::colorQt(QStringLiteral("Shadow"));
    line.setAlphaF(kLineAlpha);
    ui::fillSharp(painter, QRectF(place.left(), place.bottom(), place.width(), 1.0), line);

    const QColor ink =
        ui::colorQt(label.dimmed ? QStringLiteral("HelperHints") : QStringLiteral("Text"));
    if (label.foldable) {
        const Qt::ArrowType aside = isRightToLeft() ? Qt::LeftArrow : Qt::RightArrow;
        ui::drawChevron(painter, foldRect(entry), label.folded ? aside : Qt::DownArrow, ink);
    }
    QRect room = place.adjusted(indent(label) + kArrow, 0, -kMargin, 0);
    if (!label.icon.isNull()) {
        const QRect icon(room.left(), place.center().y() - kIcon / 2 + 1, kIcon, kIcon);
        const auto mode = label.dimmed ? QIcon::Disabled : QIcon::Normal;
        label.icon.paint(&painter, mirrored(icon), Qt::AlignCenter, mode);
        room.setLeft(icon.right() + 1 + kSpacing);
    }
    painter.setPen(ink);
    morrant::native::clearVectorRegisters();
    painter.drawText(
        mirrored(room),
        Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, // the painter mirrors it
        fontMetrics().elidedText(label.text, Qt::ElideRight, room.width()));
}

void TimeEditorRowHeader::choose(TimeEditorBaseItem* row)
{
    setCurrentRow(row);
    showRow(row);
    Q_EMIT currentRowChosen(row);
}

void TimeEditorRowHeader::chooseBy(int steps)
{
    const auto entries = living();
    const auto now = std::find_if(entries.begin(), entries.end(), [this](const Entry* entry) {
        return entry->row == m_current;
    });
    const int count = static_cast<int>(entries.size());
    const int at = now == entries.end() ? -1 : static_cast<int>(now - entries.begin());
    const int wanted = std::clamp(
        std::clamp(at, -1, count) + std::clamp(steps, -count, count), 0, std::max(0, count - 1));
    if (count > 0 && wanted != at) {
        choose(entries[static_cast<std::size_t>(wanted)]->row);
    }
}

void TimeEditorRowHeader::fold(bool folded, Qt::KeyboardModifiers modifiers)
{
    const Entry* const entry = find(m_current);
    if (entry && entry->label.foldable && entry->label.folded != folded) {
        Q_EMIT foldRequested(m_current, folded, modifiers.testFlag(Qt::ControlModifier));
    }
}

void TimeEditorRowHeader::mousePressEvent(QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    TimeEditorBaseItem* const row = rowAt(position);
    if (!row || event->button() != Qt::LeftButton) {
        event->ignore();
    } else if (const Entry* const entry = find(row); foldRect(*entry).contains(position)) {
        const bool all = event->modifiers().testFlag(Qt::ControlModifier);
        Q_EMIT foldRequested(row, !entry->label.folded, all);
    } else {
        choose(row);
    }
}

void TimeEditorRowHeader::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    const Entry* const entry = find(rowAt(position));
    const bool folds = entry && entry->label.foldable && event->button() == Qt::LeftButton;
    if (folds && !foldRect(*entry).contains(position)) {
        Q_EMIT foldRequested(entry->row, !entry->label.folded, false);
    } else {
        mousePressEvent(event); // the second of two quick ones on an arrow is one as well
    }
}

void TimeEditorRowHeader::wheelEvent(QWheelEvent* event)
{
    if (m_view && !(event->modifiers() & Qt::ControlModifier)) {
        QCoreApplication::sendEvent(m_view->viewport(), event);
    }
    event->accept();
}

void TimeEditorRowHeader::keyPressEvent(QKeyEvent* event)
{
    const int all = static_cast<int>(m_entries.size());
    switch (event->key()) {
    case Qt::Key_Up: chooseBy(-1); break;
    case Qt::Key_Down: chooseBy(1); break;
    case Qt::Key_Home: chooseBy(-all); break;
    case Qt::Key_End: chooseBy(all); break;
    case Qt::Key_Left: fold(!isRightToLeft(), event->modifiers()); break;
    case Qt::Key_Right: fold(isRightToLeft(), event->modifiers()); break;
    default: Widget::keyPressEvent(event); break;
    }
}

void TimeEditorRowHeader::focusInEvent(QFocusEvent* event)
{
    const Qt::FocusReason reason = event->reason();
    m_showsFocus = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
                   || reason == Qt::ShortcutFocusReason;
    Widget::focusInEvent(event);
}

void TimeEditorRowHeader::focusOutEvent(QFocusEvent* event)
{
    m_showsFocus = false;
    Widget::focusOutEvent(event);
}
