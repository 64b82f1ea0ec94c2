// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/controls/gestures/pointermath.h>
#include <MorrantUI/morrantui_export.h>

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QWidget>

/// Reports what mice do before the system makes a pointer of it: motion without acceleration, that
/// goes on at the screen's edge. Windows only.
class MORRANT_UI_EXPORT NativeMouseTracker : public QObject, public QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    /// @param widget  its window receives the raw input, also while another window has the focus;
    ///                may die while the tracker lives
    explicit NativeMouseTracker(QWidget* widget, QObject* parent = nullptr);
    ~NativeMouseTracker() override;

    /// Registers for raw mouse input and forgets what was tracked before. When the host has
    /// registered for it too, its registration is put aside until the last tracker stops.
    ///
    /// @return false when the system has no raw input, refuses it, or the widget's window has no
    ///         native window
    bool startTracking();
    void stopTracking(); ///< does nothing when it is not tracking
    bool isTracking() const { return m_tracking; }

    /// The pointer's position on the desktop in physical pixels; (0, 0) when the system does not
    /// tell.
    static QPointF currentPosition();

    /// Physical pixels that a unit of the latest absolute motion stands for.
    QPointF absoluteScale() const { return m_absoluteScale; }

    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

Q_SIGNALS:
    /// @param delta     in units of the device: counts of a mouse or, where `absolute`, what a
    ///                  tablet or a remote pointer measures its position in
    void mouseMoved(QPointF delta, bool absolute);

private:
    void handle(const ui::RawMouseRecord& record);

    QPointer<QWidget> m_widget;
    ui::AbsoluteTrack m_track;
    QPointF m_absoluteScale{1.0, 1.0};
    bool m_tracking = false;
};
