// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lottie/Document.h"

#include <optional>

namespace studio {

/// The file of a document: the bytes that it was read from, with what was edited in it replaced and
/// everything else, known or not, as it was. What other programs have no place for, locks and
/// notes, stands in members of our own.
/// @return nothing when the document's bytes are not those of a document
std::optional<std::string> write(const Document& document);

} // namespace studio
