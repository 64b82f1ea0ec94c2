// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/controls/gestures/GestureDoors.h>
#include <MorrantUI/morrantui_export.h>

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QWidget>

#include <memory>

namespace morrant::native {
class PointerConfinement;
}

/// Confines the pointer to a widget's window, less a margin. On Windows, and on X11 with barriers
/// that stop mice, but no warps; other systems do not let us.
///
/// A lock ends with unlock(), with the object, and by every door of GestureDoors but popups, which
/// a locked pointer may use.
class MORRANT_UI_EXPORT PointerLock : public QObject
{
    Q_OBJECT

public:
    /// @param widget  may be null or die, and is then not locked to
    explicit PointerLock(QWidget* widget, QObject* parent = nullptr);
    ~PointerLock() override;

    /// Takes the window where it is now; locking again follows one that has moved.
    ///
    /// Fails, and drops a lock in force, when the widget is hidden, disabled or blocked by a modal
    /// dialog, the application is not the active one, or the window has no native window or is
    /// smaller than its margins; locked() tells.
    void lock();
    void unlock(); ///< does nothing without a lock
    bool locked() const;

    /// Where the pointer was last confined to, in physical pixels of the desktop; empty before the
    /// first lock.
    QRect confiningRect() const { return m_rect; }

private:
    QPointer<QWidget> m_widget;
    QRect m_rect;
    std::unique_ptr<morrant::native::PointerConfinement> m_confinement; ///< while locked
    GestureDoors m_doors;
};
