// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Core/core_export.h>

#include <map>
#include <string>

/// Values by name. A name has letters, digits and '_' and does not begin with a digit; others are
/// never found. A variable hides a constant of its name.
using VariableTable = std::map<std::string, double>;

/// The value of an arithmetic expression, always finite. GUI thread only.
///
/// Numbers have a decimal point under any locale. There are + - * / ^ (from the right, before the
/// sign), comparisons, && || and ?:, the constants pi, e and tau, abs, sqrt, the trigonometric and
/// logarithmic functions (angles in radians), min, max, sum, avg, floor, ceil, round (halves away
/// from zero), pow(base, exponent) and mod(dividend, divisor), which has the dividend's sign.
/// Arguments are separated by ',' or ';'.
///
/// @param error  set to an English sentence, or to nothing when all is well; may be null. Errors
///               are: text that does not parse, more than one value, an infinite or undefined
///               result, bytes outside ASCII, and more than 4096 bytes.
/// @return on an error the value of the longest prefix of the text that has one, cut between
///         numbers, names and signs ("12+" gives 12, "3px" gives 3), or 0. In a text of thousands
///         of bytes only the longest prefixes are tried, so that a call stays short.
MORRANT_CORE_EXPORT double evaluateExpression(
    const std::string& utf8, const VariableTable& variables, std::string* error);
