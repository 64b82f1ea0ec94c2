// SPDX-License-Identifier: Apache-2.0
#include "lottie/ReadContext.h"

#include "lottie/reader.h"

#include <algorithm>

namespace studio {

void ReadContext::fail(const QString& sentence)
{
    if (m_error.isEmpty()) {
        m_error = sentence;
    }
}

void ReadContext::missing(const QString& feature)
{
    const MissingFeature entry{m_layer, feature, m_layerByte};
    auto& all = m_document.missing;
    // A layer's features follow each other, so that only its own need to be looked through.
    for (auto it = all.rbegin(); it != all.rend() && it->layerByte == m_layerByte; ++it) {
        if (*it == entry) {
            return;
        }
    }
    all.push_back(entry);
}

void ReadContext::countItem()
{
    if (++m_items > kMaxItems) {
        fail(tr("The animation has more than %1 layers and shapes.").arg(kMaxItems));
    }
}

void ReadContext::failType(const JsonValue& value, const QString& expected)
{
    fail(tr("“%1” at byte %2 of the file should be %3.")
             .arg(
                 QString::fromUtf8(value.key().data(), static_cast<qsizetype>(value.key().size())),
                 QString::number(value.span().begin),
                 expected));
}

double ReadContext::number(const JsonValue& parent, std::string_view key, double fallback)
{
    const JsonValue value = parent[key];
    if (!value.exists()) {
        return fallback;
    }
    const auto number = value.number();
    if (!number) {
        failType(value, tr("a number"));
    }
    return std::clamp(number.value_or(fallback), -kMaxMagnitude, kMaxMagnitude);
}

int ReadContext::integer(const JsonValue& parent, std::string_view key, int fallback)
{
    return static_cast<int>(number(parent, key, fallback));
}

bool ReadContext::flag(const JsonValue& parent, std::string_view key)
{
    return number(parent, key) != 0;
}

JsonValue ReadContext::list(const JsonValue& parent, std::string_view key)
{
    const JsonValue value = parent[key];
    if (value.exists() && !value.isList()) {
        failType(value, tr("a list"));
    }
    return value;
}

JsonValue ReadContext::object(const JsonValue& parent, std::string_view key)
{
    const JsonValue value = parent[key];
    if (value.exists() && !value.isObject()) {
        failType(value, tr("an object"));
    }
    return value;
}

Numbers ReadContext::numbers(const JsonValue& value, int* count)
{
    Numbers result{};
    int found = 0;
    const auto take = [&](const JsonValue& entry) {
        const auto number = entry.number();
        if (!number) {
            failType(value, tr("a number or a list of numbers"));
        } else if (found < static_cast<int>(result.size())) {
            result[static_cast<std::size_t>(found++)] =
                std::clamp(*number, -kMaxMagnitude, kMaxMagnitude);
        }
    };
    if (value.isList()) {
        std::for_each(value.begin(), value.end(), take);
    } else if (value.exists()) {
        take(value);
    }
    if (count) {
        *count = found;
    }
    return result;
}

} // namespace studio
