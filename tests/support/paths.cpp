// SPDX-License-Identifier: Apache-2.0
#include "support/paths.h"

namespace ui::test {

// The only file that knows absolute paths, so that a compiler cache serves all others in any clone.

QString dataPath(const QString& folder)
{
    return QStringLiteral(MORRANT_TESTS_DIR "/%1/data").arg(folder);
}

QString assetsPath()
{
    return QStringLiteral(MORRANT_ASSETS_DIR);
}

} // namespace ui::test
