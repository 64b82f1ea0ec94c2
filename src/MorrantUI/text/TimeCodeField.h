// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/text/TimeCodeEdit.h>

/// A time code that stands for a frame, and is entered as a value.
///
/// Return and leaving the field enter what was typed, Escape brings back what was there, and so
/// does entering what is no time code. While something is being typed a frame that is set waits for
/// the end of that. Keys that end an edit come before shortcuts of the window; undo and redo are
/// left to the window, since a text so short is typed anew.
class MORRANT_UI_EXPORT TimeCodeField : public TimeCodeEdit
{
    Q_OBJECT
    Q_PROPERTY(int frame READ frame WRITE setFrame NOTIFY frameChanged USER true)
    Q_PROPERTY(double rate READ rate WRITE setRate)

public:
    explicit TimeCodeField(QWidget* parent = nullptr);
    ~TimeCodeField() override;

    int frame() const { return m_frame; }
    /// Frames a second; 0 at first. The field is empty unless it is above 0 and finite.
    double rate() const { return m_rate; }
    void setRate(double rate);

    /// Whether something has been typed that is neither entered nor taken back.
    bool isEdited() const;
    /// The time code of the frame that was set or entered last, whatever is being typed.
    QString code() const;

public Q_SLOTS:
    void setFrame(int frame); ///< waits for what is being typed
    /// Takes back what has been typed.
    void cancel();

Q_SIGNALS:
    /// The frame has changed, by setFrame() or by the user.
    void frameChanged(int frame);
    /// The user has entered a frame, which the field shows already; also where it is the one that
    /// was there.
    void frameEntered(int frame);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void enter();
    void showText(const QString& text);
    void setTextTellingOnce(const QString& text);

    int m_frame = 0;
    double m_rate = 0.0;
    QString m_shown; ///< the text that nobody has edited
};
