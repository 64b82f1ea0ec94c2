// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/documents/UnsavedKeeper.h"

#include <MorrantUI/documents/FileTabs.h>
#include <MorrantUI/documents/questions.h>

#include <QElapsedTimer>
#include <QGuiApplication>

#include <algorithm>
#include <utility>

namespace {

constexpr qint64 kDelay = 5000; ///< ms from a change until it is kept
constexpr qint64 kShare = 50;   ///< times as long as it takes, at least

} // namespace

UnsavedKeeper::UnsavedKeeper(const QString& folder, FileTabs& documents, QObject* parent)
    : QObject(parent)
    , m_recovery(folder)
    , m_documents(&documents)
{
    m_wait.setSingleShot(true);
    m_wait.setInterval(kDelay);
    connect(&m_wait, &QTimer::timeout, this, &UnsavedKeeper::keepInTime);
    connect(&documents, &FileTabs::unsavedChanged, this, [this] {
        if (!m_wait.isActive()) { // who changes something all the time has it kept too
            m_wait.start();
        }
    });
}

UnsavedKeeper::~UnsavedKeeper() = default;

QString UnsavedKeeper::keep()
{
    if (!m_documents) {
        return {};
    }
    QStringList unwritable;
    bool isWhole = true;
    const auto documents = m_documents->unsaved(&unwritable, &isWhole);
    const QString error = m_recovery.keep(documents, isWhole);
    if (!error.isEmpty() || unwritable.isEmpty()) {
        return error;
    }
    return tr("Unsaved changes of “%1” cannot be kept: it cannot be written.")
        .arg(ui::shortTitle(unwritable.join(QStringLiteral(", "))));
}

void UnsavedKeeper::forget()
{
    m_wait.stop();
    m_recovery.forget();
}

/// Nothing that is under way is ended by it.
void UnsavedKeeper::keepInTime()
{
    if (QGuiApplication::mouseButtons() != Qt::NoButton) {
        m_wait.start();
        return;
    }
    QElapsedTimer taken;
    taken.start();
    const QString error = keep();
    m_wait.setInterval(static_cast<int>(std::max(kDelay, kShare * taken.elapsed())));
    if (!error.isEmpty()) {
        m_wait.start();
    }
    if (!std::exchange(m_hasFailed, !error.isEmpty()) && !error.isEmpty()) {
        Q_EMIT failed(error);
    }
}
