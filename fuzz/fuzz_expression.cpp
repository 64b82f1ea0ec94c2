// SPDX-License-Identifier: Apache-2.0
#include "fuzzing.h"

#include <Core/Expression.h>

#include <cmath>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(data, data + size);
    const VariableTable variables = {{"x", 2.5}, {"zero", 0}};

    std::string error = "from an earlier call";
    const double value = evaluateExpression(text, variables, &error);
    check(std::isfinite(value), "the value is finite");
    check(error.find("earlier call") == std::string::npos, "the error text is always set");

    std::string again;
    check(
        evaluateExpression(text, variables, &again) == value && again == error,
        "the same text has the same value");
    if (error.empty() && text.size() < 4000) {
        check(
            evaluateExpression("(" + text + ")", variables, &again) == value && again.empty(),
            "parentheses around a valid expression change nothing");
        check(
            evaluateExpression(text + "\x80", variables, &again) == value && !again.empty(),
            "a valid expression is the longest valid beginning of what follows it");
    }
    return 0;
}
