// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lottie/Property.h"

#include <QString>

#include <optional>
#include <string_view>
#include <vector>

namespace studio {

enum class JsonType : std::uint8_t
{
    Missing, ///< there is no such value
    Null,
    Boolean,
    Number,
    String,
    List,
    Object,
};

class JsonTree;

/// One value of a JsonTree; cheap to copy, valid as long as the tree. Asking a value for something
/// it does not hold gives a Missing one or nothing.
class JsonValue
{
public:
    JsonValue() = default;

    JsonType type() const;
    bool isList() const { return type() == JsonType::List; }
    bool isObject() const { return type() == JsonType::Object; }
    /// Whether there is a value other than null.
    bool exists() const { return type() > JsonType::Null; }
    Span span() const;

    /// A number, or a boolean as 0 or 1.
    std::optional<double> number() const;
    QString string() const;
    std::string_view key() const; ///< as the file writes it, without its quotes
    /// With its key, for what has one.
    Span memberSpan() const;

    JsonValue operator[](std::string_view key) const;
    JsonValue first() const; ///< of a list or an object
    JsonValue next() const;  ///< the neighbour in the same list or object
    std::size_t size() const;

    /// Iterates over the values of a list or an object.
    struct Iterator;
    Iterator begin() const;
    Iterator end() const;

private:
    friend class JsonTree;
    JsonValue(const JsonTree* tree, std::uint32_t index)
        : m_tree(tree)
        , m_index(index)
    {}
    std::string_view text() const;

    const JsonTree* m_tree = nullptr;
    std::uint32_t m_index = 0;
};

struct JsonValue::Iterator
{
    JsonValue value;

    const JsonValue& operator*() const { return value; }
    Iterator& operator++()
    {
        value = value.next();
        return *this;
    }
    bool operator!=(const Iterator&) const { return value.type() != JsonType::Missing; }
};

inline JsonValue::Iterator JsonValue::begin() const
{
    return {first()};
}

inline JsonValue::Iterator JsonValue::end() const
{
    return {};
}

/// A JSON text with the place of each value in it. Keeps no copy of the text, which must outlive
/// it.
class JsonTree
{
public:
    struct Limits
    {
        int nesting = 0;
        std::size_t values = 0;
    };

    enum class Failure
    {
        None,
        Syntax, ///< not JSON, or cut off
        TooDeep,
        TooLarge,
    };

    /// @return false when `text` cannot be read: see failure() and failedAt()
    bool parse(std::string_view text, Limits limits);

    JsonValue root() const { return m_nodes.empty() ? JsonValue() : JsonValue(this, 0); }
    Failure failure() const { return m_failure; }
    std::size_t failedAt() const { return m_failedAt; } ///< byte

private:
    friend class JsonValue;
    class Builder;

    static constexpr std::uint32_t kNone = 0; ///< no node: the root is nobody's child or neighbour

    struct Node
    {
        Span key; ///< between its quotes
        Span span;
        std::uint32_t firstChild = kNone;
        std::uint32_t next = kNone;
        JsonType type = JsonType::Null;
    };

    std::string_view m_text;
    std::vector<Node> m_nodes;
    Failure m_failure = Failure::None;
    std::size_t m_failedAt = 0;
};

} // namespace studio
