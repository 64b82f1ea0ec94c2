// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>

class QWidget;

namespace morrant::native {

/// What has been asked of the window system for one widget. It is asked again whenever the native
/// window is a new one, and not at all while the widget is no window. Owned by the widget.
class WindowWishes : public QObject
{
    Q_OBJECT

public:
    /// The wishes of a widget, made at the first call.
    static WindowWishes& of(QWidget& widget);

    void setDarkTitleBar();
    void setFloating(bool floating);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Stacking
    {
        AsItIs, ///< nobody ever asked
        Ordinary,
        Floating,
    };

    explicit WindowWishes(QWidget& widget);

    void applyAll();
    void applyDarkTitleBar();
    void applyStacking();
    void applyOwner();

    QWidget& m_widget;
    bool m_darkTitleBar = false;
    bool m_blocked = false; ///< by a modal dialog
    Stacking m_stacking = Stacking::AsItIs;
};

} // namespace morrant::native
