// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointF>
#include <QString>

#include <optional>

class QPainter;
class QWidget;

/// What a view shows above its contents while something is dragged: a text at the pointer, and a
/// line where it has snapped. Repaints just these.
class DragOverlay
{
public:
    struct Content
    {
        QString text;
        QPointF pointer;             ///< in the viewport
        std::optional<double> guide; ///< the x of the line in the viewport

        friend bool operator==(const Content&, const Content&) = default;
    };

    const std::optional<Content>& content() const { return m_content; }
    /// Empty hides it.
    void show(QWidget& viewport, std::optional<Content> content);
    void paint(QPainter& painter, const QWidget& viewport) const;

private:
    void update(QWidget& viewport) const;

    std::optional<Content> m_content;
};
