// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QWidget>

class QTimer;
class TabBarOverlay;
class TabRow;

/// A tab that is held over its row: marks where a drop would put it, and scrolls the row while it
/// is held at an edge.
class TabHover : public QObject
{
    Q_OBJECT

public:
    /// Owned by the row's header, over whose other children the mark is shown.
    explicit TabHover(TabRow* row);
    ~TabHover() override;

    /// @param tab one of the row's
    /// @param position in the header
    void hold(QWidget* tab, const QPoint& position);
    /// Dropped, or held elsewhere.
    void end();

    /// Brings the mark to the header's size.
    void fitHeader();

private:
    void mark();
    void scrollAtEdge();

    TabRow* m_row;
    TabBarOverlay* m_overlay;
    QTimer* m_edgeTimer; ///< runs from hold() to end()
    QPointer<QWidget> m_tab;
    QPoint m_position; ///< where it is held
};
