// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QLineEdit>
#include <QString>

#include <optional>

/// A line of text in the theme's colours that tells when an edit is finished.
///
/// Return, and the loss of the focus, commit what was edited: fixup() has its say on the text, then
/// valueChanged(true) goes out if anything has changed. Escape takes back what was not committed;
/// with nothing to take back, and nothing to leave, the key is passed on to the window. A field
/// that was entered with the mouse gives the focus away on Return and Escape, so that the window's
/// shortcuts work again; one that got it otherwise keeps it, with its text selected.
///
/// Undo goes from a text that was committed to the one before in one step.
///
/// Text set by setText() is committed from the start and emits no valueChanged(), except in answer
/// to valueChanged(false), where it belongs to the step that it answers. clear(), insert(), undo()
/// and the like count as edits of the user also where the host calls them. The menu of the field
/// itself does not end the edit.
class MORRANT_UI_EXPORT LineEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit LineEdit(QWidget* parent = nullptr);
    ~LineEdit() override;

    /// The names of the theme's colours for ground, text and edge; "Base", "Text" and "WindowText"
    /// at first. They are looked up again whenever the field is painted.
    void setColors(const QString& background, const QString& text, const QString& frame);
    QString backgroundColor() const { return m_background; }
    QString textColor() const { return m_text; }
    QString frameColor() const { return m_frame; }

    /// Installs the named colours, for the field as it is edited (on a darker ground) or at rest.
    /// Called by itself when the edit begins and ends and when a colour has changed.
    virtual void updatePalette(bool editing);

    /// Marks the text as one that cannot be used, whatever the validator says: the edge turns to
    /// the theme's "Red". The mark stays until it is taken away.
    void setInvalid(bool invalid);
    /// Whether the field shows its text as one that cannot be used: it is marked so, or does not
    /// satisfy its validator or input mask.
    bool looksInvalid() const;

    /// Replaces the text as though the user had typed it and pressed Return: valueChanged(true)
    /// follows if that changes it. The focus stays where it is.
    void enterText(const QString& text);

    /// Called with what was entered before it is committed; may replace it. The base lets the
    /// validator repair a text that does not satisfy it.
    virtual void fixup(QString& text);

Q_SIGNALS:
    /// @param committed true once for each edit that is finished and has changed something; false
    ///     at every step before, for classes that have steps, and when Escape takes such steps
    ///     back, or typing the text before them
    /// A slot that takes a number is connected to this without a complaint, and gets 0 or 1: number
    /// fields have edited() for it.
    void valueChanged(bool committed);

protected:
    /// What an edited text stands for, which goes to fixup() next; nothing for a text without any
    /// meaning, in whose place the commit brings the last one back. The base: the text itself.
    virtual std::optional<QString> entryOf(const QString& text);

    /// Whether a text can be committed after fixup(). What cannot is not: Return leaves it for the
    /// user to mend, the loss of the focus takes it back. The base asks validator and input mask.
    virtual bool isAcceptable(const QString& text) const;

    /// Sets the text as one step of an edit, which a later commit reports and Escape takes back; at
    /// rest without the focus, where neither would follow, it is committed from the start.
    /// Emits valueChanged(false), also where the text stays; this object may be deleted by it.
    void stepTo(const QString& text);

    /// Commits, or takes back, what was edited, as the loss of the focus does. This object may be
    /// deleted by it.
    void commitEdit();

    /// Whether the focus only goes to a menu of the field itself, which does not end the edit.
    bool goesToOwnMenu(const QFocusEvent& event) const;

    /// Whether Return and Escape leave the focus where it is. Every way into the field sets it: the
    /// mouse to false, others to true.
    void setKeepsFocus(bool keeps) { m_keepsFocus = keeps; }

    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void initStyleOption(QStyleOptionFrame* option) const override;

private:
    enum class Unacceptable
    {
        Stays,
        IsTakenBack
    };
    struct Colors;

    Colors colors(bool editing) const;
    void followMode();
    void noteText(const QString& text);
    bool isCommitted() const;
    bool commit(Unacceptable text);
    void showCommitted(const QString& text);
    bool takeBack();
    bool endSteps();
    void commitByKey(QKeyEvent* event);
    void takeBackByKey(QKeyEvent* event);

    QString m_background;
    QString m_text;
    QString m_frame;
    QString m_committed;        ///< what Escape returns to
    QString m_told;             ///< by the last step
    bool m_hasSteps = false;    ///< valueChanged(false) went out since the last commit
    bool m_isEditing = false;   ///< as the palette shows it
    bool m_settingEdit = false; ///< the text being set is not committed by that
    bool m_tellingStep = false; ///< valueChanged(false) is going out for a step
    bool m_isTyped = false;     ///< the change of the text that comes next is the user's
    bool m_keepsFocus = true;
    bool m_invalid = false;
};
