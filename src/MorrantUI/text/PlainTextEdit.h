// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QColor>
#include <QPlainTextEdit>
#include <QTextOption>

#include <optional>

/// A field for text of several lines that reports an edit once, when it is finished.
///
/// Return and Enter finish an edit and give the focus away; leaving the field finishes it too.
/// While nothing has been edited Return begins a new line, as Shift+Return always does
/// (deliberate). Keys that mean something in a text stay in the field, also where the window has
/// shortcuts for them; so do undo and redo, with every usual key, unless they are left to
/// the host.
///
/// Lines are wrapped at words; anywhere while there is one of more than 10,000 characters, which
/// would take too long.
///
/// The ground is the theme's "Window", until the host sets another Base colour in the palette.
class MORRANT_UI_EXPORT PlainTextEdit : public QPlainTextEdit
{
    Q_OBJECT
    Q_PROPERTY(QString plainText READ toPlainText WRITE setPlainText NOTIFY textChanged USER true)
    Q_PROPERTY(bool undoLeftToHost READ isUndoLeftToHost WRITE setUndoLeftToHost)

public:
    explicit PlainTextEdit(QWidget* parent = nullptr);
    ~PlainTextEdit() override;

    /// Leaves undo and redo to the window, for a host that makes one step of a whole edit: the
    /// field keeps no history of its own, and the keys reach the window's shortcuts. Off at first.
    void setUndoLeftToHost(bool left);
    bool isUndoLeftToHost() const { return m_undoLeftToHost; }

public Q_SLOTS:
    /// Hides the function of QPlainTextEdit, which is slow with long words.
    void setPlainText(const QString& text);

Q_SIGNALS:
    /// The text has changed since the field got the focus or last reported, and the edit is
    /// finished. The field may be deleted by it, and may be given another text, which is not
    /// reported again.
    void valueChanged();

    /// After a paste or a drop.
    void textPasted();

protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void adaptWrapping(int position, int added);
    void wrapAnywhere(bool isTooLong);
    void report();
    void setGround(const QColor& color);

    bool m_modified = false;
    bool m_undoLeftToHost = false;
    bool m_isReporting = false;                        ///< changes made meanwhile are the host's
    bool m_keepsWrapping = false;                      ///< the text is being emptied for a new one
    std::optional<QTextOption::WrapMode> m_wrapBefore; ///< while lines are broken anywhere
    QColor m_ground;                                   ///< as it was last taken from the theme
    QColor m_fadedFrom; ///< the colour of texts that the disabled one was made from
};
