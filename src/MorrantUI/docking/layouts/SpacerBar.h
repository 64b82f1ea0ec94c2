// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QString>
#include <QWidget>

#include <optional>

/// A thin line between groups of a row, a column or a tool bar: upright in a row, level in a
/// column, whichever it finds itself in. It cannot be dragged and takes no focus.
class MORRANT_UI_EXPORT SpacerBar : public QWidget
{
    Q_OBJECT

public:
    explicit SpacerBar(QWidget* parent = nullptr);
    ~SpacerBar() override;

    /// Which way the line runs.
    Qt::Orientation orientation() const;
    /// Fixes the orientation, whatever the bar is in; followLayout() lets it follow again.
    void setOrientation(Qt::Orientation orientation);
    void followLayout(); ///< the default

    /// The named colour of the line, "Midlight" unless set; an empty name draws no line.
    void setColorName(const QString& name);
    QString colorName() const { return m_colorName; }

    /// Whether the bar takes the free room of its row or column, which pushes the groups apart; the
    /// line is then in the middle. Off by default.
    void setStretching(bool stretching);
    bool isStretching() const { return m_stretching; }

    /// Room on either side of the line in logical pixels; negative, the default, follows the font.
    void setMargin(int margin);
    int margin() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Qt::Orientation found() const;
    void follow();
    void applyPolicy();

    std::optional<Qt::Orientation> m_fixed;
    Qt::Orientation m_orientation = Qt::Vertical;
    QString m_colorName;
    bool m_stretching = false;
    int m_margin = -1;
};
