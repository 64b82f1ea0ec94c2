// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/PopoverPanel.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/menus/AccessiblePopover.h"
#include "MorrantUI/menus/heldcontent.h"
#include "MorrantUI/menus/popovergeometry.h"
#include <MorrantUI/menus/dismiss.h>
#include <MorrantUI/menus/keyboardnavigation.h>
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/screens.h>

#include <QAccessible>
#include <QApplication>
#include <QEvent>
#include <QLayoutItem>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <utility>

namespace {

constexpr int kPadding = 10; ///< logical pixels around the content
constexpr double kEdge = 1.0;

/// What everything that a widget lies in leaves to be seen of it, on screen; may be empty.
QRect seenPart(const QWidget& widget)
{
    QRect seen({}, widget.size().expandedTo({1, 1}));
    const QWidget* inner = &widget;
    for (; !inner->isWindow(); inner = inner->parentWidget()) {
        seen = seen.translated(inner->pos()) & inner->parentWidget()->rect();
    }
    return {inner->mapToGlobal(seen.topLeft()), seen.size()};
}

QSize roomFor(const QWidget& widget, QSize size)
{
    if (widget.hasHeightForWidth()) {
        size.setHeight(widget.heightForWidth(size.width()));
    }
    return size;
}

} // namespace

PopoverPanel::PopoverPanel(QWidget* parent)
    : QWidget(parent, Qt::Tool | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint)
    , m_placement(std::make_unique<ui::popover::Placement>())
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_QuitOnClose, false);
    ui::installAccessible<PopoverPanel, ui::AccessiblePopover>();
    ui::dismissOnEscape(this, [this] { dismiss(); });
    ui::dismissOnDeactivation(this, [this] { dismiss(); });
    ui::dismissOnOutsidePress(this, [this](QWidget* pressed, QPoint position) {
        const bool isToggled = isAnchor(*pressed, position);
        dismiss();
        return isToggled;
    });
}

PopoverPanel::~PopoverPanel() = default;

void PopoverPanel::setContent(QWidget* content)
{
    if (content && ui::encloses(*content, *this)) {
        return;
    }
    m_maker = nullptr;
    if (content == m_content) {
        return;
    }
    const QPointer<PopoverPanel> self(this);
    const QPointer<QWidget> wanted(content);
    const QPointer<QWidget> before = std::exchange(m_content, wanted);
    const bool hadFocus = ui::discardContent(before, *this);
    if (!self || m_content != wanted) {
        return; // a slot has thought of another one
    }
    if (wanted) {
        wanted->setParent(this);
        wanted->show();
    }
    follow();
    if (hadFocus && m_isWorking) {
        takeFocus();
    }
}

void PopoverPanel::setContentMaker(std::function<QWidget*()> maker, QSize expectedSize)
{
    setContent(nullptr);
    m_maker = std::move(maker);
    m_expectedSize = expectedSize;
    follow();
}

void PopoverPanel::setPreferredSide(PopoverSide side)
{
    m_preferredSide = side;
    follow();
}

std::optional<QPoint> PopoverPanel::arrowTip() const
{
    return m_placement->hasArrow ? std::optional(m_placement->window.topLeft() + m_placement->tip)
                                 : std::nullopt;
}

void PopoverPanel::openAt(QWidget* anchor)
{
    if (!anchor || !anchor->isVisible() || ui::belongsTo(anchor, this)) {
        return;
    }
    m_anchorRect.reset();
    watchAnchor(anchor);
    open();
}

void PopoverPanel::openAt(const QRect& globalAnchor)
{
    m_anchorRect = globalAnchor;
    watchAnchor(parentWidget());
    open();
}

void PopoverPanel::watchAnchor(QWidget* anchor)
{
    disconnect(m_anchorDeath);
    m_anchor = anchor;
    if (anchor) {
        m_anchorDeath = connect(anchor, &QObject::destroyed, this, &PopoverPanel::dismiss);
    }
}

