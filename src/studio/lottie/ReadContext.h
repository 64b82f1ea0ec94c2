// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lottie/Document.h"
#include "lottie/JsonTree.h"

#include <QCoreApplication>

namespace studio {

/// What the parts of the reader share: the first error, the layer that is being read, and the ways
/// to take a value that may be absent (its default) or of the wrong type (an error).
class ReadContext
{
    Q_DECLARE_TR_FUNCTIONS(studio)

public:
    explicit ReadContext(Document& document)
        : m_document(document)
    {}

    /// Only the first sentence is kept.
    void fail(const QString& sentence);
    const QString& error() const { return m_error; }
    bool failed() const { return !m_error.isEmpty(); }

    /// @param byte where it stands in the file
    void setLayer(const QString& name, std::uint32_t byte)
    {
        m_layer = name;
        m_layerByte = byte;
    }
    /// Lists a feature of the current layer as not drawn, once.
    void missing(const QString& feature);

    /// Counts a layer or a shape item; fails when there are too many.
    void countItem();

    /// A finite number within what a picture can need; huge ones are cut.
    double number(const JsonValue& parent, std::string_view key, double fallback = 0);
    int integer(const JsonValue& parent, std::string_view key, int fallback = 0);
    bool flag(const JsonValue& parent, std::string_view key);
    JsonValue list(const JsonValue& parent, std::string_view key);
    JsonValue object(const JsonValue& parent, std::string_view key);

    /// A number, or as many numbers of a list as fit.
    /// @param count how many there were
    Numbers numbers(const JsonValue& value, int* count = nullptr);

    Document& document() { return m_document; }

    void failType(const JsonValue& value, const QString& expected);

private:
    Document& m_document;
    QString m_error;
    std::size_t m_items = 0;
    QString m_layer;
    std::uint32_t m_layerByte = 0;
};

} // namespace studio
