// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QUrl>

namespace ui::links {

enum class Fault
{
    None,
    Empty,
    HasSpace,
    NotWeb, ///< does not begin with http:// or https://
    NoHost,
    Malformed
};

struct Checked
{
    QUrl url; ///< valid if there is no fault
    Fault fault = Fault::Empty;
};

/// Reads what should be a web address; space around it does not count.
Checked checkWebLink(const QString& text);

} // namespace ui::links
