// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QAbstractButton>
#include <QFont>

/// A text that can be clicked, like a link: underlined and brighter under the pointer. Empty space
/// beside the text is not part of it.
///
/// A text that does not fit ends in an ellipsis and is shown whole in a tool tip, unless the label
/// has a tool tip of its own. Space and Return click it. Colours come from the theme by name at
/// paint time.
class MORRANT_UI_EXPORT RolloverLabel : public QAbstractButton
{
    Q_OBJECT

public:
    explicit RolloverLabel(QWidget* parent = nullptr);
    explicit RolloverLabel(const QString& text, QWidget* parent = nullptr);
    ~RolloverLabel() override;

    /// Leading and vertically centred by default. Left and right are mirrored with the layout.
    void setAlignment(Qt::Alignment alignment);
    Qt::Alignment alignment() const { return m_alignment; }

    /// Names of the theme's colours, "Link" by default. An empty hover colour stands for a brighter
    /// shade of the other.
    void setColors(const QString& rest, const QString& hovered = QString());

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool hitButton(const QPoint& position) const override;

private:
    /// What fits of the text, and for what it was measured, which takes long.
    struct Shown
    {
        QString whole;
        QFont font;
        int dotsPerInch = 0;
        int room = 0; ///< logical pixels
        QString text;
        QSize size;
    };
    const Shown& shown() const;
    QRect linkRect() const;
    void setHovered(bool hovered);

    Qt::Alignment m_alignment = Qt::AlignLeading | Qt::AlignVCenter;
    QString m_restColor;
    QString m_hoverColor;
    bool m_hovered = false;
    mutable Shown m_shown;
};
