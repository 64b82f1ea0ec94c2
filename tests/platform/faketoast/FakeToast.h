// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QStringList>
#include <QtCore/qglobal.h>

#ifdef FAKETOAST_BUILD
#define FAKETOAST_EXPORT Q_DECL_EXPORT
#else
#define FAKETOAST_EXPORT Q_DECL_IMPORT
#endif

/// A notification platform of our own: the three runtime classes of toasts, found through the
/// registry like the system's. It takes notes of what is called, refuses what the system refuses
/// (documents that do not parse, pointers of the wrong interface, an unnamed program) and fails
/// where it is told to.
namespace faketoast {

struct Notes
{
    QString failingCall;   ///< the call of this name, as in `calls`, fails
    QStringList calls;     ///< what was called, in order
    QString applicationId; ///< that the last notifier was made for
    QStringList shownTexts;
};

FAKETOAST_EXPORT Notes& notes();

/// The runtime classes in this library.
FAKETOAST_EXPORT QStringList classNames();

/// Objects of this library that somebody still holds.
FAKETOAST_EXPORT int liveObjects();

} // namespace faketoast
