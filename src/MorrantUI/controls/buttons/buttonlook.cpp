// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/buttons/buttonlook.h"

#include "MorrantUI/theme/style/metrics.h"
#include "MorrantUI/theme/style/pixelgrid.h"
#include "MorrantUI/theme/style/shades.h"
#include "MorrantUI/theme/style/shapes.h"
#include "MorrantUI/theme/style/sharpicons.h"
#include <MorrantUI/theme/icons.h>

#include <QAbstractButton>
#include <QCoreApplication>
#include <QDialog>
#include <QFontInfo>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>

#include <cmath>

namespace ui {

namespace {

style::Metrics metricsOf(const QWidget& widget)
{
    return style::Metrics(QFontInfo(widget.font()).pixelSize());
}

QPixmap inColor(const QPixmap& mask, const QColor& color)
{
    QPixmap colored = mask;
    QPainter painter(&colored);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(QRect(QPoint(), mask.size()), color);
    return colored;
}

class SpaceKeeper final : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::FocusIn) {
            noteReason(*watched, static_cast<const QFocusEvent*>(event)->reason());
        }
        if (event->type() != QEvent::ShortcutOverride || watched == m_clicked) {
            return false;
        }
        const auto& key = *static_cast<const QKeyEvent*>(event);
        const bool hasFocus = static_cast<QWidget*>(watched)->hasFocus();
        if (!hasFocus || key.key() != Qt::Key_Space || hasModifier(key)) {
            return false;
        }
        event->accept();
        return true;
    }

private:
    void noteReason(QObject& button, Qt::FocusReason reason)
    {
        const bool comesBack =
            reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
        if (!comesBack) {
            m_clicked = reason == Qt::MouseFocusReason ? &button : nullptr;
        }
    }

    QPointer<QObject> m_clicked; ///< has got the focus by the mouse
};

} // namespace

int rowHeight(const QWidget& widget)
{
    return metricsOf(widget).rowHeight();
}

int indicatorHeight(const QWidget& widget)
{
    return metricsOf(widget).indicator();
}

QIcon namedIcon(const QString& name)
{
    return name.isEmpty() ? QIcon() : getCachedIcon(name);
}

QStyleOption buttonOption(const QAbstractButton& button)
{
    QStyleOption option;
    option.initFrom(&button);
    option.state.setFlag(QStyle::State_Sunken, button.isDown());
    option.state.setFlag(QStyle::State_On, button.isChecked());
    return option;
}

void drawMasked(
    QPainter& painter, const QRectF& rect, const QIcon& icon, const QColor& color, bool enabled)
{
    const QSize size = rect.size().toSize();
    const double ratio = std::ceil(style::PixelGrid(painter).scale());
    const QPixmap pixmap = icon.pixmap(size, ratio);
    if (pixmap.isNull()) {
        return;
    }
    QRectF place({}, pixmap.deviceIndependentSize());
    place.moveCenter(rect.center());
    const style::PainterState state(painter);
    painter.setOpacity(painter.opacity() * (enabled ? 1.0 : style::kDisabledOpacity));
    style::drawSharp(painter, place, color.isValid() ? inColor(pixmap, color) : pixmap);
}

bool isReturn(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

bool hasModifier(const QKeyEvent& event)
{
    return (event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier;
}

void keepSpace(QAbstractButton& button)
{
    static QPointer<QObject> keeper; // one for all
    if (!keeper) {
        keeper = new SpaceKeeper(QCoreApplication::instance());
    }
    button.installEventFilter(keeper);
}

bool clickOnReturn(QAbstractButton& button, const QKeyEvent& event)
{
    if (!isReturn(event) || hasModifier(event)) {
        return false;
    }
    if (!event.isAutoRepeat()) {
        button.click();
    }
    return true;
}

bool switchOnReturn(QAbstractButton& button, const QKeyEvent& event)
{
    return !qobject_cast<QDialog*>(button.window()) && clickOnReturn(button, event);
}

} // namespace ui
