// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/controls/values/LineEdit.h>
#include <MorrantUI/morrantui_export.h>

#include <concepts>
#include <memory>

class QPointF;

/// A number that is scrubbed and typed.
///
/// At rest the text cannot be edited: dragging horizontally changes the value, with the pointer
/// pinned or wrapped as the theme's usePointerLock() asks. A click without a drag, or Tab, turns
/// the field into a text editor until it loses the focus. Typed text is an arithmetic expression,
/// in which a comma is a decimal point ("1,5*2" gives 3) and blanks between digits count for
/// nothing ("1 000"); what has no value at all ("hello") brings the last value back. A double
/// click while it is edited selects a whole number.
/// Up and Down step in both modes, also where the window has shortcuts for these keys. Control
/// makes drags and steps ten times finer, or else Shift ten times coarser, at any moment of a drag
/// and for the whole of its distance.
///
/// A new field is an integer field with the limits of 32 bits. The value is what the text says: a
/// floating-point field keeps three decimals.
///
/// Every step of a drag and of the arrow keys emits valueChanged(false). A drag is framed by
/// dragStateChanged(true) and (false), and ends also when the field is hidden, disabled or deleted
/// or its window loses the focus. Escape ends it with the value before it, and says so with one
/// more valueChanged(false) before the end. Steps by key are committed, with
/// valueChanged(true), as typed text is, or when a drag begins; those of a field at rest without
/// the focus are not, nor is a drag.
///
/// The mode is the read-only flag, also where the host sets it.
class MORRANT_UI_EXPORT NumericField : public LineEdit
{
    Q_OBJECT
    Q_PROPERTY(FIELD_TYPE fieldType READ fieldType WRITE setFieldType)
    Q_PROPERTY(double minimum READ getMin WRITE setMin)
    Q_PROPERTY(double maximum READ getMax WRITE setMax)
    Q_PROPERTY(double softMinimum READ softMin WRITE setSoftMin)
    Q_PROPERTY(double softMaximum READ softMax WRITE setSoftMax)
    Q_PROPERTY(QString suffix READ suffix WRITE setSuffix)
    Q_PROPERTY(double dragMultiplier READ dragMultiplier WRITE setDragMultiplier)
    Q_PROPERTY(double value READ value WRITE setValue NOTIFY changed USER true)

public:
    enum FIELD_TYPE
    {
        Integer,
        FloatingPoint
    };
    Q_ENUM(FIELD_TYPE)

    /// Shows `startValue` rounded to a whole number: set the field type, then the value again.
    explicit NumericField(double startValue = 0.0, QWidget* parent = nullptr);
    /// With the value 0, as forms make it. A template, so that NumericField(0) means the value.
    template <std::derived_from<QWidget> Parent>
    explicit NumericField(Parent* parent)
        : NumericField(0.0, parent)
    {}
    ~NumericField() override;

    /// The text as a number, also while it is being typed; 0 for a text that is none. Not limited:
    /// a text of the user or of setText() may say more than the limits allow, even "inf".
    double value() const;
    /// Shows the value limited to [getMin(), getMax()], NaN as 0; with limits that cross, the
    /// maximum. Only changed() follows. During a drag the next step overwrites it.
    void setValue(double value);

    /// What a drag is measured from; set by every press at rest. NaN is ignored, what is infinite
    /// limited to the hard limits.
    double startValue() const;
    void setStartValue(double value);

    /// The hard limits. On its own side each is kept within 32 bits for an integer field (a minimum
    /// is never below them, but may lie above), and finite for all; NaN is ignored. The present
    /// value stays until it is set again.
    double getMin() const;
    void setMin(double value);
    double getMax() const;
    void setMax(double value);

    /// Limits of dragging alone, on those sides where the drag begins inside them. NaN is ignored.
    double softMin() const;
    void setSoftMin(double value);
    double softMax() const;
    void setSoftMax(double value);

    /// Change of the value for each pixel of a drag and each arrow key; any sign. What is not
    /// finite is ignored.
    double dragMultiplier() const;
    void setDragMultiplier(double multiplier);

    bool isInteger() const;
    FIELD_TYPE fieldType() const { return isInteger() ? Integer : FloatingPoint; }
    /// Later values are shown so; the present text and limits stay.
    void setFieldType(FIELD_TYPE type);

    /// A unit, or another text that is shown behind the number and is none of its text (" %");
    /// empty at first. Typed behind a number it counts for nothing ("75 %"). Takes the right one of
    /// the text margins.
    void setSuffix(const QString& suffix);
    QString suffix() const;

    /// Whether drags pin the pointer. Ends a drag in progress. The next change of the theme's
    /// usePointerLock() sets it again.
    void setUsePointerLock(bool use);
    /// Ends a drag as by its release, also while the button is down: what the mouse does then is
    /// none of it. Nothing happens without one. A slot of dragStateChanged() may delete the field.
    void finishDrag();

    bool event(QEvent* event) override;
    /// Escape in a drag, wherever the focus is, brings the value before it back.
    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Replaces an expression by the text of its value. An error is logged and gives the value of
    /// the longest beginning that has one. An empty text stays.
    void fixup(QString& text) override;

Q_SIGNALS:
    /// True with the first step of a drag, false at its end. A context menu request sends false
    /// also when there was no drag.
    void dragStateChanged(bool dragging);
    /// What valueChanged() tells, with the value.
    void edited(double value, bool committed);
    /// The text is another, by the user or by being set, and the value with it. As textChanged() it
    /// comes from within: a slot must not delete the field.
    void changed();

protected:
    /// Nothing for a text that does not even begin with an expression; its error is logged.
    std::optional<QString> entryOf(const QString& text) override;
    bool isAcceptable(const QString& text) const override;

    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    bool isUseless(const QKeyEvent& key) const;
    void beginDrag();
    void scrub(const QPointF& position, const QPointF& totalDelta);
    void endDrag();
    void cancelDrag();
    void cancelForContextMenu();
    bool takeFocus(Qt::FocusReason reason);
    bool enterEditMode();
    void leaveEditMode();
    void tellReaders();
    void showText(const QString& text);
    QString textOf(double value) const;

    struct Data;

    std::unique_ptr<Data> m_data;
};
