// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QList>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QWidget>

class NoticeCard;

namespace ui {

inline constexpr int kMostNotices = 4; ///< at a time, in a NoticeStack; the oldest gives way

} // namespace ui

/// Notices to the user that float over the upper edge of a widget's content, the latest on top, and
/// take no room and no focus from it.
///
/// Each has a button that closes it, and may go by itself; while the pointer is over it, it waits.
/// Screen readers are told of it as an alert. Texts are plain and may be selected.
class MORRANT_UI_EXPORT NoticeStack : public QObject
{
    Q_OBJECT

public:
    enum class Kind
    {
        Information,
        Warning,
        Error,
    };
    Q_ENUM(Kind)

    /// @param host over whose content notices float; owns this object, and must not be null
    explicit NoticeStack(QWidget* host);
    ~NoticeStack() override;

    /// Shows a notice. One with the same text and kind that is still there comes to the top instead
    /// and waits anew.
    /// @param milliseconds until it goes by itself; 0 or less: until it is dismissed
    /// @return its number, for dismiss(); 0 for a text of nothing but space, which shows nothing
    int add(const QString& text, Kind kind = Kind::Warning, int milliseconds = 0);

    /// Takes a notice away; nothing happens if it has gone.
    void dismiss(int notice);

    /// What is to be read, the latest first.
    QStringList texts() const;
    bool isEmpty() const { return m_cards.isEmpty(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

public Q_SLOTS:
    void dismissLatest(); ///< nothing without one
    void dismissAll();    ///< dismissed() for each

Q_SIGNALS:
    /// A notice has gone, by the user, by time, by dismiss(), or for later ones.
    void dismissed(int notice);

private:
    void arrange();

    QWidget* m_host;
    QList<NoticeCard*> m_cards; ///< the latest first; children of the host
    int m_latest = 0;
};
