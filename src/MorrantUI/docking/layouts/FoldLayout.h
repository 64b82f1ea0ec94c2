// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QVBoxLayout>

#include <optional>

/// Holds the content of a CollapsibleSection. While the section moves, the layout wants a part of a
/// fixed height and gives its content the whole of it, so that the content is uncovered rather
/// than squeezed.
class FoldLayout : public QVBoxLayout
{
    Q_OBJECT

public:
    explicit FoldLayout(QWidget* parent);

    /// What the content wants in a width, moving or not; 0 without a content.
    int contentHeight(int width) const;

    /// Shows the share (0 to 1) of a content that is `full` pixels high.
    void setPart(int full, double share);
    /// Back to what the content wants.
    void clearPart();

    QSize sizeHint() const override;
    QSize minimumSize() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;
    int minimumHeightForWidth(int width) const override;
    void setGeometry(const QRect& rect) override;

private:
    struct Part
    {
        int full = 0;
        double share = 0.0;
        int height() const { return qRound(full * share); }
    };
    std::optional<Part> m_part;
};
