// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QWidget>

namespace studio {

/// The theme's named colours as swatches, looked up at every paint, so that a change of contrast
/// shows.
class SwatchSheet : public QWidget
{
    Q_OBJECT

public:
    explicit SwatchSheet(QWidget* parent = nullptr);
    ~SwatchSheet() override;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace studio
