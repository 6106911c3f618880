// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/playback/JournalPlayer.h"

#include "files/OstrelFileMenu.h"
#include "frame/Alive.h"
#include "frame/Ostrel.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelToolsMenu.h"
#include "workbench/application/console/ConsoleOwner.h"
#include "workbench/sdk/component/journal_documents.h"
#include "workbench/sdk/component/modal_dialogs.h"
#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/tokenize.h"

#include <QAction>
#include <QFileInfo>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTextBlock>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

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

/** The tab that holds the file; -1 if none does. */
int tab_of_file(const QTabWidget* tabs, const QString& file)
{
    for (int i = 0; i < tabs->count(); ++i) {
        const QString path = journal_file(tabs->widget(i));
        if (!path.isEmpty() && QFileInfo(path) == QFileInfo(file))
            return i;
    }
    return -1;
}

/** Selects the line, or the last one if there are not so many, and brings it to the middle. */
void mark_line(QPlainTextEdit* document, int line)
{
    QTextBlock block = document->document()->findBlockByNumber(line - 1);
    if (!block.isValid())
        block = document->document()->lastBlock();
    QTextCursor cursor(block);
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    document->setTextCursor(cursor);
    document->centerCursor();
}

/** Whether the file belongs to Python's own library, where no error of the user's can be mended. */
bool is_of_python(const QString& file)
{
    static const QRegularExpression library(u"/lib(?:64)?/python\\d[\\d.]*/"_s);
    return file.contains(library);
}

} // namespace

/** The editor's current document as it is when lines of it are played. */
struct JournalPlayer::Source
{
    explicit Source(const JournalEditor* editor)
        : document(current_journal(editor)), file(journal_file(document))
    {
        python = file.endsWith(".py"_L1);
        if (!document)
            return;
        saved = !file.isEmpty() && !document->document()->isModified();
        python = python || Playback::is_python(document->toPlainText());
        const int start = document->textCursor().selectionStart();
        selected_line = document->document()->findBlock(start).blockNumber() + 1;
    }

    QString name() const { return file.isEmpty() ? JournalPlayer::tr("Untitled") : file; }
    QString directory() const { return file.isEmpty() ? QString() : QFileInfo(file).absolutePath(); }

    QPlainTextEdit* document;
    QString file;
    /** Whether the file holds the same text. */
    bool saved = false;
    bool python = false;
    /** The line that the selection begins in, from 1. */
    int selected_line = 1;
};

JournalPlayer::JournalPlayer(Ostrel* window, ConsoleOwner* console, Playback& playback,
                             const RunCommand& run_command)
    : mWindow(window), mConsole(console), mPlayback(playback), mRunCommand(run_command)
{
    const JournalEditor* editor = window->journal_editor();
    connect(editor, &JournalEditor::processCommandsAsFile, this, &JournalPlayer::play_document);
    connect(editor, &JournalEditor::processCommands, this, &JournalPlayer::play_selection);
    connect(window->tools_menu()->play_action(), &QAction::triggered, this, &JournalPlayer::play_file);
    ErrorPage* errors = console->error_page();
    errors->set_finder([this](const QString& name) { return find_place(name); });
    connect(errors, &ErrorPage::place_activated, this, &JournalPlayer::show_place);
}

JournalPlayer::~JournalPlayer()
{
    mConsole->error_page()->set_finder(nullptr);
}

void JournalPlayer::play_document(const QStringList& lines)
{
    const Source source(mWindow->journal_editor());
    Playback::Origin origin{1, source.python, false, source.directory(), &go_on_in_editor};
    if (source.saved) {
        origin.go_on = [again = u"play "_s + quote_word(source.file)](qsizetype line) {
            return again + u' ' + QString::number(line);
        };
    }
    play(without_surplus(lines), source, origin);
}

void JournalPlayer::play_selection(const QStringList& lines)
{
    const Source source(mWindow->journal_editor());
    play(without_surplus(lines), source,
         {source.selected_line, source.python, true, source.directory(), &go_on_in_editor});
}

void JournalPlayer::play(const QStringList& lines, const Source& source, const Playback::Origin& origin)
{
    const QString name = source.name();
    if (!mSnapshot.expired()) {
        Fennar::instance().interpreter().print_error(
            tr("ERROR: a journal of the editor is being played; %1 is not\n").arg(name));
        return;
    }
    const auto snapshot = std::make_shared<const QStringList>(lines);
    mSnapshot = snapshot;
    mName = name;
    mOrigin = {source.file, source.document, 1};
    // From the event loop: the run may close the document that still handles the key that has started it.
    QTimer::singleShot(0, this, [this, snapshot, name, origin] {
        mConsole->run_work(tr("Playing %1").arg(name),
                           [this, snapshot, name, origin] { mPlayback.play_lines(*snapshot, name, origin); });
    });
}

void JournalPlayer::play_file()
{
    const Alive alive(this);
    const QString file = modal_dialogs::ask_open_file(mWindow, tr("Play Journal File"), OstrelFileMenu::mPath,
                                                      tr("Journal Files (*.jou *.py);;All Files (*.*)"));
    if (file.isEmpty() || !alive)
        return;
    OstrelFileMenu::set_path_from_file(file);
    mRunCommand(u"play "_s + quote_word(file));
}

std::optional<JournalPlace> JournalPlayer::find_place(const QString& name) const
{
    if (!mSnapshot.expired() && name == mName)
        return mOrigin;
    QString file = mPlayback.file_in_play(name);
    if (file.isEmpty() && QFileInfo(name).isFile())
        file = QFileInfo(name).absoluteFilePath();
    if (file.isEmpty() || is_of_python(file))
        return std::nullopt;
    return JournalPlace{file, nullptr, 1};
}

void JournalPlayer::show_place(const JournalPlace& place)
{
    JournalEditor* editor = mWindow->journal_editor();
    QTabWidget* tabs = journal_tabs(editor);
    int tab = tabs->indexOf(place.document);
    if (tab < 0 && !place.file.isEmpty())
        tab = tab_of_file(tabs, place.file);
    if (tab >= 0) {
        tabs->setCurrentIndex(tab);
    } else if (place.file.isEmpty()) {
        modal_dialogs::show_message(QMessageBox::Information, mWindow, tr("Show Error"),
                                    tr("The document that was played has been closed and is in no file."),
                                    QMessageBox::Ok);
        return;
    } else {
        editor->open_file(place.file);
        tab = tab_of_file(tabs, place.file);
        // The editor has told why.
        if (tab < 0)
            return;
        tabs->setCurrentIndex(tab);
    }
    editor->show();
    editor->setWindowState(editor->windowState() & ~Qt::WindowMinimized);
    editor->raise();
    editor->activateWindow();
    if (auto* document = qobject_cast<QPlainTextEdit*>(tabs->currentWidget())) {
        document->setFocus(Qt::OtherFocusReason);
        mark_line(document, place.line);
    }
}

} // namespace fennar
