// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/values/colortext.h"

#include <QCoreApplication>
#include <QMimeData>

#include <algorithm>
#include <array>

namespace ui {

namespace {

bool isHexDigit(QChar character)
{
    const ushort code = character.toLower().unicode();
    return (code >= u'0' && code <= u'9') || (code >= u'a' && code <= u'f');
}

/// A name for what lies below a limit.
struct NameBelow
{
    int limit;
    const char* name;
};

constexpr int kLeastChroma = 20; ///< between the channels: below it is a grey
constexpr int kPale = 90;        ///< the same: below it is a greyish colour
constexpr int kDark = 150;       ///< of the lightest and the darkest channel together
constexpr int kLight = 390;
constexpr std::array kGreys{
    NameBelow{40, QT_TRANSLATE_NOOP("ui::colorWords", "black")},
    NameBelow{170, QT_TRANSLATE_NOOP("ui::colorWords", "dark grey")},
    NameBelow{340, QT_TRANSLATE_NOOP("ui::colorWords", "grey")},
    NameBelow{480, QT_TRANSLATE_NOOP("ui::colorWords", "light grey")},
    NameBelow{511, QT_TRANSLATE_NOOP("ui::colorWords", "white")}};
/// By degrees of hue.
constexpr std::array kHues{
    NameBelow{15, QT_TRANSLATE_NOOP("ui::colorWords", "red")},
    NameBelow{45, QT_TRANSLATE_NOOP("ui::colorWords", "orange")},
    NameBelow{70, QT_TRANSLATE_NOOP("ui::colorWords", "yellow")},
    NameBelow{95, QT_TRANSLATE_NOOP("ui::colorWords", "lime")},
    NameBelow{160, QT_TRANSLATE_NOOP("ui::colorWords", "green")},
    NameBelow{195, QT_TRANSLATE_NOOP("ui::colorWords", "cyan")},
    NameBelow{255, QT_TRANSLATE_NOOP("ui::colorWords", "blue")},
    NameBelow{290, QT_TRANSLATE_NOOP("ui::colorWords", "violet")},
    NameBelow{345, QT_TRANSLATE_NOOP("ui::colorWords", "magenta")},
    NameBelow{360, QT_TRANSLATE_NOOP("ui::colorWords", "red")}};

QString words(const char* text)
{
    return QCoreApplication::translate("ui::colorWords", text);
}

template <std::size_t kCount>
QString nameOf(int value, const std::array<NameBelow, kCount>& names)
{
    const auto found = std::find_if(names.begin(), names.end() - 1, [value](const NameBelow& each) {
        return value < each.limit;
    });
    return words(found->name);
}

QString nameOf(const QColor& color)
{
    const auto [least, most] = std::minmax({color.red(), color.green(), color.blue()});
    const int lightness = least + most;
    if (most - least < kLeastChroma) {
        return nameOf(lightness, kGreys);
    }
    const QString hue = nameOf(color.hsvHue(), kHues);
    if (lightness < kDark || lightness >= kLight) {
        return words(
                   lightness < kDark ? QT_TRANSLATE_NOOP("ui::colorWords", "dark %1")
                                     : QT_TRANSLATE_NOOP("ui::colorWords", "light %1"))
            .arg(hue);
    }
    return most - least < kPale ? words(QT_TRANSLATE_NOOP("ui::colorWords", "greyish %1")).arg(hue)
                                : hue;
}

} // namespace

QString colorText(const QColor& color)
{
    if (!color.isValid()) {
        return {};
    }
    const QString text = color.name(QColor::HexRgb);
    return color.alpha() == 255 ? text
                                : text + QString::number(color.alpha(), 16).rightJustified(2, u'0');
}

QString colorWords(const QColor& color)
{
    if (!color.isValid()) {
        return {};
    }
    const QColor rgb = color.toRgb();
    const QString text = words(QT_TRANSLATE_NOOP("ui::colorWords", "%1: %2, %3, %4"))
                             .arg(
                                 nameOf(rgb),
                                 QString::number(rgb.red()),
                                 QString::number(rgb.green()),
                                 QString::number(rgb.blue()));
    return rgb.alpha() == 255 ? text
                              : words(QT_TRANSLATE_NOOP("ui::colorWords", "%1, %2 % opaque"))
                                    .arg(text, QString::number(qRound(rgb.alphaF() * 100)));
}

std::optional<QColor> colorFromText(const QString& text)
{
    QString digits = text.trimmed();
    if (digits.startsWith(u'#')) {
        digits.remove(0, 1);
    }
    if (!std::all_of(digits.cbegin(), digits.cend(), isHexDigit)) {
        return std::nullopt;
    }
    if (digits.size() == 3) {
        for (const int i : {4, 2, 0}) {
            digits.insert(i / 2, digits.at(i / 2)); // each digit twice, from the last to the first
        }
    }
    if (digits.size() == 6) {
        digits += QLatin1String("ff");
    }
    if (digits.size() != 8) {
        return std::nullopt;
    }
    const uint rgba = digits.toUInt(nullptr, 16);
    return QColor::fromRgba((rgba >> 8) | (rgba << 24));
}

std::unique_ptr<QMimeData> colorMimeData(const QColor& color)
{
    auto data = std::make_unique<QMimeData>();
    data->setColorData(color);
    data->setText(colorText(color));
    return data;
}

std::optional<QColor> colorFromMimeData(const QMimeData* data)
{
    if (!data) {
        return std::nullopt;
    }
    if (data->hasColor()) {
        const auto color = data->colorData().value<QColor>();
        if (color.isValid()) {
            return color;
        }
    }
    return data->hasText() ? colorFromText(data->text()) : std::nullopt;
}

} // namespace ui
