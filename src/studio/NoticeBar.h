#pragma once

#include <MorrantUI/theme/Widget.h>

class QLabel;

namespace studio {

/// One sentence about what went wrong, until it is dismissed. Hidden while there is none.
class NoticeBar : public Widget
{
    Q_OBJECT

public:
    explicit NoticeBar(QWidget* parent = nullptr);

    /// Shows a plain-text sentence in place of the one before.
    void showSentence(const QString& sentence);
    /// The sentence on show; empty when there is none.
    QString sentence() const;

public Q_SLOTS:
    void dismiss();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QLabel* m_text;
};

} // namespace studio
