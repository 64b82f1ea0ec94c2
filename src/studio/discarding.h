#pragma once

class QString;
class QWidget;

namespace studio {

/// Asks whether changes may be lost; no unless the user says so.
bool mayDiscard(const QString& question, const QString& consequence, QWidget* parent);

} // namespace studio
