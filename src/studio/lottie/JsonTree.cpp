// SPDX-License-Identifier: Apache-2.0
#include "lottie/JsonTree.h"

#include <charconv>
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

namespace studio {

namespace {

std::string_view textAt(std::string_view text, Span span)
{
    return text.substr(span.begin, span.end - span.begin);
}

// Decodes one JSON string.
struct StringHandler : rapidjson::BaseReaderHandler<rapidjson::UTF8<>, StringHandler>
{
    QString result;

    bool String(const char* text, rapidjson::SizeType length, bool)
    {
        result = QString::fromUtf8(text, static_cast<qsizetype>(length));
        return true;
    }
};

} // namespace

// Receives the reader's events. The reader tells how far it has come; a token begins where the one
// before ended, past white space and separators.
class JsonTree::Builder
{
public:
    Builder(JsonTree& tree, const rapidjson::MemoryStream& stream, std::size_t start, Limits limits)
        : m_tree(tree)
        , m_stream(stream)
        , m_start(start)
        , m_end(static_cast<std::uint32_t>(start))
        , m_limits(limits)
    {}

    bool Null() { return add(JsonType::Null); }
    bool Bool(bool) { return add(JsonType::Boolean); }
    bool RawNumber(const char*, rapidjson::SizeType, bool) { return add(JsonType::Number); }
    bool String(const char*, rapidjson::SizeType, bool) { return add(JsonType::String); }
    bool StartObject() { return open(JsonType::Object); }
    bool EndObject(rapidjson::SizeType) { return close(); }
    bool StartArray() { return open(JsonType::List); }
    bool EndArray(rapidjson::SizeType) { return close(); }

    bool Key(const char*, rapidjson::SizeType, bool)
    {
        const std::uint32_t begin = tokenBegin();
        m_end = position();
        m_key = {begin + 1, m_end - 1};
        return true;
    }

    // The reader announces numbers as text alone; it still wants to see these.
    bool Int(int) { return false; }
    bool Uint(unsigned) { return false; }
    bool Int64(std::int64_t) { return false; }
    bool Uint64(std::uint64_t) { return false; }
    bool Double(double) { return false; }

private:
    struct Level
    {
        std::uint32_t node = 0;
        std::uint32_t lastChild = kNone;
    };

    std::uint32_t position() const { return static_cast<std::uint32_t>(m_start + m_stream.Tell()); }

    std::uint32_t tokenBegin() const
    {
        const std::size_t begin = m_tree.m_text.find_first_not_of(" \t\r\n,:", m_end);
        return static_cast<std::uint32_t>(begin);
    }

    bool append(JsonType type, Span span)
    {
        auto& nodes = m_tree.m_nodes;
        if (nodes.size() >= m_limits.values) {
            m_tree.m_failure = Failure::TooLarge;
            return false;
        }
        const auto index = static_cast<std::uint32_t>(nodes.size());
        nodes.push_back({m_key, span, kNone, kNone, type});
        m_key = {};
        if (!m_levels.empty()) {
            Level& level = m_levels.back();
            if (level.lastChild == kNone) {
                nodes[level.node].firstChild = index;
            } else {
                nodes[level.lastChild].next = index;
            }
            level.lastChild = index;
        }
        return true;
    }

    bool add(JsonType type)
    {
        const std::uint32_t begin = tokenBegin();
        m_end = position();
        return append(type, {begin, m_end});
    }

    bool open(JsonType type)
    {
        if (m_levels.size() >= static_cast<std::size_t>(m_limits.nesting)) {
            m_tree.m_failure = Failure::TooDeep;
            return false;
        }
        const std::uint32_t begin = tokenBegin();
        m_end = begin + 1; // brackets are taken from the stream only after their event
        const auto index = static_cast<std::uint32_t>(m_tree.m_nodes.size());
        if (!append(type, {begin, m_end})) {
            return false;
        }
        m_levels.push_back({index, kNone});
        return true;
    }

