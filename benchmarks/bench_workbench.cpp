// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// How long the user of the workbench waits: for many commands, for the end of work that has been cancelled,
// for the window's next turn while other processes work, for the command search, and for keystrokes in the
// journal editor.

#include "bench.h"

#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "journal/JournalEditor.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/console/ConsoleOwner.h"
#include "workbench/application/editor/DocumentMarks.h"
#include "workbench/application/search/CommandSearch.h"
#include "workbench/host/fennar_python/PythonRuntime.h"
#include "workbench/sdk/component/journal_documents.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/tokenize.h"
#include "workbench/sdk/core/scene/Scene.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QKeyEvent>
#include <QLineEdit>
#include <QProgressBar>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextLayout>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <functional>
#include <utility>
#include <vector>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

class Bench
{
public:
    Bench()
    {
        mWorkbench.leave_components_out();
        if (!mWorkbench.load())
            qFatal("there is no window");
        OstrelFileMenu::set_save_prompt(false);
        enter(u"load \"%1\""_s.arg(QStringLiteral(GRAPHICS)));
        enter(u"load \"%1\""_s.arg(QStringLiteral(GEOMETRY)));
        PythonRuntime::is_ready();
    }
    ~Bench() { mWorkbench.unload(); }
    Q_DISABLE_COPY_MOVE(Bench)

    /** All of them are linear in the text: what is not would take hours. */
    static void long_lines()
    {
        constexpr qsizetype size = 10'000'000;
        const QString quotes(size, u'\'');
        const std::pair<const char*, QString> lines[] = {
            {"words", u"x "_s.repeated(size / 2)},         {"one word", QString(size, u'x')},
            {"quoted", u'"' + QString(size, u'x') + u'"'}, {"empty quotes", u"\"\""_s.repeated(size / 2)},
            {"quotes, the last one open", quotes + u'\''}, {"variables without a name", QString(size, u'$')},
        };
        for (const auto& [what, line] : lines) {
            row(qPrintable(u"reading a line of 10,000,000 characters, %1"_s.arg(QLatin1StringView(what))),
                2000, [&line = line] { tokenize(line); });
        }
        CommandInterpreter& interpreter = Fennar::instance().interpreter();
        const QString comment(size, u'#');
        row("running a comment of 10,000,000 characters", 2000, [&] { interpreter.run(comment); });
        const QString empty(size, u'\n');
        row("running 10,000,000 empty lines", 5000, [&] { interpreter.run(empty); });
        const QString continued = u"\\\n"_s.repeated(size / 2) + u"new"_s;
        row("running a command continued on 5,000,000 lines", 5000, [&] { interpreter.run(continued); });
    }

