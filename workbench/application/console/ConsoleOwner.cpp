// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/console/ConsoleOwner.h"

#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "journal/JournalEditor.h"
#include "workbench/application/console/CompletionKey.h"
#include "workbench/application/console/HistorySearch.h"
#include "workbench/application/console/LineInterpreter.h"
#include "workbench/application/console/OutputDrag.h"

#include <QScrollBar>

#include <algorithm>
#include <exception>
#include <utility>

using namespace Qt::StringLiterals;

namespace fennar {

/** The owner mark of the pages in the journal editor. */
static constexpr auto import_owner = "workbench console";

ConsoleOwner::ConsoleOwner(CommandWindow* window, const QString& history_file)
    : mWindow(window),
      mPage(std::make_unique<CommandWidget>()),
      mErrors(std::make_unique<ErrorPage>()),
      mHistory(history_file),
      mCompletion(std::make_unique<CompletionKey>(
          mPage.get(), [this](const QString& line, qsizetype caret) { return complete(line, caret); })),
      mSearch(std::make_unique<HistorySearch>(mPage.get(), mHistory)),
      mOutputDrag(std::make_unique<OutputDrag>(mPage.get()))
{
    mPage->setObjectName(u"commandPage"_s);
    mPage->setAccessibleName(tr("Command"));
    mPage->setPrompt(u"Fennar>"_s);
    mErrors->setObjectName(u"errorPage"_s);
    mErrors->setAccessibleName(tr("Errors"));

    connect(window, &CommandWindow::readOnlyChanged, mPage.get(), &CommandWidget::setReadOnly);
    connect(window, &CommandWindow::readyForPrompt, mPage.get(), &CommandWidget::printPrompt);
    connect(window, &CommandWindow::dataToPrint, mPage.get(), &CommandWidget::printOutput);
    connect(window, &CommandWindow::commandToPrint, mPage.get(), &CommandWidget::addExternalCommand);
    connect(window, &CommandWindow::commandModeChanged, this, &ConsoleOwner::change_mode);

    connect(mPage.get(), &CommandWidget::commandEntered, this, &ConsoleOwner::run_entered);
    connect(mPage.get(), &CommandWidget::commandsEntered, this, &ConsoleOwner::run_pasted);
    connect(mPage.get(), &CommandWidget::contentsCleared, this, &ConsoleOwner::forget_pending);
    connect(mPage.get(), &CommandWidget::resetHistoryIndex, this, [this] { mHistory.reset_position(); });
    connect(mPage.get(), &CommandWidget::historyUpEvent, this,
            [this] { mPage->setCurrentCommand(mHistory.previous(mPage->currentCommand())); });
    connect(mPage.get(), &CommandWidget::historyDownEvent, this,
            [this] { mPage->setCurrentCommand(mHistory.next(mPage->currentCommand())); });

    // The window gives its font to each page. While nobody has chosen one, the page's own is the better one:
    // output in columns needs a typewriter font.
    if (window->get_font() == QFont())
        window->set_font(mPage->font());
    window->add_command_tab(tr("Command"), mPage.get());
    window->add_command_tab(tr("Errors"), mErrors.get());
    // The marks in a traceback stand below what they mark.
    mErrors->setFont(mPage->font());
}

ConsoleOwner::~ConsoleOwner()
{
    if (mEditor)
        mEditor->remove_import_items(import_owner);
    // What is removed stays the console's child, and would go with it once more.
    mWindow->remove_command_tab(mErrors.get());
    mErrors->setParent(nullptr);
    mWindow->remove_command_tab(mPage.get());
    mPage->setParent(nullptr);
}

void ConsoleOwner::set_interpreters(LineInterpreter* commands, LineInterpreter* python)
{
    mCommands = commands;
    mPython = python;
}

void ConsoleOwner::offer_pages(JournalEditor* editor)
{
    mEditor = editor;
    editor->add_import(import_owner, tr("&Commands of the Console"), mPage.get());
    editor->add_import(import_owner, tr("&Errors of the Console"), mErrors.get());
}

void ConsoleOwner::prompt()
{
    mWindow->print_prompt(mIncomplete, mIndent.toUtf8().constData());
    // The page follows what is printed, but no line that comes from elsewhere and prints nothing.
    QScrollBar* bar = mPage->verticalScrollBar();
    bar->setValue(bar->maximum());
}

void ConsoleOwner::run_line(const QString& line, const Then& then)
{
    run_soon({line, nullptr, then});
}

void ConsoleOwner::run_work(const QString& title, const std::function<void()>& work)
{
    run_soon({title, work});
}

LineCompletion ConsoleOwner::complete(const QString& line, qsizetype caret) const
{
    LineInterpreter* asked = interpreter();
    return asked && !mRunning ? asked->complete(line, caret) : LineCompletion{.start = caret};
}

void ConsoleOwner::run_soon(const Task& task)
{
    mWaiting.push_back(task);
    if (mRunning)
        return;
    mSearch->give_up();
    // A command that is not complete would take this line for its next one.
    const QString typed = mIncomplete ? QString() : mPage->currentCommand();
    if (!task.work)
        forget_pending();
    run_waiting();
    if (!typed.isEmpty() && !mIncomplete)
        mPage->setCurrentCommand(typed);
}

void ConsoleOwner::run_entered(const QString& line)
{
    // The page has opened a new line already. What cannot run now is shown again when its turn comes.
    if (mRunning) {
        mWaiting.push_back({line});
        return;
    }
    run_now({line});
    run_waiting();
}

void ConsoleOwner::run_pasted(const QStringList& lines)
{
    QStringList commands = lines;
    for (QString& command : commands) {
        if (command.endsWith(u'\r'))
            command.chop(1);
    }
    // A text that ends in a line end is complete; there is no empty command behind it.
    if (!commands.isEmpty() && commands.last().isEmpty())
        commands.removeLast();
    if (commands.isEmpty())
        return;
    if (!mRunning) {
        // Lines pasted into a half-typed command go where the caret is, as a single word would. They bring
        // their own indentation, so one that the prompt has given is no half-typed command.
        QString typed = mPage->currentCommand();
        if (typed == mIndent)
            typed.clear();
        const qsizetype caret = mPage->cursorIndex();
        commands.first() =
            typed.insert(caret < 0 ? typed.size() : std::min(caret, typed.size()), commands.first());
    }
    for (const QString& command : std::as_const(commands))
        mWaiting.push_back({command});
    if (!mRunning)
        run_waiting();
}

void ConsoleOwner::run_waiting()
{
    while (!mWaiting.empty()) {
        const Task task = mWaiting.front();
        mWaiting.pop_front();
        if (!task.work) {
            mPage->addExternalCommand(task.line);
        } else if (mIncomplete) {
            // The prompt for the command's next line is not for what comes now.
            mPage->addExternalCommand({});
            forget_pending();
        }
        run_now(task);
    }
}

void ConsoleOwner::run_now(const Task& task)
{
    const QString& line = task.line;
    if (!task.work && !mHistory.add(line) && !std::exchange(mHistoryBroken, true))
        report_error(tr("The command history cannot be written; it will be lost at the end.\n"));
    mErrorContext = task.work ? line : mPage->prompt() + line;
    set_running(true);
    LineInterpreter::Outcome outcome;
    QString failure;
    try {
        if (task.work)
            task.work();
        else if (LineInterpreter* running = interpreter())
            outcome = running->enter(line);
    } catch (const std::exception& exception) {
        failure = u"ERROR: %1\n"_s.arg(QString::fromUtf8(exception.what()));
    }
    // What has been printed until now reaches the page with this.
    set_running(false);
    if (!failure.isEmpty()) {
        outcome.failed = true;
        mWindow->print_data(failure);
        report_error(failure);
    }
    mErrors->end_error();
    mIncomplete = outcome.incomplete;
    mIndent = outcome.indent;
    prompt();
    if (task.then)
        task.then(!outcome.failed && !outcome.incomplete);
}

void ConsoleOwner::set_running(bool running)
{
    mRunning = running;
    if (mBusyHandler)
        mBusyHandler(running);
}

void ConsoleOwner::report_error(const QString& text)
{
    mErrors->add(text, std::exchange(mErrorContext, {}));
    if (!mErrors->isVisible())
        mWindow->set_tab_warning(mErrors.get());
}

void ConsoleOwner::change_mode(bool python)
{
    forget_pending();
    mPythonMode = python;
    if (mModeHandler)
        mModeHandler(python);
    mWindow->set_python_mode(python);
    // A click on the button has taken it.
    mWindow->set_focus();
}

void ConsoleOwner::forget_pending()
{
    mSearch->forget();
    if (LineInterpreter* pending = interpreter())
        pending->reset();
    mIncomplete = false;
    mIndent.clear();
}

} // namespace fennar
