// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// What journals cost: opening, playing, commenting and typing.

#include "bench.h"
#include "journal/JournalDocument.h"
#include "journal/JournalEditor.h"
#include "journal_text.h"

#include <QApplication>
#include <QKeyEvent>
#include <QStringList>
#include <QTabWidget>
#include <QTemporaryFile>
#include <QTextBlock>

using namespace Qt::StringLiterals;

namespace {

constexpr int many_lines = 1'000'000;

/** A tab widget on the screen, as the journal editor has one. */
class Tabs : public QTabWidget
{
public:
    Tabs() { resize(601, 498); }

    JournalDocument* add_document(JournalEditor* editor)
    {
        auto* document = new JournalDocument(editor, this, "JournalDocument");
        add(document);
        return document;
    }
    QPlainTextEdit* add_bare_edit()
    {
        auto* edit = new QPlainTextEdit(this);
        add(edit);
        return edit;
    }

private:
    void add(QPlainTextEdit* edit)
    {
        edit->setLineWrapMode(QPlainTextEdit::NoWrap);
        addTab(edit, u"Untitled"_s);
        show();
        QCoreApplication::processEvents();
    }
};

/** From the file to the picture; the text that it is compared with is in memory already. */
void opening(const QString& text)
{
    QTemporaryFile file;
    const QByteArray bytes = text.toUtf8();
    if (!file.open() || file.write(bytes) != bytes.size() || !file.flush())
        qFatal("the journal cannot be written");
    // An opened journal has one more line end than its file.
    const QString opened = text + u'\n';
    const auto check = [](const QPlainTextEdit* edit) {
        if (edit->blockCount() != many_lines + 1 || edit->document()->isModified())
            qFatal("the journal was not opened");
    };
    bench::compare(
        "opening a journal of 1,000,000 lines", 1.15,
        [&] {
            Tabs tabs;
            QPlainTextEdit* edit = tabs.add_bare_edit();
            const double seconds = bench::seconds([&] {
                edit->setPlainText(opened);
                tabs.repaint();
            });
            check(edit);
            return seconds;
        },
        [&] {
            JournalEditor editor;
            editor.show();
            QCoreApplication::processEvents();
            const double seconds = bench::seconds([&] {
                editor.open_file(file.fileName());
                editor.repaint();
            });
            check(editor.returnCurrentDocument());
            return seconds;
        },
        5);
}

void playing(JournalEditor* editor, const QString& text)
{
    Tabs tabs;
    JournalDocument* document = tabs.add_document(editor);
    document->setPlainText(text);
    qsizetype split = 0;
    qsizetype played = 0;
    QObject::connect(editor, &JournalEditor::processCommandsAsFile, document,
                     [played = &played](const QStringList& lines) { *played = lines.size(); });
    bench::compare(
        "gathering the lines of a journal of 1,000,000 lines", 1.5,
        [&] { return bench::seconds([&] { split = document->toPlainText().split(u'\n').size(); }); },
        [&] { return bench::seconds([&] { document->play_lines(0, -1); }); }, 7);
    if (split != many_lines || played != many_lines)
        qFatal("not all lines were played");
}

void commenting(JournalEditor* editor)
{
    constexpr int lines = 10'000;
    const QString text = bench::journal(lines);
    bench::compare(
        "commenting 10,000 lines", 1.5,
        [&] {
            Tabs tabs;
            QPlainTextEdit* edit = tabs.add_bare_edit();
            edit->setPlainText(text);
            return bench::seconds([&] {
                for (QTextBlock block = edit->document()->firstBlock(); block.isValid(); block = block.next())
                    QTextCursor(block).insertText(u"#"_s);
            });
        },
        [&] {
            Tabs tabs;
            JournalDocument* document = tabs.add_document(editor);
            document->setPlainText(text);
            const double seconds = bench::seconds([&] { document->comment_lines(0, -1); });
            if (document->toPlainText().count(u"\n#"_s) != lines - 1)
                qFatal("not all lines were commented");
            return seconds;
        },
        9);
}

void typing(JournalEditor* editor, const QString& text)
{
    constexpr int keys = 300;
    const auto type = [&](JournalDocument* document) {
        QTextCursor cursor(document->document()->findBlockByNumber(document->blockCount() / 2));
        cursor.movePosition(QTextCursor::EndOfBlock);
        document->setTextCursor(cursor);
        document->repaint();
        const int before = cursor.block().length();
        const double seconds = bench::seconds([&] {
            for (int key = 0; key < keys; ++key) {
                // A new line every tenth time, since that is what changes the numbers of the others.
                const bool new_line = key % 10 == 9;
                QKeyEvent press(QEvent::KeyPress, new_line ? Qt::Key_Return : Qt::Key_A, Qt::NoModifier,
                                new_line ? u"\r"_s : u"a"_s);
                QCoreApplication::sendEvent(document, &press);
                QCoreApplication::processEvents();
            }
        });
        if (cursor.block().length() == before && document->blockCount() % 10 == 0)
            qFatal("nothing was typed");
        return seconds / keys;
    };
    Tabs short_tabs;
    JournalDocument* short_document = short_tabs.add_document(editor);
    short_document->setPlainText(bench::journal(100));
    Tabs long_tabs;
    JournalDocument* long_document = long_tabs.add_document(editor);
    long_document->setPlainText(text);
    bench::compare(
        "a key pressed in 1,000,000 lines, against 100 lines", 1.5, [&] { return type(short_document); },
        [&] { return type(long_document); }, 9);
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    bench::ignore_platform_warnings();
    const QApplication application(argc, argv);
    JournalEditor editor;
    const QString text = bench::journal(many_lines);
    opening(text);
    playing(&editor, text);
    commenting(&editor);
    typing(&editor, text);
}
