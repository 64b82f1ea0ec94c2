#pragma once

#include <QList>

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

} // namespace ui::docking
