#pragma once

#include <MorrantUI/controls/values/LineEdit.h>

class TimelineView;

/// A marker's name while it is edited on the ruler. Return and the loss of the focus take the name,
/// Escape leaves the old one; then it deletes itself.
class MarkerNameEdit : public LineEdit
{
    Q_OBJECT

public:
    MarkerNameEdit(TimelineView* view, int marker, const QString& name);
    ~MarkerNameEdit() override;

    int marker() const { return m_marker; }
    /// Ends without a name: the marker is gone.
    void abandon() { finish(false); }

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void finish(bool takesName);

    TimelineView* m_view; ///< an ancestor
    int m_marker;
    bool m_isFinished = false;
};
