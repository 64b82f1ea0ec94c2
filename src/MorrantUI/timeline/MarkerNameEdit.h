// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/controls/values/LineEdit.h>

class TimelineView;

/// A marker's name while it is edited on the ruler. Return and the loss of the focus take what
/// the user has typed, Escape leaves the old one; then it deletes itself.
class MarkerNameEdit : public LineEdit
{
    Q_OBJECT

public:
    MarkerNameEdit(TimelineView* view, int marker, const QString& name);
    ~MarkerNameEdit() override;

    int marker() const { return m_marker; }
    bool isFinished() const { return m_isFinished; }
    /// The first call counts.
    void finish(bool takesName);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    TimelineView* m_view; ///< an ancestor
    int m_marker;
    QString m_shown; ///< at first: the name, cut and in one line if need be
    bool m_isFinished = false;
};
