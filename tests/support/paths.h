// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace ui::test {

/// A folder's own test data, tests/<folder>/data.
QString dataPath(const QString& folder);

/// The assets as the build laid them out, icons rendered and fonts in place.
QString assetsPath();

} // namespace ui::test