    void many_commands()
    {
        const QString journal = write(u"many.jou"_s, QByteArray("set number 12.5 # x\n").repeated(200'000));
        row("a journal of 200,000 commands", 5000, [&] { enter(u"play \"%1\""_s.arg(journal)); });
        const QString continued =
            write(u"continued.jou"_s, "set text '1\\\n" + QByteArray("0\\\n").repeated(200'000) + "'\n");
        row("a command of 200,000 lines in a journal", 5000, [&] { enter(u"play \"%1\""_s.arg(continued)); });
        QByteArray solids = "new\n";
        for (int i = 0; i < 1000; ++i)
            solids += "brick 0.5 at " + QByteArray::number(i) + " 0 0\n";
        const QString model = write(u"solids.jou"_s, solids);
        row("1,000 solids made by a journal", 5000, [&] { enter(u"play \"%1\""_s.arg(model)); });
        enter(u"new"_s);
    }

    void cancelled_floods()
    {
        Fennar::instance().registry().add({.name = u"flood"_s,
                                           .owner = u"bench"_s,
                                           .perform = [](CommandCall& call, const CommandArguments&) {
                                               while (!call.interrupted())
                                                   call.print(u"line\n"_s);
                                           }});
        const QString journal = write(u"flood.jou"_s, QByteArray("echo line\n").repeated(3'000'000));
        row("a flood of a command's lines, cancelled", 500, cancelled(u"flood"_s, flooded()));
        row("a flood of Python's lines, cancelled", 500,
            cancelled(u"python 'exec(\"import itertools\\nfor i in itertools.count(): print(i)\")'"_s,
                      flooded()));
        row("a flood of a journal's lines, cancelled", 500,
            cancelled(u"play \"%1\""_s.arg(journal), flooded()));
        Fennar::instance().registry().remove_owner(u"bench"_s);
    }

    void meshing()
    {
        enter(u"brick 1"_s);
        const auto* bar = Ostrel::instance()->findChild<QProgressBar*>(u"mProgress"_s);
        row("a mesher at work, cancelled", 500,
            cancelled(u"mesh size 0.02"_s, [bar] { return bar->value() >= 35; }));
        row_of("the window's longest wait for a turn, meshing", 250,
               [&] { return longest_turn([&] { enter(u"mesh size 0.05"_s); }); });
        enter(u"new"_s);
    }

    void shapes()
    {
        row_of("the window's longest wait for a turn, 50 shapes to come", 500, [&] {
            const auto has_shapes = [] {
                const auto& items = Scene::instance().items();
                return std::all_of(items.begin(), items.end(),
                                   [](const auto& entry) { return entry.second.shape != nullptr; });
            };
            for (int i = 0; i < 50; ++i)
                enter(u"torus 2 0.5 at %1 0 0"_s.arg(6 * i));
            const double longest = longest_turn([&] {
                while (!has_shapes())
                    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            });
            enter(u"new"_s);
            return longest;
        });
    }

    void command_search()
    {
        constexpr int count = 2000;
        std::vector<QAction*> actions;
        actions.reserve(count);
        for (int i = 0; i < count; ++i)
            actions.push_back(new QAction(u"Entry &number %1 of a menu..."_s.arg(i), Ostrel::instance()));
        Ostrel::instance()->add_to_menu(u"&Many"_s, actions, "bench");
        QAction* opener = nullptr;
        for (QAction* action : Ostrel::instance()->journal_editor()->actions())
            opener = action->objectName() == u"findCommand" ? action : opener;
        const auto settle = [] {
            QCoreApplication::processEvents();
            Ostrel::instance()->repaint();
        };
        row("the command search opened, more than 2,000 entries", 50, [&] {
            delete Ostrel::instance()->findChild<CommandSearch*>();
            opener->trigger();
            settle();
        });
        auto* search = Ostrel::instance()->findChild<CommandSearch*>();
        auto* field = search ? search->findChild<QLineEdit*>() : nullptr;
        if (!field || search->findChild<QTreeView*>()->model()->rowCount() < 2000)
            qFatal("the search does not show all entries");
        row("the same, after a letter", 50, [&] {
            field->setText(field->text() == u"n" ? u"e"_s : u"n"_s);
            settle();
        });
        delete search;
        Ostrel::instance()->remove_menu_items("bench");
        qDeleteAll(actions);
    }

    /** The picture of a screen changes each 16 ms. In the longest documents that are colored. */
    static void typing_in_the_editor()
    {
        JournalEditor* editor = Ostrel::instance()->journal_editor();
        editor->show();
        const auto opened = [editor](DocumentMarks::Language language, QString text, const QString& line) {
            while (text.size() + line.size() < DocumentMarks::most_characters(language) - 10)
                text += line;
            editor->add_document(text);
            QCoreApplication::processEvents();
            QPlainTextEdit* document = current_journal(editor);
            QCoreApplication::processEvents();
            if (!DocumentMarks::find(document->document()) ||
                document->document()->lastBlock().previous().layout()->formats().isEmpty())
                qFatal("the document is not colored");
            return document;
        };
        const auto typed = [](QPlainTextEdit* document, const QString& text, int key = 0) {
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
            QCoreApplication::sendEvent(document, &press);
            document->viewport()->repaint();
            QCoreApplication::processEvents();
        };
        QPlainTextEdit* journal = opened(DocumentMarks::Language::Commands, {},
                                         u"brick 10.5 20 5 at 0 1 $z name part # one of them\n"_s);
        row("a keystroke in the longest journal that is colored", 16, [&] { typed(journal, u"x"_s); });
        row("all of that journal colored anew", 200,
            [&] { DocumentMarks::find(journal->document())->color_again(); });
        const QString command =
            u"unite a \\\n"_s + u"  solid1 solid2 some_other another \\\n"_s.repeated(98) + u"b\n"_s;
        QPlainTextEdit* one = opened(DocumentMarks::Language::Commands, command, u"set x 1\n"_s);
        one->moveCursor(QTextCursor::NextWord);
        row("a keystroke at the begin of a command of 100 lines", 16, [&] { typed(one, u"x"_s); });
        QPlainTextEdit* script = opened(DocumentMarks::Language::Python, u"#!python\n\"\"\n"_s,
                                        u"for name in fennar.names(1): print('a', name)\n"_s);
        script->moveCursor(QTextCursor::Down);
        script->moveCursor(QTextCursor::EndOfLine);
        // It makes all below a string, and back.
        row("a keystroke that opens or closes a string over the longest Python script that is colored", 16,
            [&] {
                const bool is_open = script->document()->findBlockByNumber(1).text().size() > 2;
                is_open ? typed(script, QChar(u'\b'), Qt::Key_Backspace) : typed(script, u"\""_s);
            });
        for (QPlainTextEdit* document : {journal, one, script})
            document->document()->setModified(false);
        editor->hide();
    }

private:
    using Condition = std::function<bool()>;

    void enter(const QString& line)
    {
        page()->clearToPrompt();
        mWorkbench.console()->run_line(line);
        QCoreApplication::processEvents();
        if (page()->toPlainText().contains(u"ERROR: "_s) && !page()->toPlainText().contains(u"cancelled"_s))
            qFatal("%s", qPrintable(page()->toPlainText().right(500)));
    }
    static CommandWidget* page() { return Ostrel::instance()->command_line()->findChild<CommandWidget*>(); }

    QString write(const QString& name, const QByteArray& content)
    {
        QFile file(mDirectory.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("the file cannot be written");
        return file.fileName();
    }

    /** One that holds as soon as much has been printed since now. */
    Condition flooded()
    {
        return [size = &mPrinted] { return *size > 100'000; };
    }

    /** Enters a line, cancels it by its button when that is worth while, and tells how long it goes on for,
     * in seconds. */
    std::function<double()> cancelled(const QString& line, const Condition& when)
    {
        return [this, line, when] {
            mPrinted = 0;
            QElapsedTimer since;
            QTimer timer;
            const auto listening =
                QObject::connect(Ostrel::instance()->command_line(), &CommandWindow::dataToPrint, &timer,
                                 [this](const QString& text) { mPrinted += text.size(); });
            QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
                auto* button = Ostrel::instance()->findChild<QToolButton*>(u"mCancel"_s);
                if (since.isValid() || !button->isEnabled() || !when())
                    return;
                since.start();
                button->click();
            });
            timer.start(0);
            mWorkbench.console()->run_line(line);
            QObject::disconnect(listening);
            if (!since.isValid())
                qFatal("not cancelled: %s", qPrintable(line));
            return double(since.nsecsElapsed()) * 1e-9;
        };
    }

    /** The longest time, in seconds, that the event loop is kept from its work while @p work is done. */
    template <class Work>
    static double longest_turn(Work&& work)
    {
        qint64 longest = 0;
        QElapsedTimer turn;
        QTimer tick;
        QObject::connect(&tick, &QTimer::timeout, &tick, [&] {
            longest = std::max(longest, turn.nsecsElapsed());
            turn.start();
        });
        turn.start();
        tick.start(0);
        work();
        return double(longest) * 1e-9;
    }

    /** Prints how long something takes, with an aim in milliseconds. */
    template <class Work>
    static void row(const char* what, double aim, Work&& work)
    {
        row_of(what, aim, [&] { return bench::seconds(work); });
    }
    /** Prints a time that is measured by @p time, in seconds. */
    template <class Time>
    static void row_of(const char* what, double aim, Time&& time)
    {
        std::vector<double> times;
        times.reserve(3);
        for (int round = 0; round < 3; ++round)
            times.push_back(time() * 1e3);
        const double median = bench::median(times);
        std::printf("%s\t%.1f ms\t\t%.1f ms\t%g ms\n", what, median, median, aim);
        std::fflush(stdout);
    }

    Workbench mWorkbench;
    QTemporaryDir mDirectory;
    qsizetype mPrinted = 0;
};

} // namespace

int main(int argc, char** argv)
{
    bench::ignore_platform_warnings();
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");

    Bench bench;
    Bench::long_lines();
    bench.many_commands();
    bench.cancelled_floods();
    bench.meshing();
    bench.shapes();
    bench.command_search();
    Bench::typing_in_the_editor();
    return 0;
}
