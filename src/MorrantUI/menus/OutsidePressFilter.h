// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/menus/dismiss.h>

#include <QEvent>
#include <QObject>
#include <QPointer>
#include <QWidget>

class QPointerEvent;

namespace ui {

/// Watches the application's presses while its widget is to be seen, and only then: hidden panels
/// cost nothing.
class OutsidePressFilter : public QObject
{
    Q_OBJECT

public:
    OutsidePressFilter(QWidget* widget, OutsidePress dismiss);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isOutside(const QWidget& pressed, QPoint position) const;

    bool isRepeated(QWidget& pressed, const QPointerEvent& event);

    QWidget* m_widget; ///< the parent
    OutsidePress m_dismiss;
    QPointer<QWidget> m_pressed; ///< last, up to the release
    quint64 m_pressedAt = 0;     ///< as the event tells
    QEvent::Type m_pressType = QEvent::None;
};

} // namespace ui
