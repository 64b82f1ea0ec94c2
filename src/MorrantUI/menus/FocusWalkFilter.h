// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>

class QKeyEvent;

namespace ui {

/// Does what a key means to a container; false if that is nothing.
using FocusWalk = std::function<bool(QWidget* container, int key)>;

/// Hands a container's keys to a walk: those that what has the focus has no use for, and, before
/// they get there, those that a plain button would only turn into steps of its own.
class FocusWalkFilter : public QObject
{
    Q_OBJECT

public:
    FocusWalkFilter(QWidget* container, FocusWalk walk);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void follow(QWidget* focus);
    bool walks(QKeyEvent& key);

    QWidget* m_container; ///< the parent
    FocusWalk m_walk;
    QPointer<QWidget> m_button; ///< with the focus, and filtered
};

} // namespace ui
