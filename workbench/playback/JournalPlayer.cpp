// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/playback/JournalPlayer.h"

#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "host/ostrelfw/Broker.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelToolsMenu.h"
#include "workbench/console/ConsoleOwner.h"
#include "workbench/fennari19/tokenize.h"

#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTextBlock>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/** The path of the file of the editor's current document. The editor tells it by nothing but its title. */
QString current_file(const JournalEditor* editor)
{
    const QString rest = u" - "_s + JournalEditor::tr("Journal Editor");
    const QString title = editor->windowTitle();
    return title.endsWith(rest) ? title.chopped(rest.size()) : QString();
}

/** The editor's current document as it is when lines of it are played. */
struct Source
{
    explicit Source(const JournalEditor* editor) : file(current_file(editor))
    {
        python = file.endsWith(".py"_L1);
        // The class of documents is the shell's own.
        const auto* tabs = editor->findChild<QTabWidget*>(u"mDocTab"_s);
        const auto* document = tabs ? qobject_cast<QPlainTextEdit*>(tabs->currentWidget()) : nullptr;
        if (!document)
            return;
        saved = !file.isEmpty() && !document->document()->isModified();
        python = python || Playback::is_python(document->toPlainText());
        const int start = document->textCursor().selectionStart();
        selected_line = document->document()->findBlock(start).blockNumber() + 1;
    }

    QString name() const { return file.isEmpty() ? JournalPlayer::tr("Untitled") : file; }
    QString directory() const { return file.isEmpty() ? QString() : QFileInfo(file).absolutePath(); }

    QString file;
    /** Whether the file holds the same text. */
    bool saved = false;
    bool python = false;
    /** The line that the selection begins in, from 1. */
    int selected_line = 1;
};

/** The editor puts an empty element ahead of lines that do not begin with the document's first, or if that is
 * empty. */
QStringList without_surplus(QStringList lines)
{
    if (lines.size() > 1 && lines.first().isEmpty())
        lines.removeFirst();
    return lines;
}

QString go_on_in_editor(qsizetype line)
{
    return JournalPlayer::tr("select from line %1 on in the journal editor and press Ctrl+F5").arg(line);
}

} // namespace

JournalPlayer::JournalPlayer(Ostrel* window, ConsoleOwner* console, Playback& playback,
                             const RunCommand& run_command)
    : mWindow(window), mConsole(console), mPlayback(playback), mRunCommand(run_command)
{
    const JournalEditor* editor = window->journal_editor();
    connect(editor, &JournalEditor::processCommandsAsFile, this, &JournalPlayer::play_document);
    connect(editor, &JournalEditor::processCommands, this, &JournalPlayer::play_selection);
    connect(window->tools_menu()->play_action(), &QAction::triggered, this, &JournalPlayer::play_file);
}

JournalPlayer::~JournalPlayer() = default;

void JournalPlayer::play_document(const QStringList& lines)
{
    const Source source(mWindow->journal_editor());
    Playback::Origin origin{1, source.python, source.directory(), &go_on_in_editor};
    if (source.saved) {
        origin.go_on = [again = u"play "_s + quote_word(source.file)](qsizetype line) {
            return again + u' ' + QString::number(line);
        };
    }
    play(without_surplus(lines), source.name(), origin);
}

void JournalPlayer::play_selection(const QStringList& lines)
{
    const Source source(mWindow->journal_editor());
    play(without_surplus(lines), source.name(),
         {source.selected_line, source.python, source.directory(), &go_on_in_editor});
}

void JournalPlayer::play(const QStringList& lines, const QString& name, const Playback::Origin& origin)
{
    if (!mSnapshot.expired()) {
        Broker::command << tr("ERROR: a journal of the editor is being played; %1 is not\n").arg(name);
        return;
    }
    const auto snapshot = std::make_shared<const QStringList>(lines);
    mSnapshot = snapshot;
    // From the event loop: the run may close the document that still handles the key that has started it.
    QTimer::singleShot(0, this, [this, snapshot, name, origin] {
        mConsole->run_work(tr("Playing %1").arg(name),
                           [this, snapshot, name, origin] { mPlayback.play_lines(*snapshot, name, origin); });
    });
}

void JournalPlayer::play_file()
{
    const QString file = QFileDialog::getOpenFileName(mWindow, tr("Play Journal File"), OstrelFileMenu::mPath,
                                                      tr("Journal Files (*.jou *.py);;All Files (*.*)"));
    if (file.isEmpty())
        return;
    OstrelFileMenu::set_path_from_file(file);
    mRunCommand(u"play "_s + quote_word(file));
}
