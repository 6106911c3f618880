// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/ConsoleImporter.h"
#include "hostdouble/HostDouble.h"
#include "journal/JournalDocument.h"
#include "journal/JournalEditor.h"
#include "page.h"
#include "support/TestCase.h"

#include <QAction>
#include <QMetaMethod>
#include <QPlainTextEdit>
#include <QTest>

using namespace Qt::StringLiterals;

class TstConsoleImporter : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    void names_and_action_come_from_the_label();
    void owner_name_is_kept();
    void one_slot_is_known_by_name();
    void command_page_yields_its_commands_data();
    void command_page_yields_its_commands();
    void text_page_yields_its_text_data();
    void text_page_yields_its_text();
    void without_a_page_nothing_happens();
    void without_an_editor_nothing_happens();
    void page_is_left_as_it_is();
    void imported_commands_are_unsaved();
};

void TstConsoleImporter::set_up()
{
    HostDouble::instance().reset();
}

void TstConsoleImporter::names_and_action_come_from_the_label()
{
    JournalEditor editor;
    const ConsoleImporter importer(&editor, u"Command &Line"_s);
    QCOMPARE(importer.parent(), &editor);
    QCOMPARE(importer.objectName(), u"Command &Line"_s);
    QCOMPARE(importer.action()->text(), u"Command &Line"_s);
    QCOMPARE(importer.action()->objectName(), u"JournalImportAction"_s);
    QCOMPARE(importer.action()->parent(), &importer);
}

void TstConsoleImporter::owner_name_is_kept()
{
    JournalEditor editor;
    ConsoleImporter importer(&editor, u"A"_s);
    QCOMPARE(importer.owner_name(), QString());
    importer.set_owner_name(u"geometry"_s);
    QCOMPARE(importer.owner_name(), u"geometry"_s);
}

void TstConsoleImporter::one_slot_is_known_by_name()
{
    const QMetaObject& meta = ConsoleImporter::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
    QCOMPARE(meta.method(meta.methodOffset()).methodSignature(), "importCommands()");
    QCOMPARE(meta.method(meta.methodOffset()).methodType(), QMetaMethod::Slot);
}

void TstConsoleImporter::command_page_yields_its_commands_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("text");
    QTest::newRow("output between commands")
        << u"$ make a plate\nmade\nwarned\n$ mesh it\ndone\n$ save"_s << u"make a plate\nmesh it\nsave"_s;
    QTest::newRow("empty prompt at the end") << u"$ make\nmade\n$ "_s << u"make\n"_s;
    QTest::newRow("only output") << u"hello\nthere\n"_s << u""_s;
    QTest::newRow("nothing") << u""_s << u""_s;
    QTest::newRow("empty commands") << u"$ \n$ \n$ a"_s << u"\n\na"_s;
}

void TstConsoleImporter::command_page_yields_its_commands()
{
    QFETCH(const QString, page);
    QFETCH(const QString, text);
    JournalEditor editor;
    Page source;
    // An empty continuation prompt would make every line a command.
    source.setPrompt(u"$ "_s);
    source.set_state(page);
    ConsoleImporter importer(&editor, u"A"_s);
    importer.set_source(&source);
    importer.action()->trigger();
    QCOMPARE(editor.returnCurrentDocument()->toPlainText(), text);
}

void TstConsoleImporter::text_page_yields_its_text_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("lines") << u"one\n$ two\n\n  three \n"_s;
    QTest::newRow("empty") << u""_s;
    QTest::newRow("not Latin") << u"Журнал\n日誌 😀"_s;
}

void TstConsoleImporter::text_page_yields_its_text()
{
    QFETCH(const QString, text);
    JournalEditor editor;
    QPlainTextEdit source(text);
    ConsoleImporter importer(&editor, u"A"_s);
    importer.set_source(&source);
    importer.action()->trigger();
    QCOMPARE(editor.returnCurrentDocument()->toPlainText(), text);
}

void TstConsoleImporter::without_a_page_nothing_happens()
{
    JournalEditor editor;
    editor.add_document(u"here"_s);
    const JournalDocument* const doc = editor.returnCurrentDocument();
    ConsoleImporter importer(&editor, u"A"_s);
    importer.action()->trigger();
    QCOMPARE(editor.returnCurrentDocument(), doc);
    QPlainTextEdit source(u"text"_s);
    importer.set_source(&source);
    importer.set_source(nullptr);
    importer.action()->trigger();
    QCOMPARE(editor.returnCurrentDocument(), doc);
}

void TstConsoleImporter::without_an_editor_nothing_happens()
{
    QPlainTextEdit source(u"text"_s);
    ConsoleImporter importer(nullptr, u"A"_s);
    importer.set_source(&source);
    importer.action()->trigger();
    QCOMPARE(source.toPlainText(), u"text"_s);
    QVERIFY(!importer.parent());
}

void TstConsoleImporter::page_is_left_as_it_is()
{
    JournalEditor editor;
    Page source;
    source.set_state(u"$ make\nmade\n$ me|sh"_s);
    ConsoleImporter importer(&editor, u"A"_s);
    importer.set_source(&source);
    source.take_signals();
    importer.importCommands();
    QCOMPARE(source.state(), u"$ make\nmade\n$ me|sh"_s);
    QCOMPARE(source.take_signals(), QStringList());
}

void TstConsoleImporter::imported_commands_are_unsaved()
{
    JournalEditor editor;
    Page source;
    source.setPrompt(u"$ "_s);
    source.set_state(u"$ make\n$ "_s);
    ConsoleImporter importer(&editor, u"A"_s);
    importer.set_source(&source);
    importer.importCommands();
    QVERIFY(editor.returnCurrentDocument()->document()->isModified());
    // A page with nothing typed leaves nothing to save.
    Page empty;
    empty.setPrompt(u"$ "_s);
    empty.set_state(u"$ "_s);
    importer.set_source(&empty);
    importer.importCommands();
    QVERIFY(!editor.returnCurrentDocument()->document()->isModified());
}

OSTREL_TEST(TstConsoleImporter)
#include "tst_consoleimporter.moc"
