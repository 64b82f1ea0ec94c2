#pragma once

#include <MorrantUI/text/TimeCodeEdit.h>

namespace studio {

/// Shows a frame as a time code and takes one: Return and leaving the field enter it, Escape puts
/// back what was there, and so does entering what is no time code. While it is being edited a frame
/// that is set waits for the end of that.
class FrameField : public TimeCodeEdit
{
    Q_OBJECT

public:
    explicit FrameField(QWidget* parent = nullptr);

    /// @param rate frames a second; the field is empty unless it is above 0
    void setFrame(int frame, double rate);
    /// Whether something has been typed that is neither entered nor taken back.
    bool isEdited() const { return toPlainText() != m_shown; }
    /// Takes back what has been typed.
    void cancel();
    /// The time code of the frame that was set last.
    QString code() const;

Q_SIGNALS:
    /// The user has entered a frame; setFrame() should follow.
    void entered(int frame);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void enter();
    void showText(const QString& text);

    int m_frame = 0;
    double m_rate = 0;
    QString m_shown;
};

} // namespace studio
