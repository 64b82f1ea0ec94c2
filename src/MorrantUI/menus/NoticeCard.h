// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/menus/NoticeStack.h>
#include <MorrantUI/theme/Widget.h>

class QLabel;
class QTimer;

/// One notice of a NoticeStack.
class NoticeCard final : public Widget
{
    Q_OBJECT

public:
    NoticeCard(int number, const QString& text, NoticeStack::Kind kind, QWidget* host);

    int number() const { return m_number; }
    QString text() const;
    NoticeStack::Kind kind() const { return m_kind; }

    /// Waits so long from now on; 0 or less for ever.
    void wait(int milliseconds);

Q_SIGNALS:
    /// The time is over, or the user has read it.
    void done();

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    int m_number;
    NoticeStack::Kind m_kind;
    QLabel* m_text;
    QTimer* m_timer;
};
