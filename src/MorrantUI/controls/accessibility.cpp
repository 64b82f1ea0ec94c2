// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/accessibility.h"

#include <QTextDocumentFragment>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <utility>

namespace ui {

std::optional<double> numberIn(const QVariant& value)
{
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    return isNumber && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

AccessibleNumberControl::AccessibleNumberControl(
    QWidget* widget, QAccessible::Role role, AccessibleNumber number)
    : QAccessibleWidget(widget, role)
    , m_number(std::move(number))
{}

void* AccessibleNumberControl::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface) {
        return static_cast<QAccessibleValueInterface*>(this);
    }
    return QAccessibleWidget::interface_cast(type);
}

QString AccessibleNumberControl::text(QAccessible::Text kind) const
{
    if (kind == QAccessible::Description) {
        return plainDescription(*widget(), text(QAccessible::Name));
    }
    const QString own = QAccessibleWidget::text(kind);
    if (kind != QAccessible::Name || !own.isEmpty()) {
        return own;
    }
    const QString tip = nameFromToolTip(*widget());
    const QWidget* const whole = widget()->parentWidget();
    QAccessibleInterface* const outer = tip.isEmpty() && whole ? parent() : nullptr;
    const bool isPart =
        outer
        && (whole->focusProxy() == widget() || dynamic_cast<const AccessibleGrouping*>(outer));
    return isPart ? outer->text(kind) : tip;
}

QVariant AccessibleNumberControl::currentValue() const
{
    return m_number.value();
}

void AccessibleNumberControl::setCurrentValue(const QVariant& value)
{
    const std::optional<double> number = numberIn(value);
    if (number && widget()->isEnabled()) {
        m_number.setValue(*number);
    }
}

QVariant AccessibleNumberControl::maximumValue() const
{
    return m_number.maximum();
}

QVariant AccessibleNumberControl::minimumValue() const
{
    return m_number.minimum();
}

QVariant AccessibleNumberControl::minimumStepSize() const
{
    return m_number.step();
}

QString AccessibleNamed::text(QAccessible::Text kind) const
{
    if (kind == QAccessible::Description) {
        return plainDescription(*widget(), text(QAccessible::Name));
    }
    const QString own = QAccessibleWidget::text(kind);
    return kind == QAccessible::Name && own.isEmpty() ? nameFromToolTip(*widget()) : own;
}

int AccessibleParts::childCount() const
{
    return static_cast<int>(parts().size());
}

QAccessibleInterface* AccessibleParts::child(int index) const
{
    return QAccessible::queryAccessibleInterface(parts().value(index));
}

int AccessibleParts::indexOfChild(const QAccessibleInterface* child) const
{
    auto* const part = child ? qobject_cast<QWidget*>(child->object()) : nullptr;
    return static_cast<int>(parts().indexOf(part));
}

QString AccessibleParts::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Description ? plainDescription(*widget(), text(QAccessible::Name))
                                            : QAccessibleWidget::text(kind);
}

QString plainText(const QString& text)
{
    return Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
}

QString nameFromToolTip(const QWidget& widget)
{
    return plainText(widget.toolTip());
}

QString plainDescription(const QWidget& widget, const QString& name)
{
    const QString own = plainText(widget.accessibleDescription());
    const QString text = own.isEmpty() ? nameFromToolTip(widget) : own;
    return text == name ? QString() : text;
}

void notifyAccessible(QObject* object, QAccessible::Event what)
{
    if (QAccessible::isActive()) {
        QAccessibleEvent event(object, what);
        QAccessible::updateAccessibility(&event);
    }
}

void notifyAccessibleValue(QObject* object, const QVariant& value)
{
    const auto* const widget = qobject_cast<const QWidget*>(object);
    if (!QAccessible::isActive() || (widget && !widget->isVisible())) {
        return;
    }
    QAccessibleValueChangeEvent event(object, value);
    QAccessible::updateAccessibility(&event);
}

void notifyAccessibleCheck(QWidget* box)
{
    if (!QAccessible::isActive() || !box->isVisible()) {
        return;
    }
    QAccessible::State changed;
    changed.checked = true;
    changed.checkStateMixed = true;
    QAccessibleStateChangeEvent event(box, changed);
    QAccessible::updateAccessibility(&event);
}

namespace {

QuietReaders* gQuiet = nullptr;                    ///< the innermost that lives
std::optional<QAccessible::UpdateHandler> gBefore; ///< where events go on to, while one listens

} // namespace

QuietReaders::QuietReaders(const QObject* object, std::initializer_list<QAccessible::Event> types)
    : m_object(object)
    , m_types(types)
    , m_outer(gQuiet)
{
    gQuiet = this;
    if (m_object && !gBefore && QAccessible::isActive()) {
        m_isInstalled = true;
        gBefore = QAccessible::installUpdateHandler(&QuietReaders::pass);
    }
}

QuietReaders::~QuietReaders()
{
    gQuiet = m_outer;
    if (m_isInstalled) {
        QAccessible::installUpdateHandler(*gBefore);
        gBefore.reset();
    }
}

bool QuietReaders::keeps(const QAccessibleEvent& event) const
{
    if (std::count(m_types.begin(), m_types.end(), event.type()) == 0) {
        return false;
    }
    const QObject* told = event.object();
    while (told && told != m_object) {
        told = told->parent();
    }
    return told != nullptr;
}

void QuietReaders::pass(QAccessibleEvent* event)
{
    for (const QuietReaders* each = gQuiet; each; each = each->m_outer) {
        if (each->keeps(*event)) {
            return;
        }
    }
    // Qt lets nobody else hand an event to the system.
    QAccessible::installUpdateHandler(gBefore.value_or(nullptr));
    QAccessible::updateAccessibility(event);
    QAccessible::installUpdateHandler(&QuietReaders::pass);
}

} // namespace ui
