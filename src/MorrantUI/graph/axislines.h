// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <vector>

/// The lines of a graph's axes and their labels.
namespace ui::Graph {

/// The least step of 1, 2 or 5 by tens that is not below a distance; 1 for what is none.
double axisStep(double least);

/// Every multiple of a step in a range; none where they would be a thousand or more.
std::vector<double> axisLines(double first, double last, double step);

/// A number with the decimals that its step has, six at most, as the user's locale writes it.
QString axisLabel(double number, double step);

} // namespace ui::Graph
