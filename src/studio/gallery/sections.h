// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

class QWidget;

/// Building blocks of the gallery page. Every function makes a widget for the caller to own.
namespace studio::gallery {

/// A titled card around a content that it takes over.
QWidget* section(const QString& title, QWidget* content);

/// A small caption in the theme's hint colour.
QWidget* caption(const QString& text);

/// Base widgets with their radii and borders, the focus line, and the generated images.
QWidget* foundation();

} // namespace studio::gallery
