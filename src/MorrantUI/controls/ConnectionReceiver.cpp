#include <MorrantUI/controls/ConnectionReceiver.h>

#include <QApplication>
#include <QHash>
#include <QWidget>

namespace {

/// Widgets are taken out when they or their receiver die.
QHash<const QObject*, ConnectionReceiver*>& registry()
{
    // Itself never destroyed, since static widgets may die later.
    static auto* const receivers = new QHash<const QObject*, ConnectionReceiver*>;
    return *receivers;
}

bool isAboveOrSame(const QWidget* ancestor, const QWidget* widget)
{
    while (widget != nullptr && widget != ancestor) {
        widget = widget->parentWidget(); // also from a dialog to the window it was opened for
    }
    return widget != nullptr;
}

bool isBlockedByDialog(const QWidget* widget)
{
    const QWidget* const dialog = QApplication::activeModalWidget();
    if (dialog == nullptr || isAboveOrSame(dialog, widget)) {
        return false;
    }
    const bool blocksAll = dialog->windowModality() == Qt::ApplicationModal;
    return blocksAll || isAboveOrSame(widget->window(), dialog);
}

} // namespace

ConnectionReceiver::ConnectionReceiver()
    : m_alive(std::make_shared<bool>(true))
{}

ConnectionReceiver::~ConnectionReceiver()
{
    registry().removeIf([this](const auto& entry) { return entry.value() == this; });
}

void ConnectionReceiver::makeWidgetReceiver(QWidget* widget)
{
    if (widget == nullptr) {
        return;
    }
    if (!registry().contains(widget)) {
        QObject::connect(
            widget, &QObject::destroyed, widget, [](QObject* dead) { registry().remove(dead); });
    }
    registry().insert(widget, this);
}

void ConnectionReceiver::removeWidgetReceiver(QWidget* widget)
{
    if (of(widget) == this) {
        registry().remove(widget);
    }
}

ConnectionReceiver* ConnectionReceiver::of(const QWidget* widget)
{
    return registry().value(widget);
}

QWidget* ConnectionReceiver::widgetAt(QPoint globalPosition)
{
    QWidget* widget = QApplication::widgetAt(globalPosition);
    if (widget == nullptr || isBlockedByDialog(widget)) {
        return nullptr;
    }
    while (widget != nullptr && !(widget->isEnabled() && of(widget) != nullptr)) {
        widget = widget->isWindow() ? nullptr : widget->parentWidget();
    }
    return widget;
}

void ConnectionReceiver::onConnectionEnter(ConnectionInstance* /*connection*/)
{}

void ConnectionReceiver::onConnectionMove(ConnectionInstance* /*connection*/)
{}

void ConnectionReceiver::onConnectionLeave(ConnectionInstance* /*connection*/)
{}

void ConnectionReceiver::onConnectionDrop(ConnectionInstance* /*connection*/)
{}
