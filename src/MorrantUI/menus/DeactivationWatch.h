// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <QTimer>

#include <functional>

class QEvent;
class QWidget;

namespace ui {

/// Notices that the user has left a widget's window, and all that belongs to it, for another one.
///
/// A change is looked at only when it has settled: between two windows there is often a moment
/// without an active one, and the press that activated a window comes after that and should still
/// find the panel open, lest the anchor's press open it again.
class DeactivationWatch : public QObject
{
    Q_OBJECT

public:
    DeactivationWatch(QWidget* widget, std::function<void()> dismiss);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void lookSoon();
    void look();

    QWidget* m_widget; ///< the parent
    std::function<void()> m_dismiss;
    bool m_wasActive; ///< since it was last shown
    QTimer m_settling;
};

} // namespace ui
