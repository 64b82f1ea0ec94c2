// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QList>

#include <limits>
#include <vector>

/// How windows in a row share its length, in whole logical pixels. A row's sizes leave out the
/// handles between the windows.
namespace ui::docking {

/// Sizes in the same proportions that add up to `total` exactly. Equal parts if all are 0; zeros if
/// `total` is negative.
QList<int> scaledTo(const QList<int>& sizes, int total);

/// What a newcomer gets of a room of that length: what it wants, but at most half.
int newcomerShare(int room, int wanted);

/// The sizes of a row with a newcomer at `index`; the others shrink in proportion.
/// @param handle the thickness of the one more handle
QList<int> withNewcomer(const QList<int>& sizes, int index, int wanted, int handle);

/// The sizes of a row in which several windows take the place of one and share its length in the
/// proportions of `parts`.
QList<int> withReplaced(const QList<int>& sizes, int index, const QList<int>& parts, int handle);

/// One of the windows in a row.
struct Cell
{
    int most = std::numeric_limits<int>::max(); ///< that it should have
    int stretch = 0;                            ///< how eager it is to grow
    bool seen = true;                           ///< hidden ones get nothing
};

/// Which windows may have more than they should, since nobody else can fill the room: those that
/// stretch most, and of these the ones that may have most. None, if the room can be filled.
std::vector<bool> yielding(const std::vector<Cell>& cells, int room);

/// The sizes with what is missing to the room given out: to those that have less than they should,
/// as much as they may have and in proportion to their sizes, then to the yielding ones.
QList<int> filled(const QList<int>& sizes, const std::vector<Cell>& cells, int room);

} // namespace ui::docking
