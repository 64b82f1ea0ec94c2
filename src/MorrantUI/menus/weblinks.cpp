// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/weblinks.h"

#include <QStringList>

#include <algorithm>

namespace ui::links {

namespace {

bool isSpaceOrControl(QChar c)
{
    return c.isSpace() || c.category() == QChar::Other_Control;
}

/// What follows "http://" or "https://"; null for any other text.
QString afterScheme(const QString& text)
{
    for (const QString& scheme : {QStringLiteral("https://"), QStringLiteral("http://")}) {
        if (text.startsWith(scheme, Qt::CaseInsensitive)) {
            const QString rest = text.mid(scheme.size());
            return rest.isNull() ? QStringLiteral("") : rest;
        }
    }
    return {};
}

/// Every part between dots has something in it; a single dot may end the name.
bool isHost(const QString& host)
{
    QStringList parts = host.split(u'.');
    if (parts.size() > 1 && parts.last().isEmpty()) {
        parts.removeLast();
    }
    return std::none_of(
        parts.begin(), parts.end(), [](const QString& part) { return part.isEmpty(); });
}

} // namespace

Checked checkWebLink(const QString& text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty()) {
        return {{}, Fault::Empty};
    }
    if (std::any_of(trimmed.begin(), trimmed.end(), isSpaceOrControl)) {
        return {{}, Fault::HasSpace};
    }
    const QString rest = afterScheme(trimmed);
    if (rest.isNull()) {
        return {{}, Fault::NotWeb};
    }
    if (rest.isEmpty() || QStringLiteral("/?#").contains(rest.front())) {
        return {{}, Fault::NoHost};
    }
    const QUrl url(trimmed);
    if (!url.isValid() || !isHost(url.host())) {
        return {{}, Fault::Malformed};
    }
    return {url, Fault::None};
}

} // namespace ui::links
