// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/timeeditor/TimeEditorBaseItem.h>
#include <MorrantUI/timeeditor/soundpeaks.h>

#include <QLineF>
#include <QString>

#include <memory>
#include <vector>

class TimeEditorView;

/// A row with a sound's wave form. It is drawn, not played; where it lies is the host's to set.
class MORRANT_UI_EXPORT TimeEditorSoundItem : public TimeEditorBaseItem
{
    Q_OBJECT

public:
    /// @param view whose track height sizes the row; it may die before the item
    explicit TimeEditorSoundItem(TimeEditorView* view, QGraphicsItem* parent = nullptr);
    ~TimeEditorSoundItem() override;

    /// The sound, which several items may share. Null is silence.
    void setPeaks(std::shared_ptr<const ui::SoundPeaks> peaks);
    /// Where its samples lie. What is not finite, or a rate of 0 or less, draws no wave.
    void setPlacement(const ui::SoundPlacement& placement);
    const ui::SoundPlacement& placement() const { return m_placement; }

    /// The frames [start, end) that can be heard, of a sound that is trimmed. A new placement sets
    /// them to the whole sound.
    void setAudibleRange(double start, double end);

    QString text() const { return m_text; }
    void setText(const QString& text); ///< drawn over the wave form

    QColor getColor() const override;
    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    QRectF bar() const;
    void placeWhole();
    void paintWave(QPainter& painter, const QTransform& world, const QRectF& visible);

    std::shared_ptr<const ui::SoundPeaks> m_peaks;
    ui::SoundPlacement m_placement;
    double m_start = 0.0; ///< frames
    double m_end = 0.0;
    QString m_text;
    std::vector<ui::SoundPeak> m_columns; ///< scratch
    std::vector<QLineF> m_lines;          ///< scratch
};
