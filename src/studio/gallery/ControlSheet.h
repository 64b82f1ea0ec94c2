// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QWidget>

namespace studio {

/// A table of controls, one row a control and one column a state, drawn with the application style
/// from forced options: nothing in it reacts.
class ControlSheet : public QWidget
{
    Q_OBJECT

public:
    explicit ControlSheet(QWidget* parent = nullptr);
    ~ControlSheet() override;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintHeadings(QPainter& painter) const;
    void paintRow(QPainter& painter, int row) const;
    QRect cell(int row, int column) const;
};

} // namespace studio