    bool close()
    {
        m_end = position() + 1;
        m_tree.m_nodes[m_levels.back().node].span.end = m_end;
        m_levels.pop_back();
        return true;
    }

    JsonTree& m_tree;
    const rapidjson::MemoryStream& m_stream;
    std::size_t m_start; // of the stream within the text
    std::uint32_t m_end; // of the last token
    Limits m_limits;
    Span m_key;
    std::vector<Level> m_levels;
};

bool JsonTree::parse(std::string_view text, Limits limits)
{
    m_text = text;
    m_nodes.clear();
    m_failure = Failure::None;
    constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";
    const std::size_t start = text.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
    rapidjson::MemoryStream stream(text.data() + start, text.size() - start);
    rapidjson::Reader reader;
    Builder builder(*this, stream, start, limits);
    constexpr unsigned kFlags =
        rapidjson::kParseIterativeFlag | rapidjson::kParseNumbersAsStringsFlag;
    if (!reader.Parse<kFlags>(stream, builder) && m_failure == Failure::None) {
        m_failure = Failure::Syntax;
    }
    m_failedAt = start + reader.GetErrorOffset();
    if (m_failure != Failure::None) {
        m_nodes.clear();
    }
    return m_failure == Failure::None;
}

JsonType JsonValue::type() const
{
    return m_tree ? m_tree->m_nodes[m_index].type : JsonType::Missing;
}

Span JsonValue::span() const
{
    return m_tree ? m_tree->m_nodes[m_index].span : Span();
}

std::string_view JsonValue::text() const
{
    return m_tree ? textAt(m_tree->m_text, span()) : std::string_view();
}

std::string_view JsonValue::key() const
{
    return m_tree ? textAt(m_tree->m_text, m_tree->m_nodes[m_index].key) : std::string_view();
}

Span JsonValue::memberSpan() const
{
    const Span key = m_tree ? m_tree->m_nodes[m_index].key : Span();
    return key == Span() ? span() : Span{key.begin - 1, span().end}; // with the quote before
}

std::optional<double> JsonValue::number() const
{
    const std::string_view written = text();
    if (type() == JsonType::Boolean) {
        return written == "true" ? 1.0 : 0.0;
    }
    double result = 0;
    if (type() != JsonType::Number) {
        return std::nullopt;
    }
    const auto error = std::from_chars(written.data(), written.data() + written.size(), result).ec;
    if (error == std::errc()) {
        return result;
    }
    // Out of range: too small is as good as nothing, too large is not a number for us.
    const auto size = static_cast<qsizetype>(written.size());
    const bool isTiny = QByteArray::fromRawData(written.data(), size).toDouble() == 0;
    return isTiny ? std::optional(0.0) : std::nullopt;
}

QString JsonValue::string() const
{
    if (type() != JsonType::String) {
        return {};
    }
    const std::string_view written = text();
    rapidjson::MemoryStream stream(written.data(), written.size());
    StringHandler handler;
    rapidjson::Reader().Parse(stream, handler);
    return handler.result;
}

JsonValue JsonValue::first() const
{
    const auto index = m_tree ? m_tree->m_nodes[m_index].firstChild : JsonTree::kNone;
    return index == JsonTree::kNone ? JsonValue() : JsonValue(m_tree, index);
}

JsonValue JsonValue::next() const
{
    const auto index = m_tree ? m_tree->m_nodes[m_index].next : JsonTree::kNone;
    return index == JsonTree::kNone ? JsonValue() : JsonValue(m_tree, index);
}

JsonValue JsonValue::operator[](std::string_view key) const
{
    if (isObject()) {
        for (const JsonValue& value : *this) {
            if (value.key() == key) {
                return value;
            }
        }
    }
    return {};
}

std::size_t JsonValue::size() const
{
    std::size_t count = 0;
    for (JsonValue value = first(); value.type() != JsonType::Missing; value = value.next()) {
        ++count;
    }
    return count;
}

} // namespace studio
