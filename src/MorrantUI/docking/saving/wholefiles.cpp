// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/saving/wholefiles.h"

#include <QRegularExpression>
#include <QSaveFile>

namespace ui {

QString writeWhole(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    const bool isWritten =
        file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
    return isWritten ? QString() : file.errorString();
}

bool isDeviceName(const QString& name)
{
    static const QRegularExpression devices(
        QStringLiteral("^(con|prn|aux|nul|conin\\$|conout\\$|(com|lpt)[0-9¹²³])\\s*(\\.|$)"),
        QRegularExpression::CaseInsensitiveOption);
    return devices.match(name).hasMatch();
}

} // namespace ui
