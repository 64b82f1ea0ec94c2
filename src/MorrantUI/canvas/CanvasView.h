// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/canvas/canvasmapping.h>
#include <MorrantUI/controls/gestures/GestureDoors.h>
#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/theme/SkiaQWidgetAdapter.h>

#include <QString>

#include <memory>

class QKeyEvent;
class QNativeGestureEvent;

namespace ui {
class OverrideCursor;
}

/// What lies behind a page, which itself may be transparent.
enum class CanvasBackdrop
{
    Chequer, ///< middle greys, so that black artwork is seen on them as well as white
    Light,
    Dark,
};

/// Shows a page that the host draws with Skia: a composition, a picture, a sheet. The user zooms
/// and pans; the host derives from it and draws.
///
/// The wheel zooms at the pointer, fine wheels and touchpads as far as coarse ones, and so do two
/// fingers that part on a touchpad. A drag with the middle button, or with the left one and the
/// hand or Space, pans. Plus and Minus zoom, arrows pan (with Shift by most of a view), F and Home
/// fit, and 1 shows the actual size, unless these keys are shortcuts of the window, which go first.
///
/// A page is fitted at first, and stays so while the view's size changes, until the user or the
/// host zooms or pans. Afterwards what is in the middle of the view stays there.
///
/// Only changes repaint. What the host draws has changed when it calls update().
///
/// To assistive tools it is a canvas, which the host names; its description tells the size of the
/// page and how large it is shown, unless the host has set one.
class MORRANT_UI_EXPORT CanvasView : public ui::SkiaQWidgetAdapter
{
    Q_OBJECT

public:
    explicit CanvasView(QWidget* parent = nullptr);
    ~CanvasView() override;

    /// The page's size in its own pixels. A size that is empty or not a number, or has a side above
    /// 1e9, is no page, as at first: there is nothing but the hint, and nothing is zoomed, panned
    /// or clicked. Another size ends a gesture.
    void setPageSize(QSizeF size);
    QSizeF pageSize() const { return m_pageSize; }
    bool hasPage() const { return !m_pageSize.isEmpty(); }

    /// A sentence in the middle of a view without a page: how to get one. Empty for none.
    void setHint(const QString& hint);
    QString hint() const { return m_hint; }

    /// Chequer at first.
    void setBackdrop(CanvasBackdrop backdrop);
    CanvasBackdrop backdrop() const { return m_backdrop; }

    /// Whether a drag with the left button pans, which it does at first; the cursor is a hand then.
    /// Without it cursor and drag are the subclass's, and Space held lends the hand. A change ends
    /// a gesture.
    void setHand(bool hand);
    bool hasHand() const { return m_hand; }
    bool isPanning() const { return m_press == Press::Pan; } ///< the mouse holds the page
    /// Space lends the hand: the next press of the left button pans.
    bool isSpaceHeld() const { return m_spaceHeld; }

    /// Whether the wheel zooms by itself, which it does at first. Without it the wheel pans, with
    /// Shift sideways, and zooms with Control. Where it zooms, Shift with it pans sideways.
    void setWheelZooms(bool zooms) { m_wheelZooms = zooms; }
    bool wheelZooms() const { return m_wheelZooms; }

    /// The scales that are allowed; the present one follows. Limits that are no range of numbers
    /// above 0 are ignored.
    void setZoomLimits(const ui::CanvasZoom& limits);
    const ui::CanvasZoom& zoomLimits() const { return m_limits; }

    /// Where the page lies in the view.
    const ui::CanvasMapping& mapping() const { return m_mapping; }
    /// The same as it is painted, its origin on a device pixel.
    ui::CanvasMapping shownMapping() const;
    /// Puts the page elsewhere, its scale limited and its origin no further away than 1e12, as a
    /// host does that brings a place back: before the view is first shown it is kept as it is,
    /// whatever size the view gets then. What is not finite is ignored.
    void setMapping(const ui::CanvasMapping& mapping);
    double scale() const { return m_mapping.scale; } ///< logical pixels a pixel of the page

