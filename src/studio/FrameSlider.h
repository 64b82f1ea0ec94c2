// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QSlider>

namespace studio {

/// A slider whose handle jumps to the pointer on a press, so that a press anywhere seeks.
class FrameSlider : public QSlider
{
    Q_OBJECT

public:
    explicit FrameSlider(QWidget* parent = nullptr);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    int valueAt(double x) const;
};

} // namespace studio
