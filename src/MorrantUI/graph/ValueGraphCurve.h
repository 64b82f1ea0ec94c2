// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/graph/GraphCurveWidget.h>
#include <MorrantUI/graph/valuegraphkey.h>
#include <MorrantUI/morrantui_export.h>

#include <QPointer>
#include <QString>

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

class GraphPointWidget;
class ValueGraphView;

/// A curve of a ValueGraphView, which makes it: the host's keys as points with tangent handles.
/// Delete it to take it away; the view has forgotten it and its points by the time that anybody
/// hears of it.
class MORRANT_UI_EXPORT ValueGraphCurve : public GraphCurveWidget
{
    Q_OBJECT

public:
    ~ValueGraphCurve() override;

    /// One of the theme's colours by its name, asked for whenever the curve is drawn. Empty, as at
    /// first, leaves it to color().
    void setColorName(const QString& name);
    const QString& colorName() const { return m_colorName; }

    /// Shows what the host has now, and tells nobody; during a gesture too, which goes on. Points
    /// stay selected as the keys that they show, wherever in the list these have come: a point goes
    /// on as the key at its place, and as the one of its index where there is none. Keys with
    /// numbers that are not finite are shown at 0.
    void setKeys(const std::vector<ValueGraphKey>& keys);
    /// What is shown, as the user has made it: in the order in which the host gave them, also where
    /// they have passed each other. What a host has deleted of the points is left out.
    std::vector<ValueGraphKey> keys() const;
    /// The point of a key by its place in that order; null for none.
    GraphPointWidget* point(std::size_t key) const;

    /// The value at a frame, level beyond the keys; none without keys.
    std::optional<double> valueAtFrame(double frame) const;

protected:
    QColor lineColor() const override;

private:
    friend class ValueGraphView;

    explicit ValueGraphCurve(ValueGraphView& view);

    GraphPointWidget* makePoint();
    template <typename Change>
    bool changeQuietly(const Change& change);
    void showHandles();
    void rememberTimes();
    void snapToFrames();

    QPointer<ValueGraphView> m_view;
    QString m_colorName;
    std::vector<QPointer<GraphPointWidget>> m_points; ///< as the host has its keys
    /// As a gesture found them.
    std::vector<std::pair<QPointer<GraphPointWidget>, double>> m_times;
};
