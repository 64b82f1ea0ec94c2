// SPDX-License-Identifier: Apache-2.0
#include "Expression.h"

// Windows builds of Qt define it; muParser would take it as a wish for wide strings, which its
// library was not built for.
#undef _UNICODE
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <exception>
#include <muParser.h>
#include <numbers>
#include <optional>
#include <string_view>
#include <vector>

namespace {

constexpr std::size_t kMaxLength = 4096; ///< bytes

/// Bytes that the search for a valid beginning may parse in all. It covers every beginning of a
/// text of 700 bytes and keeps the worst text at a fraction of a second.
constexpr std::size_t kPrefixBudget = 64 * kMaxLength;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isNameStart(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

bool isNamePart(char c)
{
    return isNameStart(c) || isDigit(c);
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool isReadable(char c)
{
    return (c >= ' ' && c <= '~') || isBlank(c);
}

template <typename Predicate>
std::size_t skipWhile(std::string_view text, std::size_t at, Predicate predicate)
{
    while (at < text.size() && predicate(text[at])) {
        ++at;
    }
    return at;
}

/// Where the number that begins at `at` ends, or `at` when none begins there. An exponent belongs
/// to it only with digits.
std::size_t endOfNumber(std::string_view text, std::size_t at)
{
    const std::size_t whole = skipWhile(text, at, isDigit);
    std::size_t end = whole;
    if (end < text.size() && text[end] == '.') {
        end = skipWhile(text, end + 1, isDigit);
    }
    if (end == at || (whole == at && end == at + 1)) {
        return at;
    }
    if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
        std::size_t digits = end + 1;
        if (digits < text.size() && (text[digits] == '+' || text[digits] == '-')) {
            ++digits;
        }
        const std::size_t exponent = skipWhile(text, digits, isDigit);
        end = exponent > digits ? exponent : end;
    }
    return end;
}

/// The lengths, up to kMaxLength, at which a beginning of the text could be an expression, shortest
/// first: after a number, a name or a closing parenthesis, with no parenthesis left open.
std::vector<std::size_t> possibleCuts(std::string_view text)
{
    std::vector<std::size_t> cuts;
    int depth = 0;
    for (std::size_t at = 0; at < std::min(text.size(), kMaxLength);) {
        std::size_t end = endOfNumber(text, at);
        if (end == at && isNameStart(text[at])) {
            end = skipWhile(text, at, isNamePart);
        }
        bool completes = end > at;
        if (!completes) {
            end = at + 1;
            depth += text[at] == '(' ? 1 : 0;
            depth -= text[at] == ')' ? 1 : 0;
            completes = text[at] == ')';
        }
        if (depth < 0) {
            break;
        }
        if (completes && depth == 0 && end <= kMaxLength) {
            cuts.push_back(end);
        }
        at = end;
    }
    return cuts;
}

/// muParser with our names.
class Evaluator
{
public:
    explicit Evaluator(const VariableTable& variables)
    {
        m_parser.ClearConst(); // its own _pi and _e have twelve digits
        m_parser.DefineConst("pi", std::numbers::pi);
        m_parser.DefineConst("e", std::numbers::e);
        m_parser.DefineConst("tau", 2 * std::numbers::pi);
        m_parser.DefineFun(
            "floor", +[](double x) { return std::floor(x); });
        m_parser.DefineFun(
            "ceil", +[](double x) { return std::ceil(x); });
        m_parser.DefineFun(
            "round", +[](double x) { return std::round(x); });
        m_parser.DefineFun(
            "pow", +[](double x, double y) { return std::pow(x, y); });
        m_parser.DefineFun(
            "mod", +[](double x, double y) { return std::fmod(x, y); });
        for (const auto& [name, value] : variables) {
            const bool valid = !name.empty() && isNameStart(name.front())
                               && std::all_of(name.begin(), name.end(), isNamePart);
            if (valid) {
                // A constant, since the expression must not assign to it.
                m_parser.DefineConst(name, value);
            }
        }
    }

    /// The finite value of the text, or nothing and the reason in error().
    std::optional<double> evaluate(std::string_view text)
    {
        try {
            m_parser.SetExpr(std::string(text));
            int count = 0;
            const double* values = m_parser.Eval(count);
            if (count != 1) {
                return fail("The expression has more than one value.");
            }
            if (!std::isfinite(values[0])) {
                return fail("The result is infinite or undefined.");
            }
            return values[0];
        } catch (const mu::ParserError& parserError) {
            return fail(parserError.GetMsg());
        } catch (const std::exception& exception) {
            return fail(exception.what());
        }
    }

    const std::string& error() const { return m_error; }

private:
    std::nullopt_t fail(const std::string& reason)
    {
        m_error = reason.empty() ? "The expression is not valid." : reason;
        return std::nullopt;
    }

    mu::Parser m_parser;
    std::string m_error;
};

double longestPrefixValue(Evaluator& evaluator, std::string_view text)
{
    const std::vector<std::size_t> cuts = possibleCuts(text);
    std::size_t budget = kPrefixBudget;
    for (auto cut = cuts.rbegin(); cut != cuts.rend() && *cut <= budget; ++cut) {
        budget -= *cut;
        if (const auto value = evaluator.evaluate(text.substr(0, *cut))) {
            return *value;
        }
    }
    return 0;
}

} // namespace

double evaluateExpression(
    const std::string& utf8, const VariableTable& variables, std::string* error)
{
    std::string text = utf8;
    std::replace(text.begin(), text.end(), ';', ',');
    const auto unreadable = std::find_if_not(text.begin(), text.end(), isReadable);
    std::string message;
    if (text.size() > kMaxLength) {
        message = "The expression is too long.";
    } else if (unreadable != text.end()) {
        message = "The expression has a character that is not allowed.";
    }
    text.erase(unreadable, text.end());

    Evaluator evaluator(variables);
    std::optional<double> value;
    if (message.empty()) {
        value = evaluator.evaluate(text);
        message = value ? std::string() : evaluator.error();
    }
    if (error) {
        *error = message;
    }
    return value ? *value : longestPrefixValue(evaluator, text);
}
