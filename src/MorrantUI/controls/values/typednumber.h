// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <functional>

/// What is typed into a number field, as a text.
namespace ui {

/// The text without what only groups the digits of a number: blanks between two digits, no-break
/// and thin ones too ("1 000,5" is "1000,5"). Other blanks become plain spaces.
QString withoutGrouping(const QString& typed);

/// A part of a text.
struct TextSpan
{
    qsizetype start = 0;
    qsizetype length = 0; ///< 0: there is none

    bool operator==(const TextSpan&) const = default;
};

/// The number at a place of an expression, whole: with its sign, its point or comma, the blanks
/// that group its digits and its exponent. A sign behind an operand is an operator.
/// @param position of a caret; one beside the number is at it
TextSpan numberAt(const QString& text, qsizetype position);

/// Whether a beginning of a text has the value 0. Only the first 64 characters are looked at.
/// @param isZero asked with a text of any kind
bool beginsWithZero(
    const QString& text, const std::function<bool(const QString& beginning)>& isZero);

} // namespace ui
