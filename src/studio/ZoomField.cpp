// SPDX-License-Identifier: Apache-2.0
#include "ZoomField.h"

#include <MorrantUI/canvas/canvasmapping.h>
#include <MorrantUI/controls/values/PendingValue.h>

#include <cmath>

namespace studio {

namespace {

constexpr double kPercent = 100;
constexpr int kMargins = 24; ///< logical pixels, of both sides

} // namespace

ZoomField::ZoomField(QWidget* parent)
    : NumericField(0.0, parent)
    , m_shown(new PendingValue(this))
{
    setToolTip(tr("Zoom"));
    setAccessibleName(toolTip());
    setAlignment(Qt::AlignRight);
    setContextMenuPolicy(Qt::NoContextMenu); // the bar's is the one to open
    setFieldType(FloatingPoint);
    setMin(ui::CanvasZoom().least * kPercent);
    setMax(ui::CanvasZoom().most * kPercent);
    setSuffix(tr(" %"));
    setFixedWidth(fontMetrics().horizontalAdvance(u"6400.0 %"_qs) + kMargins);
    connect(this, &NumericField::edited, this, [this](double percent) {
        m_shown->forget();
        Q_EMIT scaleEntered(percent / kPercent);
    });
    setScale(1);
}

void ZoomField::setScale(double scale)
{
    m_shown->show(std::round(scale * kPercent * 10.0) / 10.0);
}

} // namespace studio
