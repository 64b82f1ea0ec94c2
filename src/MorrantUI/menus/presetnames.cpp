// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/presetnames.h"

#include <algorithm>

namespace ui::presets {

namespace {

/// Bytes of UTF-8: file systems take 255, and the host adds a suffix.
constexpr qsizetype kMostBytes = 200;

bool isForbidden(QChar c)
{
    return QStringLiteral("<>:\"/\\|?*").contains(c) || c.category() == QChar::Other_Control
           || c.category() == QChar::Separator_Line || c.category() == QChar::Separator_Paragraph;
}

bool isReserved(const QString& name)
{
    const QString stem = name.section(u'.', 0, 0).trimmed().toUpper();
    const QStringList devices{
        QStringLiteral("CON"), QStringLiteral("PRN"), QStringLiteral("AUX"), QStringLiteral("NUL")};
    const bool isPort =
        stem.size() == 4
        && (stem.startsWith(QStringLiteral("COM")) || stem.startsWith(QStringLiteral("LPT")))
        && stem.back() >= u'0' && stem.back() <= u'9';
    return devices.contains(stem) || isPort;
}

} // namespace

Checked checkName(const QString& name)
{
    const QString trimmed = name.trimmed();
    if (trimmed.isEmpty()) {
        return {Fault::Empty, {}};
    }
    const auto forbidden = std::find_if(trimmed.begin(), trimmed.end(), isForbidden);
    if (forbidden != trimmed.end()) {
        return {Fault::HasForbidden, forbidden->isPrint() ? QString(*forbidden) : QString()};
    }
    if (trimmed.endsWith(u'.')) {
        return {Fault::EndsWithDot, {}};
    }
    if (isReserved(trimmed)) {
        return {Fault::IsReserved, {}};
    }
    return {trimmed.toUtf8().size() > kMostBytes ? Fault::TooLong : Fault::None, {}};
}

QString sameName(const QStringList& existing, const QString& name)
{
    const QString wanted = name.trimmed();
    const auto found =
        std::find_if(existing.begin(), existing.end(), [&wanted](const QString& one) {
            return one.trimmed().compare(wanted, Qt::CaseInsensitive) == 0;
        });
    return found == existing.end() || wanted.isEmpty() ? QString() : *found;
}

} // namespace ui::presets
