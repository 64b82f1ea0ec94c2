// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QDialog>
#include <QDialogButtonBox>
#include <QPointer>
#include <QString>

class QLabel;
class QPushButton;
class QVBoxLayout;

/// A dialog that waits for one of a few buttons: a heading, a text or a widget below it, and a row
/// of standard buttons.
///
/// Return presses the default button; Escape and closing the window stand for the button that
/// declines. Help, Reset and Apply only emit their own clicked(), and leave the dialog open.
class MORRANT_UI_EXPORT ModalDialog : public QDialog
{
    Q_OBJECT

public:
    using Button = QDialogButtonBox::StandardButton;
    using Buttons = QDialogButtonBox::StandardButtons;

    /// @param title of the window, and the heading
    explicit ModalDialog(const QString& title, QWidget* parent = nullptr);
    ~ModalDialog() override;

    /// Plain text below the heading; an empty one takes no space.
    void setText(const QString& text);
    /// Shows a widget below the text, and owns it as long as it lies here; the one before is
    /// hidden, and deleted when the event loop comes round. A focus in it goes to the new one. The
    /// dialog and what it lies in are ignored.
    void setContent(QWidget* content);
    /// Replaces the buttons. A default that is not among them leaves the choice to the platform.
    void setButtons(Buttons buttons, Button defaultButton);
    /// Null if there is none.
    QPushButton* button(Button button) const;

    /// The button that has ended the dialog. When none has: declining() after reject() and the
    /// like, after accept() the default button, or the first, among those that accept.
    Button chosen() const { return m_chosen; }

    /// The button that dismissing the dialog stands for: Cancel, else Close, Abort, No, No to All,
    /// Ignore, Discard, or the only one there is; NoButton without any of these.
    static Button declining(Buttons buttons);

    /// Asks the user and waits for the answer.
    /// @param parent over which the dialog is shown; null for the active window. When it is deleted
    ///     meanwhile, the answer is that of a dismissed dialog.
    static Button getChoice(
        const QString& title,
        const QString& text,
        Buttons buttons,
        Button defaultButton,
        QWidget* parent = nullptr);

    QSize sizeHint() const override;

public Q_SLOTS:
    void done(int result) override;
    void setVisible(bool visible) override;

protected:
    /// Asked when a button that accepts is pressed; false keeps the dialog open. May ask the user,
    /// and the dialog may be deleted meanwhile, which counts as false.
    virtual bool mayAccept() { return true; }

private:
    void end(Button button, bool declines);
    Button accepting() const;

    QLabel* m_heading;
    QLabel* m_text;
    QVBoxLayout* m_column;
    QPointer<QWidget> m_content;
    QDialogButtonBox* m_buttonBox;
    Button m_chosen = QDialogButtonBox::NoButton;
};
