// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lottie/Document.h"

#include <optional>

namespace studio {

/// What a document may hold at most. Larger files are refused: each limit bounds the memory, and
/// the time that reading takes. The time that drawing takes has its own limit, see drawcost.h.
inline constexpr std::size_t kMaxFileBytes = 64u << 20;
inline constexpr int kMaxNesting = 256; ///< lists and objects within each other
inline constexpr std::size_t kMaxJsonValues = 4'000'000;
inline constexpr std::size_t kMaxItems = 100'000;      ///< layers and shape items
inline constexpr std::size_t kMaxDrawnLayers = 50'000; ///< precompositions counted at each use
inline constexpr std::size_t kMaxPrecompositions = 64; ///< within each other
inline constexpr std::size_t kMaxParents = 100;        ///< above each other
inline constexpr double kMaxFrame = 10'000'000;        ///< the time editor counts in 32 bits
inline constexpr double kMaxFrameRate = 1000;
/// Larger numbers are cut: this is far beyond any picture, and small enough for products of a few
/// in single precision.
inline constexpr double kMaxMagnitude = 1e9;
inline constexpr int kMaxSide = 16'384; ///< pixels of width or height

/// Members of our own, which others pass over: of a layer, and of the document.
inline constexpr char kLockedKey[] = "morrantLocked";
inline constexpr char kNotesKey[] = "morrantNotes";

struct ReadResult
{
    std::optional<Document> document; ///< empty when the file cannot be opened
    QString error;                    ///< then one sentence for the user

    explicit operator bool() const { return document.has_value(); }
};

/// Reads a Lottie animation. Never throws and never logs; what the animation asks for and we do not
/// draw is in Document::missing.
ReadResult read(std::string bytes);

/// Reads a file; the sentence names it. Only regular files are opened.
ReadResult readFile(const QString& path);

} // namespace studio
