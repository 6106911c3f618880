// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/application/console/ErrorPage.h"
#include "workbench/sdk/core/commands/Playback.h"

#include <QObject>
#include <QPointer>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

class Ostrel;

namespace fennar {

class ConsoleOwner;

/**
 * Plays what the user asks the window to play: the journal editor's documents and selections, and the files
 * of "Play Journal File".
 *
 * What the editor hands over is a snapshot: nothing that is done in the editor later changes the run. It
 * begins from the event loop, behind what the console runs and what waits there; until it has ended another
 * one is refused.
 *
 * A document is a Python script under the same rules as a file, see Playback::play(); a selection is one if
 * its document is. Messages number its lines as the editor does. If directories are changed for playback,
 * then to that of the document's file, for a selection, too; a document without a file changes nothing.
 *
 * It also shows the line in the editor that an error on the console's page of errors leads to.
 *
 * The workbench creates it for its main window and deletes it before that goes. GUI thread only.
 */
class JournalPlayer : public QObject
{
    Q_OBJECT

public:
    using RunCommand = std::function<void(const QString& command)>;

    /**
     * Connects with the journal editor and the menu of @p window. All of these outlive the player.
     *
     * @param run_command  runs a command on the console, in whatever mode that is.
     */
    JournalPlayer(Ostrel* window, ConsoleOwner* console, Playback& playback, const RunCommand& run_command);
    ~JournalPlayer() override;

private:
    struct Source;

    void play_document(const QStringList& lines);
    void play_selection(const QStringList& lines);
    void play(const QStringList& lines, const Source& source, const Playback::Origin& origin);
    void play_file();
    std::optional<JournalPlace> find_place(const QString& name) const;
    void show_place(const JournalPlace& place);

    Ostrel* mWindow;
    ConsoleOwner* mConsole;
    Playback& mPlayback;
    RunCommand mRunCommand;
    /** Alive while a snapshot waits or plays. */
    std::weak_ptr<const QStringList> mSnapshot;
    /** What that one is called in messages, its file if it has one, and the document that it was taken from.
     */
    QString mName;
    JournalPlace mOrigin;
};

} // namespace fennar
