// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRect>
#include <QString>

class QLineEdit;

/// What stands behind the text of a field and is not part of it.
namespace ui {

/// A text without the suffix that was typed behind it.
QString withoutSuffix(const QString& text, const QString& suffix);

/// Keeps a field's text clear of the suffix.
void reserveSuffix(QLineEdit& field, const QString& suffix);

/// Paints it right behind the text, or at the field's end when that is too long.
void paintSuffix(QLineEdit& field, const QString& suffix);

} // namespace ui
