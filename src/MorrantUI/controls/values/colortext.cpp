// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/values/colortext.h"

#include <QMimeData>

#include <algorithm>

namespace ui {

namespace {

bool isHexDigit(QChar character)
{
    const ushort code = character.toLower().unicode();
    return (code >= u'0' && code <= u'9') || (code >= u'a' && code <= u'f');
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