    /// Fits the page, and keeps it fitted.
    void fit();
    bool isFitted() const { return m_fitted; }
    /// One logical pixel for each of the page's, its middle in the middle.
    void showActualSize();
    /// About the middle of the view, within the limits. One that is not above 0 and finite is
    /// ignored, and so are factors below. @param scale logical pixels a pixel of the page
    void setScale(double scale);
    /// The same by a factor, above 1 to enlarge.
    void zoomBy(double factor);
    /// About a point of the view.
    void zoomAt(QPointF point, double factor);
    /// @param distance logical pixels that the page moves; ignored if null or not finite
    void panBy(QPointF distance);

Q_SIGNALS:
    void scaleChanged(double scale);   ///< comes after mappingChanged()
    void fittedChanged(bool isFitted); ///< comes after both
    /// The page lies elsewhere in the view, or in another size: what is drawn over it follows.
    void mappingChanged();
    /// A press and release of the left button without a drag.
    /// @param point in pixels of the page, which need not lie on it
    void clicked(QPointF point, Qt::KeyboardModifiers modifiers);
    /// In place of the second of two such clicks at one place.
    void doubleClicked(QPointF point, Qt::KeyboardModifiers modifiers);
    /// Space alone, where it would lend the hand: play or pause.
    void spaceTapped();

protected:
    /// Draws the page over its backdrop.
    /// @param canvas in pixels of the page, (0, 0) its top left corner; not clipped to it
    /// @param paint the application's common paint, to copy and colour
    virtual void paintPage(SkCanvas& canvas, const SkPaint& paint) = 0;

    /// Draws what lies over page and border and keeps its size, as outlines and handles do; nothing
    /// by default. ui::middleOfPixel() keeps lines sharp.
    /// @param canvas in logical pixels of the view
    /// @param shown where the page has been painted
    virtual void paintOverlay(
        SkCanvas& canvas, const SkPaint& paint, const ui::CanvasMapping& shown);

    /// Ends a press, a pan or a tool's drag where it is. Whatever takes the mouse away between the
    /// press and its release comes here; an override calls this one.
    virtual void abandonGesture();

    // An override of what follows calls the base first. A press of the left button is the
    // subclass's if there is no hand, and it does not pan after that.
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void paintSkia(SkCanvas* canvas, const SkPaint& paint) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    /// What the held button does.
    enum class Press
    {
        None,
        Click, ///< until it has moved too far for one
        DoubleClick,
        Pan,
        Tool, ///< has moved too far for a click, and the subclass may drag something
    };

    void place(const ui::CanvasMapping& mapping, bool fitted);
    void moveTo(const ui::CanvasMapping& mapping);
    void paintBackdrop(SkCanvas& canvas, const SkPaint& paint, const QRectF& area) const;
    void paintBorder(SkCanvas& canvas, const SkPaint& paint, const QRectF& area) const;
    QPointF middle() const;
    void zoomTo(QPointF anchor, double scale);
    bool beginPress(const QMouseEvent& event, Press press);
    void setPress(Press press, Qt::MouseButton button);
    void setSpaceHeld(bool held);
    void watchDoors();
    void showCursor();
    bool takesSpace(const QKeyEvent& event) const;
    bool obeyKey(const QKeyEvent& event);
    bool obeyGesture(const QNativeGestureEvent& gesture);

    QSizeF m_pageSize{0, 0};
    QString m_hint;
    CanvasBackdrop m_backdrop = CanvasBackdrop::Chequer;
    ui::CanvasZoom m_limits;
    ui::CanvasMapping m_mapping;
    QSize m_viewSize; ///< that the mapping is for; invalid if for the one of the first show
    bool m_wasShown = false;
    bool m_showsFocus = false; ///< it came by the keyboard
    bool m_fitted = true;
    bool m_hand = true;
    bool m_wheelZooms = true;
    bool m_spaceHeld = false;
    bool m_isTap = false; ///< Space went down alone, and nothing else has happened since
    Press m_press = Press::None;
    Qt::MouseButton m_button = Qt::NoButton;      ///< that is held
    QPointF m_from;                               ///< of the press; while panning the last place
    GestureDoors m_doors;                         ///< watched while a button or Space is held
    std::unique_ptr<ui::OverrideCursor> m_cursor; ///< while it pans, or Space lends the hand
};
