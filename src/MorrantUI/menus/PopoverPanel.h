// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/menus/PopoverSide.h>
#include <MorrantUI/morrantui_export.h>

#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

namespace ui::popover {
struct Placement;
}

/// A panel that opens beside what it is about, with an arrow that points there, holds any widget,
/// and goes away when the user turns to something else.
///
/// It closes on Escape, on a press outside, when another window or another application becomes
/// active, and when its anchor is hidden, dies, or is scrolled out of sight. A press on the anchor
/// itself only closes it, so that the button that opened it also closes it. Menus, dialogs and
/// further popovers that are opened from inside belong to it and leave it open. No input is
/// grabbed.
///
/// While it is open it follows its anchor and the size of its content. It stays on the screen:
/// where there is no room on the preferred side it goes to another and moves along the anchor,
/// while the arrow stays. The keyboard is in it from the start, Tab stays in it, and closing gives
/// the focus back to what had it, unless the user has moved it elsewhere.
///
/// A screen reader finds a dialog, named by the accessible name, else by the window's title, else
/// by what names the anchor. The parent should be the anchor or lie in its window.
class MORRANT_UI_EXPORT PopoverPanel : public QWidget
{
    Q_OBJECT

public:
    explicit PopoverPanel(QWidget* parent = nullptr);
    ~PopoverPanel() override;

    /// Shows a widget, and owns it as long as it lies here; the one before is hidden, and deleted
    /// when the event loop comes round, so that it may be replaced from its own slots. A focus in
    /// it goes to the new one. Null leaves the panel empty; the panel and what it lies in are
    /// ignored.
    void setContent(QWidget* content);

    /// Has the content built when it is first needed: the panel opens at once, and the content
    /// follows when that has been painted, however long it takes. It is then kept.
    /// @param expectedSize of the content, until it is there
    void setContentMaker(std::function<QWidget*()> maker, QSize expectedSize);

    /// Null until there is one, and when it has moved to another parent.
    QWidget* content() const { return m_content; }

    /// The side of the anchor on which it opens where there is room; below it at first.
    void setPreferredSide(PopoverSide side);
    PopoverSide preferredSide() const { return m_preferredSide; }

    /// Opens beside a widget, or moves there. Ignored unless the widget is to be seen, and
    /// for what lies in the panel or was opened from it.
    void openAt(QWidget* anchor);
    /// The same for a rectangle on screen, which stays where it is. The parent stands for the
    /// anchor in all but the place.
    void openAt(const QRect& globalAnchor);

    bool isOpen() const { return isVisible(); }
    /// What it was last opened beside; of a rectangle the parent. Null when that has died.
    QWidget* anchor() const { return m_anchor; }
    /// Where the arrow's tip is, on screen; none where the panel has to cover its anchor.
    std::optional<QPoint> arrowTip() const;

public Q_SLOTS:
    /// Closes it; nothing happens while it is not open.
    void dismiss();
    /// Only openAt() opens it.
    void setVisible(bool visible) override;

Q_SIGNALS:
    /// It is to be seen now. Not again when it moves to another anchor.
    void opened();
    /// It has closed in whichever way, and the focus is back. It may be deleted by it. A panel that
    /// is deleted while it is open does not tell.
    void closed();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void open();
    void finish();
    void watchAnchor(QWidget* anchor);
    void follow();
    void followSeenAnchor();
    void applyPlacement();
    void makeContent();
    void takeFocus();
    void focusContent();
    void giveFocusBack();
    void passDialog(const QEvent& event);
    bool isAnchor(const QWidget& pressed, QPoint position) const;
    QSize around(const QSize& contentSize) const;

    QPointer<QWidget> m_content;
    std::function<QWidget*()> m_maker;
    QSize m_expectedSize;
    QPointer<QWidget> m_anchor;
    QMetaObject::Connection m_anchorDeath;
    std::optional<QRect> m_anchorRect; ///< on screen; used instead of the anchor's own
    PopoverSide m_preferredSide = PopoverSide::Below;
    std::unique_ptr<ui::popover::Placement> m_placement;
    QPointer<QWidget> m_windowBefore; ///< active when the panel was opened
    QPointer<QWidget> m_focusBefore;
    bool m_isWorking = false;     ///< between opened() and closed()
    bool m_wasSeen = false;       ///< the anchor, since then
    bool m_isInterrupted = false; ///< it was the active window when a modal dialog came
};
