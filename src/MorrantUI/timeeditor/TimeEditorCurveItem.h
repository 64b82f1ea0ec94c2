// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/timeeditor/TimeEditorBaseItem.h>

#include <QPointer>
#include <QString>

#include <vector>

class QPainter;
class TimeEditorKeyframeItem;
class TimeEditorView;

/// A row of keys, which are its children: an animated attribute over time. Bars connect the keys.
///
/// The row takes presses only where it draws, so that a rubber band can start in it. It is
/// selectable but does not move; a curve that is selected together with its keys leaves them free.
///
/// As a row of a TimeEditorScene it is drawn in one pass of the view that finds the visible keys by
/// their order. A subclass's paint(), and that of its keys, are called as ever; what they draw has
/// to stay within the row's height.
class MORRANT_UI_EXPORT TimeEditorCurveItem : public TimeEditorBaseItem
{
    Q_OBJECT

public:
    enum class ColorMode
    {
        Plain,  ///< one bar, all keys alike
        Easing, ///< bars and keys are shaded by how the value leaves each key
    };
    Q_ENUM(ColorMode)

    /// @param view whose zoom and track height size the row; it may die before the row
    explicit TimeEditorCurveItem(TimeEditorView* view, QGraphicsItem* parent = nullptr);
    ~TimeEditorCurveItem() override;

    /// Adds a key of the row's own kind; the row owns it.
    TimeEditorKeyframeItem* addKeyframe(int frame);
    /// The y that keys have in the row, so that they sit in its middle. For keys that the host
    /// makes itself with this row as their parent.
    double keyY() const;

    /// The keys in the order of their frames; equal frames in the order of their making.
    std::vector<TimeEditorKeyframeItem*> keyframes() const;

    /// What the row is about, such as the attribute. Not drawn; screen readers hear it with its
    /// keys.
    QString text() const { return m_text; }
    void setText(const QString& text) { m_text = text; }

    ColorMode colorMode() const { return m_colorMode; }
    void setColorMode(ColorMode mode); ///< repaints

    /// The key in front at a place, in the row's coordinates; null where there is none.
    TimeEditorKeyframeItem* keyAt(const QRectF& place) const;

    /// The keys have changed: the row sorts and draws them anew. Keys call it when they move.
    void refresh();

    /// Sizes all keys for the view's zoom.
    void updateRect() override;
    QColor getColor() const override;
    QRectF boundingRect() const override;
    /// The bars; keys have their own shape.
    QPainterPath shape() const override;
    bool collidesWithPath(const QPainterPath& path, Qt::ItemSelectionMode mode) const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;
    /// Hovering comes from the scene, which knows the keys by their order.
    bool sceneEvent(QEvent* event) override;

private:
    friend class TimeEditorKeyframeItem;
    friend class TimeEditorLayoutContainer;

    struct RowKey
    {
        double x = 0.0;
        TimeEditorKeyframeItem* key = nullptr;
    };

    const std::vector<RowKey>& sortedKeys() const;
    QRectF extent() const;
    QRectF bar() const;
    bool isPaintedByStack() const;
    void paintStacked(QPainter& painter, const QRectF& exposed, QWidget* widget);
    void paintKeys(QPainter& painter, const QRectF& exposed, QWidget* widget);
    void paintSegments(QPainter& painter, const QRectF& exposed, const QColor& color);

    QPointer<TimeEditorView> m_view;
    QString m_text;
    ColorMode m_colorMode = ColorMode::Plain;
    bool m_stacked = false; ///< a row of the scene's stack
    mutable std::vector<RowKey> m_keys;
    mutable QRectF m_extent; ///< of all keys and bars
    mutable bool m_keysStale = true;
    mutable bool m_orderStale = true;
    mutable bool m_onlyKeys = true; ///< nothing else is a child of the row
};