void PopoverPanel::open()
{
    winId(); // so that it can be tied to the anchor's window before it is first shown
    const bool isCircle =
        ui::belongsTo(m_anchor, this); // as of a parent in a panel within this one
    const QWidget* const over = m_anchor && !isCircle ? m_anchor->window() : nullptr;
    windowHandle()->setTransientParent(over ? over->windowHandle() : nullptr);
    m_wasSeen = false;
    if (isVisible()) {
        follow();
        return;
    }
    m_focusBefore = QApplication::focusWidget();
    m_windowBefore = QApplication::activeWindow();
    if (!m_windowBefore && m_anchor) {
        m_windowBefore = m_anchor->window();
    }
    setAttribute(
        Qt::WA_KeyboardFocusChange,
        m_windowBefore && m_windowBefore->testAttribute(Qt::WA_KeyboardFocusChange));
    m_isWorking = true;
    qApp->installEventFilter(this); // the anchor moves with anything that it lies in
    const QPointer<PopoverPanel> self(this);
    follow();
    show();
    if (!self || !isVisible()) {
        return;
    }
    takeFocus();
    QAccessibleEvent started(this, QAccessible::DialogStart);
    QAccessible::updateAccessibility(&started);
    Q_EMIT opened();
}

void PopoverPanel::takeFocus()
{
    activateWindow();
    focusContent();
}

/// While the window system has not made the panel active yet, this is what the activation finds.
void PopoverPanel::focusContent()
{
    QWidget* target = focusWidget(); // where it was when the panel was last open
    if (!target || target == this || !target->isVisible() || !target->isEnabled()) {
        target = ui::tabStops(this).value(0);
    }
    if (target) {
        target->setFocus(
            testAttribute(Qt::WA_KeyboardFocusChange) ? Qt::TabFocusReason : Qt::OtherFocusReason);
    } else {
        setFocus();
    }
}

void PopoverPanel::dismiss()
{
    hide();
}

void PopoverPanel::setVisible(bool visible)
{
    if (visible && !m_isWorking) {
        return; // it has no place yet
    }
    QWidget::setVisible(visible);
    if (!isVisible()) {
        finish(); // last: this object may be deleted by it
    }
}

/// Every way of closing ends here.
void PopoverPanel::finish()
{
    if (!std::exchange(m_isWorking, false)) {
        return;
    }
    qApp->removeEventFilter(this);
    disconnect(m_anchorDeath);
    const QPointer<PopoverPanel> self(this);
    QAccessibleEvent ended(this, QAccessible::DialogEnd);
    QAccessible::updateAccessibility(&ended);
    giveFocusBack();
    if (self) {
        Q_EMIT closed();
    }
}

void PopoverPanel::giveFocusBack()
{
    const QPointer<QWidget> window = std::exchange(m_windowBefore, nullptr);
    const QPointer<QWidget> focus = std::exchange(m_focusBefore, nullptr);
    const auto isElsewhere = [this](const QWidget* widget) {
        return widget && !ui::belongsTo(widget, this);
    };
    const QWidget* const active = QApplication::activeWindow();
    if (isElsewhere(QApplication::focusWidget()) || (active != window && isElsewhere(active))) {
        return; // the user has moved on
    }
    // Also where nothing in it had the focus: without an active window no key would get anywhere.
    if (window && window->isVisible()
        && QGuiApplication::applicationState() == Qt::ApplicationActive) {
        window->activateWindow();
    }
    if (focus && focus->isVisible()) {
        focus->setFocus(Qt::PopupFocusReason);
    }
}

bool PopoverPanel::isAnchor(const QWidget& pressed, QPoint position) const
{
    if (m_anchorRect) {
        return m_anchorRect->contains(position);
    }
    return m_anchor && (&pressed == m_anchor || m_anchor->isAncestorOf(&pressed));
}

QSize PopoverPanel::around(const QSize& contentSize) const
{
    return contentSize + QSize(2 * kPadding, 2 * kPadding);
}

