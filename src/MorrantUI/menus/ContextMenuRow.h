// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/controls/buttons/RolloverButton.h>
#include <MorrantUI/menus/ContextMenuButton.h>

#include <QList>

class ContextMenuItemWidget;
class ContextMenuLabel;
class QLabel;
class QPainter;
class QStyleOptionMenuItem;

namespace ui::menus {
struct RowParts;
}

/// What a ContextMenuItemWidget shows in its menu. Ground, tick, shortcut and arrow are drawn as in
/// a plain row; label, picture and buttons are widgets. Presses and moves go through to the menu,
/// except on the buttons.
class ContextMenuRow : public ContextMenuButton
{
    Q_OBJECT

public:
    /// @param item owns the row
    explicit ContextMenuRow(const ContextMenuItemWidget& item);
    ~ContextMenuRow() override;

    ContextMenuLabel& label() { return *m_label; }
    QLabel& image(); ///< made when it is first asked for

    /// One of more than 48 logical pixels is made smaller; a null one shows none.
    void setPicture(const QPixmap& picture);
    QPixmap picture() const;
    QSize pictureSize() const; ///< logical pixels; empty without a picture
    /// Takes over what has been set on the label itself.
    void followPicture();

    void addSubAction(RolloverButton* button);
    /// The button at a point, disabled ones too; null if there is none.
    RolloverButton* subActionAt(QPoint position) const;

    /// Gives the focus to the next button that can be used, or back to the row.
    /// @param step 1 or -1
    /// @param least see ui::menus::steppedSubAction()
    /// @return whether the step stays in the row
    bool stepSubAction(int step, int least);
    /// The button that keys have led to; null if there is none.
    RolloverButton* chosenSubAction() const;
    void leaveSubActions();
    /// Shows the row as chosen or not, with its buttons in colours that stand out on either ground.
    void setLit(bool lit);

    /// Text, shortcut or picture of the action have changed.
    void followAction();
    /// What the row shows has another size.
    void measureAgain();
    /// Puts label, picture and buttons in their places; the menu's columns may have changed.
    void arrange();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void childEvent(QChildEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void arrangeIfShown();
    QStyleOptionMenuItem option() const;
    ui::menus::RowParts parts(const QStyleOptionMenuItem& option) const;
    QString shortcutText() const;
    int roomInMenu() const;
    void paintCheckedGround(QPainter& painter, const QStyleOptionMenuItem& option) const;
    QList<RolloverButton*> shownButtons() const;
    QList<RolloverButton*> usableButtons() const;

    struct SubAction
    {
        QPointer<RolloverButton> button;
        RolloverButton::Tints tints; ///< to be given back; of use while the row is lit
    };

    const ContextMenuItemWidget& m_item;
    ContextMenuLabel* m_label;
    QLabel* m_image = nullptr;
    qint64 m_pictureKey = 0;       ///< of the picture that was measured
    QList<SubAction> m_subActions; ///< in their order
    bool m_lit = false;
};
