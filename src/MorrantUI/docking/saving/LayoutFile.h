// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QJsonObject>
#include <QObject>
#include <QPointer>
#include <QString>

class LayoutWatch;
class Workspace;

/// Keeps the arrangement of a workspace between runs, with place, size and state of the window
/// around it and with values of the host's own. The file is written whenever something of that has
/// changed and come to rest, as a whole or not at all; a program that is killed has lost half a
/// second. Of several runs with one file the last to write it decides on all that is in it.
class MORRANT_UI_EXPORT LayoutFile : public QObject
{
    Q_OBJECT

public:
    /// Nothing is arranged, and nothing written, before restore(). gMainWindow is the workspace's
    /// root by now.
    /// @param path in a folder that is made with the file
    /// @param window which the workspace lies in; owns this
    LayoutFile(const QString& path, Workspace& workspace, QWidget& window);
    ~LayoutFile() override;

    /// Arranges everything as the file has it, when all panels are there and before the window is
    /// shown. Where there is no file, the window becomes no larger than its screen. A layout that
    /// cannot be used, as one of a newer program, leaves everything as it is but for the host's
    /// values; it is told by failed(), and a copy stays beside it under the ending ".bad". A file
    /// that cannot be read, or copied there, is never written by this run.
    void restore();
    /// Writes the file now. For an end of the program, about which the panels are not asked.
    void save();

    /// What the file has under a key, or what was set since.
    QJsonValue value(const QString& key) const { return m_values[key]; }
    /// Keeps a value, too; if it is another one, the file is written when all has come to rest. One
    /// that is set before restore() stands instead of the file's. The keys of layouts, and
    /// "window", are ignored.
    void setValue(const QString& key, const QJsonValue& value);

Q_SIGNALS:
    /// One sentence for the user. That the file cannot be written is told once, until it can.
    void failed(const QString& sentence);

private:
    void fitScreen();
    void takeValues(const QJsonObject& saved);

    QString m_path;
    QPointer<Workspace> m_workspace;
    QWidget& m_window;
    LayoutWatch* m_watch;
    QJsonObject m_values;    ///< the host's
    bool m_mayWrite = false; ///< what the file holds has been read
    bool m_hasFailed = false;
};
