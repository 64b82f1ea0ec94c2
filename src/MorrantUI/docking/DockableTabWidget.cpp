// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/DockableTabWidget.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/docking/AccessibleDocking.h"
#include "MorrantUI/docking/tabs/TabLabel.h"
#include "MorrantUI/docking/tabs/tablook.h"
#include "MorrantUI/theme/style/shapes.h"
#include <MorrantUI/docking/tabs/tabreorder.h>
#include <MorrantUI/theme/colors.h>

#include <QDragEnterEvent>
#include <QHBoxLayout>
#include <QMimeData>
#include <QPainter>
#include <QTimer>

namespace {

constexpr int kSidePadding = 8;  ///< logical pixels beside the text
constexpr int kNarrowest = 48;   ///< logical pixels, for texts of a letter or two
constexpr int kHoverDelay = 400; ///< milliseconds that a drag rests on a tab to bring it forward

} // namespace

DockableTabWidget::DockableTabWidget(const QString& text, QWidget* parent)
    : Widget(parent)
    , m_label(new TabLabel(this))
{
    ui::installAccessible<DockableTabWidget, ui::AccessibleDockTab>();
    setAcceptDrops(true);
    setMinimumWidth(kNarrowest);
    setRadius(ui::style::kRadius, ui::style::kRadius, 0, 0);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(kSidePadding, 0, kSidePadding, 0);
    row->addWidget(m_label);
    setText(text);
    followTheme();
}

DockableTabWidget::~DockableTabWidget() = default;

QString DockableTabWidget::text() const
{
    return m_label->wholeText();
}

void DockableTabWidget::setText(const QString& text)
{
    m_label->showText(text);
    setAccessibleName(text);
}

void DockableTabWidget::setActive(bool active)
{
    if (active != m_active) {
        m_active = active;
        stopHoverTimer();
        m_label->setActive(active);
        setFocusPolicy(active ? Qt::TabFocus : Qt::NoFocus); // one stop for the whole strip
        followTheme();
        if (active) {
            ui::notifyAccessible(this, QAccessible::Selection);
        }
    }
}

void DockableTabWidget::changeEvent(QEvent* event)
{
    Widget::changeEvent(event);
    if (event->type() == QEvent::StyleChange) { // as of every applyAppStyle()
        followTheme();
    }
}

void DockableTabWidget::mousePressEvent(QMouseEvent* event)
{
    Widget::mousePressEvent(event);
    event->accept(); // what it grabs is the drag handler's; and a slot may delete the tab
    Q_EMIT pressed();
}

void DockableTabWidget::dragEnterEvent(QDragEnterEvent* event)
{
    if (m_active || event->mimeData()->hasFormat(ui::tabs::reorderFormat())) {
        event->ignore();
        return;
    }
    event->accept();
    startHoverTimer();
}

void DockableTabWidget::dragLeaveEvent(QDragLeaveEvent* event)
{
    stopHoverTimer();
    event->ignore();
}

/// Nothing can be dropped on a tab: it is only on the way.
void DockableTabWidget::dropEvent(QDropEvent* event)
{
    stopHoverTimer();
    event->setDropAction(Qt::IgnoreAction);
    event->ignore();
}

void DockableTabWidget::hideEvent(QHideEvent* event)
{
    stopHoverTimer();
    Widget::hideEvent(event);
}

void DockableTabWidget::paintEvent(QPaintEvent* event)
{
    Widget::paintEvent(event);

    QPainter painter(this);
    const ui::style::WidgetState state = ui::style::stateOf(*this);
    if (m_active) {
        ui::tabs::paintAccent(painter, rect(), state);
    }
    if (state.keyboard) {
        ui::tabs::paintFocus(painter, rect());
    }
}

void DockableTabWidget::startHoverTimer()
{
    if (!m_hoverTimer) {
        m_hoverTimer = new QTimer(this);
        m_hoverTimer->setSingleShot(true);
        m_hoverTimer->setInterval(kHoverDelay);
        connect(m_hoverTimer, &QTimer::timeout, this, &DockableTabWidget::pressed);
    }
    m_hoverTimer->start();
}

void DockableTabWidget::stopHoverTimer()
{
    if (m_hoverTimer) {
        m_hoverTimer->stop();
    }
}

void DockableTabWidget::followTheme()
{
    const auto ground =
        m_active ? QStringLiteral("AlternateBase") : QStringLiteral("TabBackground");
    setBackgroundColor(ui::colorQt(ground));
}
