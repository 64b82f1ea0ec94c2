// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QAbstractButton>
#include <QColor>
#include <QPointer>

#include <optional>

class QColorDialog;

namespace ui::style {
struct WidgetState;
}

/// A colour, shown over a chequer where it is translucent, that the user chooses in Qt's dialog,
/// drags from another swatch or pastes.
///
/// A click, Space and Return open the dialog beside the rest of the window, which stays usable:
/// the swatch follows every choice, and Cancel brings back the colour from before. Ctrl+C copies
/// the colour as #rrggbb, with two more digits where it is translucent, Ctrl+V takes one in that
/// form. Hiding or disabling the swatch closes the dialog and keeps what was chosen so far.
class MORRANT_UI_EXPORT ColorSwatch : public QAbstractButton
{
    Q_OBJECT
    Q_PROPERTY(bool alphaEnabled READ isAlphaEnabled WRITE setAlphaEnabled)
    Q_PROPERTY(QColor value READ value WRITE setValue NOTIFY changed USER true)

public:
    /// Shows opaque black.
    explicit ColorSwatch(QWidget* parent = nullptr);
    explicit ColorSwatch(const QColor& color, QWidget* parent = nullptr);
    ~ColorSwatch() override;

    QColor value() const { return m_color; }
    /// Shows a colour, in the dialog as well, where Cancel then comes back to it; only changed()
    /// follows. An invalid colour is ignored; without alpha it becomes opaque.
    void setValue(const QColor& color);

    /// Whether colours may be translucent; on by default. Turning it off makes the present one
    /// opaque.
    void setAlphaEnabled(bool enabled);
    bool isAlphaEnabled() const { return m_alphaEnabled; }

    /// Opens the dialog, or brings it to the front. Not while the swatch is hidden or disabled.
    void openDialog();
    /// The dialog while it is open, else null. Owned by the swatch.
    QColorDialog* dialog() const;

    /// Puts the colour on the clipboard, as a text and as a colour.
    void copy() const;
    /// Takes a colour from the clipboard; anything else there changes nothing.
    void paste();

    /// Commits a colour of the form #rrggbb[aa] as the user would, with the signal. Any other text
    /// is ignored. For assistive tools.
    void enterText(const QString& text);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user has changed the colour: false while it is being chosen, and when Cancel restores
    /// it; true when it is accepted, dropped or pasted. The choice of the colour it was commits
    /// nothing.
    void valueChanged(bool committed);
    /// The same with the colour.
    void edited(const QColor& color, bool committed);
    /// The colour is another, by the user or by being set.
    void changed();

protected:
    /// Carries the colour away from the pressed swatch, until it is dropped.
    virtual void startDrag();

    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void preview(const QColor& color);
    bool showColor(const QColor& color);
    void commit(const QColor& color);
    void finishChoosing(bool accepted);
    void dismissDialog();
    void setDropTarget(bool target);
    void paintColor(
        QPainter& painter,
        const QRectF& rect,
        double radius,
        const ui::style::WidgetState& state) const;
    void paintEdge(
        QPainter& painter,
        const QRectF& rect,
        double radius,
        const ui::style::WidgetState& state) const;
    QColor admitted(QColor color) const;

    QColor m_color = Qt::black;
    QColor m_before; ///< what Cancel of the dialog brings back
    bool m_alphaEnabled = true;
    bool m_dropTarget = false;       ///< a colour is held over the swatch
    bool m_carried = false;          ///< its own colour is, which it does not take back
    std::optional<QPoint> m_pressed; ///< where the left button went down, until a drag begins
    QPointer<QColorDialog> m_dialog;
};
