// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>
#include <QtTest>

#include <utility>

namespace ui::test {

/// Counts the paint events of a widget.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget* widget) { widget->installEventFilter(this); }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        m_paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    /// The paints since the last call, those that are due included.
    int take()
    {
        QTest::qWait(20); // a window system takes a moment to ask for them
        return std::exchange(m_paints, 0);
    }

private:
    int m_paints = 0;
};

} // namespace ui::test
