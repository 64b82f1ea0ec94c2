// SPDX-License-Identifier: Apache-2.0
#include "saving/jsonforms.h"

#include <charconv>
#include <cmath>

namespace studio {

namespace {

std::vector<Span> membersOf(const JsonValue& container)
{
    std::vector<Span> spans;
    for (const JsonValue& value : container) {
        spans.push_back(value.memberSpan());
    }
    return spans;
}

bool endsWithSpace(const std::string& text)
{
    return !text.empty() && text.back() == ' ';
}

bool hasSpaces(const JsonForm& form)
{
    return endsWithSpace(form.colon) || endsWithSpace(form.gap);
}

std::string join(const JsonForm& form, const std::vector<std::string>& texts)
{
    std::string result;
    for (const std::string& text : texts) {
        result += (result.empty() ? "" : form.gap) + text;
    }
    return result;
}

} // namespace

std::vector<JsonValue> valuesOf(const JsonValue& container)
{
    std::vector<JsonValue> values;
    for (const JsonValue& value : container) {
        values.push_back(value);
    }
    return values;
}

JsonForm formOf(const TextPatch& patch, const JsonValue& container)
{
    const Span whole = container.span();
    const std::vector<Span> members = membersOf(container);
    JsonForm form;
    if (members.empty()) {
        form.open = patch.source({whole.begin, whole.begin + 1});
        form.close = patch.source({whole.end - 1, whole.end});
        return form;
    }
    form.open = patch.source({whole.begin, members.front().begin});
    form.close = patch.source({members.back().end, whole.end});
    const JsonValue first = container.first();
    if (container.isObject()) {
        const auto keySize = static_cast<std::uint32_t>(first.key().size()) + 2; // with its quotes
        form.colon = patch.source({members.front().begin + keySize, first.span().begin});
    }
    if (members.size() > 1) {
        form.gap = patch.source({members[0].end, members[1].begin});
    } else {
        const std::string space = form.open.substr(1);
        form.gap = "," + (space.empty() && endsWithSpace(form.colon) ? " " : space);
    }
    return form;
}

JsonForm listForm(const JsonForm& like)
{
    return {"[", hasSpaces(like) ? ", " : ",", like.colon, "]"};
}

JsonForm objectForm(const JsonForm& like)
{
    return {"{", hasSpaces(like) ? ", " : ",", like.colon, "}"};
}

std::string compose(
    const TextPatch& patch, const JsonValue& container, const std::vector<JsonPiece>& pieces)
{
    const JsonForm form = formOf(patch, container);
    const std::vector<Span> members = membersOf(container);
    const auto gapBetween = [&](const JsonPiece& before, const JsonPiece& after) -> std::string {
        const bool areNeighbors =
            before.origin && after.origin && *before.origin + 1 == *after.origin;
        return areNeighbors ? std::string(
                   patch.source({members[*before.origin].end, members[*after.origin].begin}))
                            : form.gap;
    };
    if (pieces.empty()) {
        return {form.open.front(), form.close.back()};
    }
    std::string result = form.open;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (i > 0) {
            result += gapBetween(pieces[i - 1], pieces[i]);
        }
        const auto origin = pieces[i].origin;
        result += origin ? patch.patched(members[*origin]) : pieces[i].text;
    }
    return result += form.close;
}

std::string compose(const JsonForm& form, const std::vector<std::string>& texts)
{
    return form.open + join(form, texts) + form.close;
}

std::string numberText(double number)
{
    constexpr double kSmallest = 1e-6; // beyond these, digits alone are harder to read
    constexpr double kLargest = 1e15;
    const double size = std::abs(number);
    const bool isPlain = size == 0 || (size >= kSmallest && size < kLargest);
    std::string text(32, '\0');
    const auto end = std::to_chars(
        text.data(),
        text.data() + text.size(),
        number + 0.0, // no minus before 0
        isPlain ? std::chars_format::fixed : std::chars_format::scientific);
    text.resize(static_cast<std::size_t>(end.ptr - text.data()));
    return text;
}

std::string stringText(const QString& string)
{
    constexpr unsigned char kFirstPrintable = 0x20;
    std::string result = "\"";
    for (const char c : string.toStdString()) {
        const auto code = static_cast<unsigned char>(c);
        if (code < kFirstPrintable) {
            constexpr char kDigits[] = "0123456789abcdef";
            result += {'\\', 'u', '0', '0', kDigits[code >> 4], kDigits[code & 0xf]};
        } else {
            result += c == '"' || c == '\\' ? std::string{'\\', c} : std::string{c};
        }
    }
    return result + '"';
}

} // namespace studio
