// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QStringList>

namespace ui::test {

/// Records every line that reaches the default logger, at any level, as "level: text", for example
/// "debug: File doesn't exist: icons:none.png". Installed once by the test program's main.
class LogSink
{
public:
    static void install();

    /// The recorded lines, oldest first; the record is empty afterwards.
    static QStringList take();
};

} // namespace ui::test
