// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/timeeditor/KeyEasing.h>
#include <MorrantUI/timeeditor/soundpeaks.h>

#include <QColor>
#include <QIcon>
#include <QString>

#include <compare>
#include <cstddef>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

// The rows of a dope sheet as plain values: see DopeSheetOutline, DopeSheetRow and
// TimeEditorRowHeader.

/// What stands beside a row of a time editor.
struct TimeRowLabel
{
    QString text = {};
    QIcon icon = {};       ///< may be null
    int depth = 0;         ///< levels that the label is indented by
    bool foldable = false; ///< with an arrow before it
    bool folded = false;
    bool dimmed = false; ///< for what is hidden or cannot be edited
};

/// A key of a row that is filled as a list.
struct DopeSheetKey
{
    double frame = 0.0;
    KeyEasing easing = KeyEasing::Bezier; ///< how the value leaves it
    bool locked = false; ///< seen, but neither selected nor moved, nor in the way of what is behind

    friend bool operator==(const DopeSheetKey&, const DopeSheetKey&) = default;
};

/// When something is shown: the frames from start up to, and without, end, which is the start
/// where it lies before that. Its contents begin by slip later.
struct DopeSheetClip
{
    int start = 0;
    int end = 0;
    int slip = 0;

    friend bool operator==(const DopeSheetClip&, const DopeSheetClip&) = default;
};

/// A sound, and where it lies over frames.
struct DopeSheetSound
{
    std::shared_ptr<const ui::SoundPeaks> peaks = {};
    ui::SoundPlacement placement = {};
    /// The frames [first, second) that can be heard, as of TimeEditorSoundItem::setAudibleRange();
    /// the whole sound without.
    std::optional<std::pair<double, double>> audible = {};
};

/// A line of a DopeSheetOutline, as a host has it.
struct DopeSheetLine
{
    /// By which a line is known again, wherever it comes to stand. Of lines that share one, any may
    /// take over what was selected in another.
    QString id = {};
    /// Its depth makes the groups; whether it folds is the outline's to say.
    TimeRowLabel label = {};
    bool locked = false; ///< the user can neither select nor change anything in it
    std::vector<DopeSheetKey> keys = {};
    std::optional<DopeSheetClip> clip = {};   ///< for a row with a bar
    std::optional<DopeSheetSound> sound = {}; ///< for a row with a wave form, else
    QColor color = {}; ///< of bar, wave form or the line between keys; the row's own if invalid
    QString text = {}; ///< in the bar or over the wave form, where there is room
};

/// A key by the places of its line and in that line's list.
struct DopeSheetPlace
{
    std::size_t line = 0;
    std::size_t key = 0;

    friend auto operator<=>(const DopeSheetPlace&, const DopeSheetPlace&) = default;
};

/// Where a key has been taken on the screen.
struct DopeSheetKeyMove
{
    DopeSheetPlace place;
    double frame = 0.0;    ///< where it is now
    double distance = 0.0; ///< from where its line says; 0 where it has not been moved
    bool selected = false;
};
