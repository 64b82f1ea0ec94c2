// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/controls/connections/ConnectionReceiver.h>
#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/theme/Widget.h>

#include <QColor>
#include <QString>

#include <memory>

class ColorSwatch;
class KeyframeButton;
class NumericField;
class PickWhip;

namespace ui {

inline constexpr int kMaxAttributeFields = 4; ///< in one AttributeRow

} // namespace ui

/// One attribute on one line: its name, up to four number fields or a colour, a button back to the
/// default, the keyframe button and the connector for connections. It is a receiver of connections
/// itself once the host accepts them.
///
/// Tab goes from value to value. Left and Right, with Alt from a field with a caret, lead from part
/// to part: fields, swatch and the buttons beside them.
///
/// The row holds what its fields show and no more: the host pushes values, keyframe state and
/// defaults, and reads what the user entered from the signals.
class MORRANT_UI_EXPORT AttributeRow : public Widget, public ConnectionReceiver
{
    Q_OBJECT
    Q_PROPERTY(QString name READ name WRITE setName)
    Q_PROPERTY(int nameWidth READ nameWidth WRITE setNameWidth)
    Q_PROPERTY(bool renamable READ isRenamable WRITE setRenamable)
    Q_PROPERTY(bool linkable READ isLinkable WRITE setLinkable)
    Q_PROPERTY(bool linked READ isLinked WRITE setLinked)

public:
    explicit AttributeRow(const QString& name, QWidget* parent = nullptr);
    explicit AttributeRow(QWidget* parent);
    ~AttributeRow() override;

    /// The name before the fields, cut with an ellipsis where it does not fit. It names the fields
    /// to assistive tools as well. Emits nothing.
    void setName(const QString& name);
    QString name() const;

    /// Whether the user may rename the attribute by a double click on its name; off by default.
    void setRenamable(bool renamable);
    bool isRenamable() const;

    /// The width of the name column in logical pixels, to align rows with each other; 0 or less
    /// gives the default, which follows the font, and of which a narrow row shows less, down to its
    /// half.
    void setNameWidth(int width);
    int nameWidth() const;
    QSize minimumSizeHint() const override;

    /// Adds a floating-point field at the end; its default is `value`. The row owns it; the caller
    /// may set type, limits and step on it, and then sets the value again. Null when there are
    /// four.
    NumericField* addField(double value);
    /// Adds a colour swatch after the fields; its default is `color`. Null when there is one.
    ColorSwatch* addSwatch(const QColor& color);

    int fieldCount() const;
    /// Null for an index that does not exist.
    NumericField* field(int index) const;
    ColorSwatch* swatch() const;

    /// What a field shows; 0 for an index that does not exist.
    double value(int index) const;
    /// Shows a value and emits nothing. A field in which the user is typing keeps that text, and
    /// shows the value later if the user leaves it without committing.
    void setValue(int index, double value);

    /// The swatch's colour; invalid without one.
    QColor color() const;
    /// Shows a colour and emits nothing.
    void setColor(const QColor& color);

    /// What the reset button returns to; not finite or an index that does not exist is ignored.
    void setDefaultValue(int index, double value);
    void setDefaultColor(const QColor& color); ///< for the swatch
    /// Whether everything shows its default. The reset button is enabled only when not.
    bool isAtDefault() const;
    /// As the reset button does, but without resetRequested(); nothing happens at the default.
    void reset();

    KeyframeButton* keyframeButton() const;
    PickWhip* pickWhip() const;
    /// Both are shown by default. A hidden one keeps its place, so that rows stay aligned.
    void setKeyframesShown(bool shown);
    void setPickWhipShown(bool shown); ///< see setKeyframesShown()

    /// Shows a chain at the end of the name with which the user locks the fields together: a change
    /// of one then scales the others by the same factor. A field that starts from 0 has no factor
    /// and changes alone. Off by default, and of use with two fields or more.
    void setLinkable(bool linkable);
    bool isLinkable() const;
    /// Whether the chain is closed. Emits nothing.
    void setLinked(bool linked);
    bool isLinked() const;

    /// Whether connections can be dropped on the row; off by default. Its own are always refused.
    void setConnectionsAccepted(bool accepted);
    bool areConnectionsAccepted() const;

    void onConnectionEnter(ConnectionInstance* connection) override;
    void onConnectionDrop(ConnectionInstance* connection) override;

Q_SIGNALS:
    /// The user changed a field: false at every step of a drag, true once when a change is
    /// complete, at the end of a drag as well. Fields that follow a locked one report in the same
    /// way.
    void valueChanged(int index, bool committed);
    void colorChanged(bool committed); ///< the swatch, likewise
    /// The same once for the whole row, when all fields and the swatch that take part have
    /// reported: with true, one step of an undo history. So it comes for locked fields and for a
    /// reset, too.
    void edited(bool committed);
    /// A field is being dragged: true before its first change, false after the last. Alternates.
    void dragStateChanged(int index, bool dragging);
    void renamed(const QString& name); ///< by the user
    /// The keyframe button was pressed; the host sets the key and then the button's state.
    void keyframeToggled();
    /// The reset button was pressed. The row shows the defaults already and has emitted
    /// valueChanged(index, true) and colorChanged(true) for what changed.
    void resetRequested();
    /// The user closed or opened the chain.
    void linkedChanged(bool linked);
    /// A connection has come over the row; a slot may refuse it with setAccepted(false).
    void connectionEntered(ConnectionInstance* connection);
    /// A connection was dropped on the row. Use it in a slot connected directly.
    void connectionDropped(ConnectionInstance* connection);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Parts;

    void layOut();
    void connectParts();
    void nameParts();
    void applyNameWidth();
    int leastNameWidth() const;
    QWidget* lastEditor() const;
    QList<QWidget*> parts() const;
    bool leadOn(QKeyEvent& key, bool plain);
    void updateReset();
    void updateLock();

    std::unique_ptr<Parts> m_parts;
};
