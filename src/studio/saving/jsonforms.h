// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lottie/JsonTree.h"
#include "saving/TextPatch.h"

#include <optional>
#include <vector>

namespace studio {

/// The values of a list or an object.
std::vector<JsonValue> valuesOf(const JsonValue& container);

/// How a list or an object is written: what stands around its values, white space included.
struct JsonForm
{
    std::string open = "[";
    std::string gap = ",";   ///< between two values
    std::string colon = ":"; ///< between a key and its value
    std::string close = "]";
};

/// The form of a list or an object of the file; what that does not show is guessed from the rest.
JsonForm formOf(const TextPatch& patch, const JsonValue& container);
/// A form on one line, with or without spaces as another has them.
JsonForm listForm(const JsonForm& like);
JsonForm objectForm(const JsonForm& like);

/// A value of a list, or a member of an object with its key, in a new order.
struct JsonPiece
{
    std::optional<std::size_t> origin = {}; ///< its place in the file's list; none for a new one
    std::string text;
};

/// The text of a container with other contents. What stood between two neighbours is still there
/// where they still are neighbours.
std::string compose(
    const TextPatch& patch, const JsonValue& container, const std::vector<JsonPiece>& pieces);
std::string compose(const JsonForm& form, const std::vector<std::string>& texts);

/// Shortest that reads back as the same number.
std::string numberText(double number);
/// With its quotes.
std::string stringText(const QString& string);

} // namespace studio
