// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/docking/layouts/FlowAlignment.h>
#include <MorrantUI/docking/layouts/flowmath.h>
#include <MorrantUI/morrantui_export.h>

#include <QLayout>
#include <QList>

/// Lays widgets out one after the other and begins a new row when one does not fit, as words do in
/// a text. Right to left mirrors the rows.
///
/// The height depends on the width: in a box layout or a scroll area that is taken care of. An item
/// wider than the layout gets the whole width, down to its minimum, in a row of its own. Hidden
/// widgets take no room. Items whose size policy expands share what is left of their row.
///
/// An item's own alignment decides where it stands in the height of its row; without one it is
/// centred. Lengths are logical pixels.
class MORRANT_UI_EXPORT FlowLayout : public QLayout
{
    Q_OBJECT

public:
    explicit FlowLayout(QWidget* parent = nullptr);
    /// Deletes the items, not their widgets.
    ~FlowLayout() override;

    void addItem(QLayoutItem* item) override;
    /// Puts a widget before the item of that index; any index out of range means at the end. A null
    /// widget is ignored.
    void insertWidget(int index, QWidget* widget, Qt::Alignment alignment = {});

    int count() const override;
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;

    /// Between items of a row and between rows. Negative means as the style has it, which is the
    /// default; setSpacing() sets both.
    void setHorizontalSpacing(int spacing);
    void setVerticalSpacing(int spacing); ///< between rows
    int horizontalSpacing() const;
    int verticalSpacing() const;
    void setSpacing(int spacing) override;
    /// The horizontal spacing, as both when they are alike; -1 when they differ.
    int spacing() const override;

    /// Where the items of a row stand that leave room: leading (the default), centred or trailing.
    void setRowAlignment(ui::FlowAlignment alignment);
    ui::FlowAlignment rowAlignment() const { return m_rowAlignment; }

    Qt::Orientations expandingDirections() const override;
    bool hasHeightForWidth() const override;
    /// The height that the rows take in a width; negative widths count as 0.
    int heightForWidth(int width) const override;
    /// The widest and the highest item, with the margins.
    QSize minimumSize() const override;
    /// All items in one row.
    QSize sizeHint() const override;
    void setGeometry(const QRect& rect) override;
    void invalidate() override;

private:
    std::vector<ui::FlowItem> shownItems(QList<QLayoutItem*>* shown = nullptr) const;
    ui::Flow arranged(const std::vector<ui::FlowItem>& items, int width) const;

    QList<QLayoutItem*> m_items; ///< owned
    int m_horizontalSpacing = -1;
    int m_verticalSpacing = -1;
    ui::FlowAlignment m_rowAlignment = ui::FlowAlignment::Leading;
    mutable int m_knownWidth = -1; ///< of the last heightForWidth(); -1 when not known
    mutable int m_knownHeight = 0;
};