/// Places the panel, if it is open, by its anchor and its content of now.
void PopoverPanel::follow()
{
    if (!m_isWorking) {
        return;
    }
    ui::popover::Request request;
    request.preferred = m_preferredSide;
    request.wanted = around(m_maker ? m_expectedSize : QSize());
    request.least = request.wanted;
    if (m_content) {
        const QWidgetItem item(m_content);
        request.wanted =
            around(roomFor(*m_content, item.sizeHint().expandedTo(item.minimumSize())));
        request.least = around(item.minimumSize());
    }
    if (m_anchorRect) {
        request.anchor = *m_anchorRect;
    } else if (m_anchor) {
        const QRect seen = seenPart(*m_anchor);
        m_wasSeen = m_wasSeen || !seen.isEmpty();
        request.anchor =
            seen.isEmpty() ? QRect(m_anchor->mapToGlobal(QPoint()), m_anchor->size()) : seen;
    }
    if (const QScreen* screen = getClosestScreenAt(request.anchor.center())) {
        request.screen = screen->availableGeometry();
    }
    const ui::popover::Placement before = std::exchange(*m_placement, ui::popover::place(request));
    if (before != *m_placement) {
        applyPlacement();
    }
    if (m_content) {
        m_content->setGeometry(
            m_placement->body.adjusted(kPadding, kPadding, -kPadding, -kPadding));
    }
}

/// An anchor that is scrolled out of sight takes the panel along, unless it is back by the time
/// that whoever moves it is through.
void PopoverPanel::followSeenAnchor()
{
    const auto isLost = [this] {
        return m_isWorking && m_wasSeen && m_anchor && seenPart(*m_anchor).isEmpty();
    };
    if (!isLost()) {
        follow();
        return;
    }
    QTimer::singleShot(0, this, [this, isLost] {
        if (isLost()) {
            dismiss();
        }
    });
}

void PopoverPanel::applyPlacement()
{
    setGeometry(m_placement->window);
    // Presses beside the arrow are not the panel's; and where no compositor blends the corners,
    // they would be black.
    const QRegion inside(ui::popover::outline(*m_placement, 0.0).toFillPolygon().toPolygon());
    setMask(inside | inside.translated(1, 0) | inside.translated(0, 1) | inside.translated(1, 1));
    update();
}

void PopoverPanel::makeContent()
{
    if (!m_maker || !isVisible()) {
        return;
    }
    const auto maker = std::exchange(m_maker, nullptr);
    const QPointer<PopoverPanel> self(this);
    QWidget* const content = maker();
    if (!self) {
        return;
    }
    setContent(content);
    if (const QWidget* const focus = focusWidget(); !focus || focus == this) {
        focusContent();
    }
}

/// A modal dialog over the panel takes the activation, and nobody gives it back if the dialog was
/// opened for no window at all.
void PopoverPanel::passDialog(const QEvent& event)
{
    if (event.type() == QEvent::WindowBlocked) {
        m_isInterrupted = QApplication::activeWindow() == this;
    } else if (event.type() == QEvent::WindowUnblocked && std::exchange(m_isInterrupted, false)) {
        QTimer::singleShot(0, this, [this] { // the dialog is still to be seen
            const QWidget* const active = QApplication::activeWindow();
            if (isVisible() && (!active || ui::belongsTo(this, active))) {
                takeFocus();
            }
        });
    }
}

bool PopoverPanel::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::LayoutRequest: follow(); break;
    case QEvent::ChildRemoved:
        if (static_cast<QChildEvent*>(event)->child() == m_content) {
            m_content = nullptr; // it lies elsewhere now
        }
        QCoreApplication::postEvent(this, new QEvent(QEvent::LayoutRequest));
        break;
    default: break;
    }
    return QWidget::event(event);
}

bool PopoverPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == windowHandle()) {
        passDialog(*event);
        return false;
    }
    const bool moves = event->type() == QEvent::Move || event->type() == QEvent::Resize;
    if ((!moves && event->type() != QEvent::Hide) || !m_anchor || !watched->isWidgetType()) {
        return QWidget::eventFilter(watched, event);
    }
    const auto* const widget = static_cast<QWidget*>(watched);
    if (widget == m_anchor || widget->isAncestorOf(m_anchor) || widget == m_anchor->window()) {
        if (moves) {
            followSeenAnchor();
        } else {
            dismiss();
        }
    }
    return false;
}

void PopoverPanel::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ui::colorQt(QStringLiteral("Midlight")), kEdge));
    painter.setBrush(ui::colorQt(QStringLiteral("Window")));
    painter.drawPath(ui::popover::outline(*m_placement, kEdge / 2));
    if (m_maker) {
        QTimer::singleShot(0, this, &PopoverPanel::makeContent); // now that the panel is to be seen
    }
}
