#pragma once

#include <QStringList>
#include <QtCore/qglobal.h>

#ifdef FAKETOAST_BUILD
#define FAKETOAST_EXPORT Q_DECL_EXPORT
#else
#define FAKETOAST_EXPORT Q_DECL_IMPORT
#endif

/// A notification platform of our own: the three runtime classes of toasts, found through the
/// registry like the system's. It records what is called, refuses what the system refuses
/// (documents that do not parse, pointers of the wrong interface, an unnamed program) and fails
/// where it is told to.
namespace faketoast {

/// The runtime classes in this library.
FAKETOAST_EXPORT QStringList classNames();

/// Forgets all records. From now on the call of this name, as calls() gives it, fails.
FAKETOAST_EXPORT void reset(const QString& failingCall = {});

/// What was called, in order.
FAKETOAST_EXPORT QStringList calls();

/// The identifier that the last notifier was made for.
FAKETOAST_EXPORT QString applicationId();

/// The lines of text of all toasts shown.
FAKETOAST_EXPORT QStringList shownTexts();

/// Objects of this library that somebody still holds.
FAKETOAST_EXPORT int liveObjects();

} // namespace faketoast
