// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QGraphicsWidget>

class QGraphicsLinearLayout;
class TimeEditorBaseItem;
class TimeEditorCurveItem;
class TimeEditorKeyframeItem;

/// The stack of rows in a TimeEditorScene: from y 0 downwards without gaps, each as tall as its
/// item's rectangle. Draws a fine line below each row.
class MORRANT_UI_EXPORT TimeEditorLayoutContainer : public QGraphicsWidget
{
    Q_OBJECT

public:
    explicit TimeEditorLayoutContainer(QGraphicsItem* parent = nullptr);
    ~TimeEditorLayoutContainer() override;

    /// Vertical, without spacing or margins; belongs to the container.
    QGraphicsLinearLayout* linearLayout() const { return m_layout; }

    /// Appends a row, which then belongs to the container, below an item of its own that stands for
    /// several rows. It is at its place at once. Null, and a row that is in the stack already, are
    /// ignored.
    void addRow(TimeEditorBaseItem* row);

    /// Where rows end: the y below the last one.
    double rowsBottom() const;

    /// The key of a row at a place of the scene, or null.
    TimeEditorKeyframeItem* keyAt(const QRectF& place) const;

    /// As wide as frames can be: keys lie anywhere.
    QRectF boundingRect() const override;
    bool collidesWithPath(const QPainterPath& path, Qt::ItemSelectionMode mode) const override;
    void setGeometry(const QRectF& rect) override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    friend class TimeEditorScene;

    /// What lies at a place of the scene, as far as rows know it without Qt.
    struct Under
    {
        TimeEditorKeyframeItem* key = nullptr;
        TimeEditorCurveItem* row = nullptr; ///< whose bar is there
        bool others = false;                ///< there is a row that only Qt knows
    };
    Under under(const QRectF& place) const;

    QGraphicsLinearLayout* m_layout;
    double m_bottom = 0.0; ///< of rows that the layout has not placed yet
};
