// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/values/typednumber.h"

#include <QRegularExpression>

#include <algorithm>

namespace ui {

namespace {

constexpr qsizetype kLongestLookedAt = 64; ///< characters; every beginning of them is evaluated

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

} // namespace

QString withoutGrouping(const QString& typed)
{
    QString text;
    text.reserve(typed.size());
    for (qsizetype i = 0; i < typed.size(); ++i) {
        const bool groups = typed[i].isSpace() && i > 0 && isDigit(typed[i - 1])
                            && i + 1 < typed.size() && isDigit(typed[i + 1]);
        if (!groups) {
            text += typed[i].isSpace() ? QChar(u' ') : typed[i];
        }
    }
    return text;
}

TextSpan numberAt(const QString& text, qsizetype position)
{
    static const QRegularExpression kNumber(QStringLiteral(
        "(?:(?<![\\w.,)])[-+])?" // a sign of its own
        "(?:(?<![A-Za-z_])[0-9](?:[ \\x{a0}\\x{2007}\\x{2009}\\x{202f}]?[0-9])*(?:[.,][0-9]*)?"
        "|[.,][0-9]+)"
        "(?:[eE][-+]?[0-9]+)?"));
    auto matches = kNumber.globalMatch(text);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        if (match.capturedStart() <= position && position <= match.capturedEnd()) {
            return {match.capturedStart(), match.capturedLength()};
        }
    }
    return {};
}

bool beginsWithZero(const QString& text, const std::function<bool(const QString&)>& isZero)
{
    const qsizetype longest = std::min(text.size(), kLongestLookedAt);
    for (qsizetype length = 1; length <= longest; ++length) {
        if (isZero(text.left(length))) {
            return true;
        }
    }
    return false;
}

} // namespace ui
