// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// What a console page costs over a bare text edit.

#include "bench.h"
#include "console/CommandWidget.h"

#include <QApplication>
#include <QTextBlock>

using namespace Qt::StringLiterals;

namespace {

/** A bare edit that looks and holds as much as @p page. */
void make_alike(QPlainTextEdit& edit, const CommandWidget& page)
{
    edit.setFont(page.font());
    edit.setWordWrapMode(page.wordWrapMode());
    edit.document()->setMaximumBlockCount(page.document()->maximumBlockCount());
    edit.setPlainText(page.toPlainText());
    edit.moveCursor(QTextCursor::End);
}

void show(QWidget& window)
{
    window.resize(800, 300);
    window.show();
    QCoreApplication::processEvents();
}

void single_lines()
{
    constexpr int outputs = 10'000;
    const QString line = u"Meshing volume 17: 1250 of 20000 elements\n"_s;
    bench::compare(
        "10,000 outputs of one line, repainted", 1.1,
        [&] {
            CommandWidget page;
            page.printPrompt();
            QPlainTextEdit edit;
            make_alike(edit, page);
            show(edit);
            return bench::seconds([&] {
                for (int i = 0; i < outputs; ++i) {
                    QTextCursor(edit.document()->lastBlock()).insertText(line);
                    edit.repaint();
                }
            });
        },
        [&] {
            CommandWidget page;
            page.printPrompt();
            show(page);
            return bench::seconds([&] {
                for (int i = 0; i < outputs; ++i) {
                    page.printOutput(line);
                    page.repaint();
                }
            });
        },
        3);
}

void flood()
{
    QString text;
    for (int line = 0; line < 200'000; ++line)
        text += u"Node %1 at 0.125, 0.250, 0.500\n"_s.arg(line);
    bench::compare(
        "one output of 200,000 lines, 1,000 kept", 0.05,
        [&] {
            CommandWidget page;
            page.printPrompt();
            QPlainTextEdit edit;
            make_alike(edit, page);
            show(edit);
            return bench::seconds([&] {
                QTextCursor(edit.document()->lastBlock()).insertText(text);
                edit.repaint();
            });
        },
        [&] {
            CommandWidget page;
            page.printPrompt();
            show(page);
            return bench::seconds([&] {
                page.printOutput(text);
                page.repaint();
            });
        },
        1);
}

void open_lines()
{
    constexpr int outputs = 200'000;
    // Dots of a progress display. Every fiftieth begins a new line: a line that is laid out again for each
    // dot costs more the longer it gets, in the bare edit as well.
    const QString dot = u"."_s;
    const QString next = u"\n."_s;
    bench::compare(
        "200,000 outputs without a final newline", 1.1,
        [&] {
            CommandWidget page;
            page.printPrompt();
            page.printOutput(dot);
            QPlainTextEdit edit;
            make_alike(edit, page);
            show(edit);
            return bench::seconds([&] {
                for (int i = 0; i < outputs; ++i) {
                    QTextCursor cursor(edit.document()->lastBlock());
                    cursor.setPosition(cursor.position() - 1);
                    cursor.insertText(i % 50 == 0 ? next : dot);
                }
            });
        },
        [&] {
            CommandWidget page;
            page.printPrompt();
            page.printOutput(dot);
            show(page);
            return bench::seconds([&] {
                for (int i = 0; i < outputs; ++i)
                    page.printOutput(i % 50 == 0 ? next : dot);
            });
        },
        3);
}

void commands()
{
    constexpr int blocks = 100'000;
    CommandWidget page;
    page.setPrompt(u"$ "_s, u"> "_s);
    page.document()->setMaximumBlockCount(0);
    QString text;
    for (int i = 0; i < blocks - 1; ++i)
        text +=
            i % 10 == 0 ? u"$ volume %1 size 0.5\n"_s.arg(i) : u"Matched interval %1 of curve 12\n"_s.arg(i);
    page.printOutput(text);
    page.printPrompt();
    qsizetype characters = 0;
    qsizetype found = 0;
    bench::compare(
        "commands of a page of 100,000 lines", 2,
        [&] { return bench::seconds([&] { characters = page.toPlainText().size(); }); },
        [&] { return bench::seconds([&] { found = page.getCommands().size(); }); }, 15);
    if (characters != text.size() + 2 || found != blocks / 10 + 1)
        qFatal("the page was not read as it was written");
}

} // namespace

int main(int argc, char** argv)
{
    bench::ignore_platform_warnings();
    const QApplication application(argc, argv);
    single_lines();
    flood();
    open_lines();
    commands();
}
