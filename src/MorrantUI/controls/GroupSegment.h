#pragma once

#include <QAbstractButton>

/// A key that moves within a row of segments.
enum class SegmentStep
{
    Previous,
    Next,
    First,
    Last,
};

/// One segment of a GroupButton. It draws itself as the part of the row that it is, and leaves to
/// the group where the arrow keys lead.
class GroupSegment : public QAbstractButton
{
    Q_OBJECT

public:
    GroupSegment(const QString& text, const QString& iconName, QWidget* parent);
    ~GroupSegment() override;

    /// Which of the row's segments this one is.
    void setPlace(int index, int count);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void stepped(SegmentStep step);
    void availabilityChanged();

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void paintGround(QPainter& painter) const;
    void paintContents(QPainter& painter) const;

    int m_index = 0;
    int m_count = 1;
};
