// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QPointer>
#include <QWidget>

class LineEdit;

/// A name that the user changes in place: a double click, F2 or Return turns the label into a line
/// edit.
///
/// Return and the loss of the focus take the new name, Escape restores the old one. Space around a
/// name is dropped; an empty name is refused and leaves the old one. Hiding or disabling the label
/// ends the editing as the loss of the focus does. A name that does not fit ends in an ellipsis
/// and is shown whole in a tool tip, unless the label has a tool tip of its own.
class MORRANT_UI_EXPORT RenamableLabel : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged USER true)
    Q_PROPERTY(bool renamable READ isRenamable WRITE setRenamable)
    Q_PROPERTY(Qt::Alignment alignment READ alignment WRITE setAlignment)

public:
    explicit RenamableLabel(QWidget* parent = nullptr);
    explicit RenamableLabel(const QString& text, QWidget* parent = nullptr);
    ~RenamableLabel() override;

    /// The name as last set or entered, whole, without what is just being typed.
    QString text() const { return m_text; }
    /// Only textChanged() follows. The host may set any text, an empty one too. An editing in
    /// progress goes on; Escape then restores this text.
    void setText(const QString& text);

    /// Whether the user may rename; on by default. Turning it off ends an editing, taking the name,
    /// and keeps the focus away from the label.
    void setRenamable(bool renamable);
    bool isRenamable() const { return m_renamable; }

    /// Leading and vertically centred by default. Left and right are mirrored with the layout.
    void setAlignment(Qt::Alignment alignment);
    Qt::Alignment alignment() const { return m_alignment; }

    bool isEditing() const { return m_editing; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    /// Renames as the user does by entering `text`, for assistive tools and commands.
    void rename(const QString& text);

public Q_SLOTS:
    /// Opens the line edit with the whole name selected and gives it the focus. Nothing happens
    /// while the label is hidden, disabled or not renamable, nor when it is open already.
    void startEditing();

Q_SIGNALS:
    /// The user has entered another name, which the label shows by now. At most once an editing.
    void renamed(const QString& text);
    /// The text is another, by the user or by being set.
    void textChanged(const QString& text);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    enum class Outcome
    {
        Take,
        Restore
    };
    void finishEditing(Outcome outcome);
    void takeName(const QString& entered);
    bool takeEditorKey(const QKeyEvent& event);
    QString shownText() const;
    QRect textRect() const;

    QString m_text;
    Qt::Alignment m_alignment = Qt::AlignLeading | Qt::AlignVCenter;
    bool m_renamable = true;
    bool m_editing = false;
    QPointer<LineEdit> m_editor; ///< made for the first editing, then kept hidden
};
