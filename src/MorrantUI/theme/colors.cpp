// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/colors.h"

#include "MorrantUI/theme/currenttheme.h"
#include <MorrantUI/theme/VisualDesignBase.h>

#include <include/core/SkColor.h>

#include <algorithm>

namespace ui {

namespace {

constexpr double kWindowBackgroundPercent = 75.0;
constexpr double kPassthroughBackgroundPercent = 68.0;

enum HsvComponent
{
    Saturation = 1,
    Value = 2,
};

unsigned int scaleComponent(unsigned int argb, HsvComponent component, double percent)
{
    SkScalar hsv[3];
    SkRGBToHSV(SkColorGetR(argb), SkColorGetG(argb), SkColorGetB(argb), hsv);
    // Capping the factor instead of the product is what keeps these from brightening.
    hsv[component] *= static_cast<SkScalar>(std::min(percent * 0.01, 1.0));
    return SkHSVToColor(SK_AlphaOPAQUE, hsv);
}

} // namespace

QColor colorQt(const QString& name)
{
    const VisualDesignBase* theme = currentTheme();
    return theme ? theme->getColor(name) : QColor(Qt::black);
}

Color color(const std::string& name)
{
    return Color(colorQt(QString::fromStdString(name)).rgba());
}

QColor windowBackground()
{
    return changeValue(colorQt(QStringLiteral("Base")), kWindowBackgroundPercent);
}

QColor windowPassthroughBackground()
{
    return changeValue(colorQt(QStringLiteral("Base")), kPassthroughBackgroundPercent);
}

QColor changeValue(const QColor& color, double percent)
{
    float hue = 0.0F;
    float saturation = 0.0F;
    float value = 0.0F;
    color.getHsvF(&hue, &saturation, &value);
    const double scaled = std::min(percent * 0.01 * static_cast<double>(value), 1.0);
    // In this order of arguments max() turns NaN into 0; QColor would warn about either.
    const auto newValue = static_cast<float>(std::max(0.0, scaled));
    return QColor::fromHsvF(hue, saturation, newValue, 1.0F).toRgb();
}

unsigned int changeValue(const unsigned int& argb, double percent)
{
    return scaleComponent(argb, HsvComponent::Value, percent);
}

unsigned int changeSaturation(const unsigned int& argb, double percent)
{
    return scaleComponent(argb, HsvComponent::Saturation, percent);
}

} // namespace ui
