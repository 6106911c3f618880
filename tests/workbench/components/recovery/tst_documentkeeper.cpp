// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "journal/JournalDocument.h"
#include "journal/JournalEditor.h"
#include "journal/editor_helpers.h"
#include "support/TestCase.h"
#include "support/random_seed.h"
#include "workbench/components/recovery/DocumentKeeper.h"
#include "workbench/components/recovery/RecoveryFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace fennar::recovery;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class TstDocumentKeeper : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void modified_documents_are_kept();
    void document_with_a_file_is_kept_with_its_whole_name();
    void names_are_found_without_a_trace_in_the_window();
    void only_what_has_changed_is_written_again();
    void new_name_alone_is_written();
    void time_is_that_of_the_last_change();
    void text_is_exact_data();
    void text_is_exact();
    void long_text_is_taken_in_turns_while_the_user_types();
    void saved_document_has_no_copy();
    void copy_stays_if_the_file_turns_out_to_be_cut();
    void undone_document_has_no_copy_until_redone();
    void closed_document_has_no_copy_data();
    void closed_document_has_no_copy();
    void deleted_document_has_no_copy();
    void end_leaves_nothing();
    void folder_of_others_stays_at_the_end();
    void editor_may_go_first();
    void nothing_is_made_without_a_modified_document();
    void interval_starts_a_timer();
    void timer_keeps_the_documents();
    void failing_write_is_told_once_and_tried_again();
    void failure_after_a_success_is_told_again();
    void failure_goes_with_its_document();
    void folder_that_others_have_removed_is_made_again();
    void opened_document_is_modified_and_untitled_data();
    void opened_document_is_modified_and_untitled();
    void opened_document_fills_the_pristine_one();
    void opened_document_keeps_its_name_and_time_for_the_next_time();
    void name_of_an_opened_document_goes_when_it_is_saved();
    void name_of_an_opened_document_goes_with_the_keeper();
    void random_work_is_kept_as_it_is();

private:
    QString root() const { return mDirectory->filePath(u"recovery"_s); }
    void make_keeper(std::chrono::milliseconds interval = 0ms);
    /** One pass, with the writing. Returns whether all could be written. */
    bool keep()
    {
        mKeeper->keep();
        return mKeeper->finish();
    }
    QStringList files() const;
    QList<KeptDocument> kept() const;
    /** The texts that are kept, in the order of their numbers. */
    QStringList kept_texts() const;
    QString make_file(const QString& name, const QByteArray& content);

    std::unique_ptr<QTemporaryDir> mDirectory;
    std::unique_ptr<JournalEditor> mEditor;
    std::unique_ptr<DocumentKeeper> mKeeper;
    QStringList mReports;
};

void TstDocumentKeeper::set_up()
{
    mDirectory = std::make_unique<QTemporaryDir>();
    mEditor = std::make_unique<JournalEditor>();
    mReports.clear();
    make_keeper();
}

void TstDocumentKeeper::tear_down()
{
    mKeeper.reset();
    mEditor.reset();
}

void TstDocumentKeeper::make_keeper(std::chrono::milliseconds interval)
{
    mKeeper.reset();
    mKeeper = std::make_unique<DocumentKeeper>(mEditor.get(), root(), interval,
                                               [this](const QString& text) { mReports << text; });
}

QStringList TstDocumentKeeper::files() const
{
    QStringList paths;
    const QFileInfoList folders = QDir(root()).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    for (const QFileInfo& folder : folders) {
        for (int number = 1; number <= 100; ++number) {
            const QString path = folder.filePath() + u'/' + RecoveryFolder::name_of(number);
            if (QFileInfo(path).isFile())
                paths << path;
        }
    }
    return paths;
}

QList<KeptDocument> TstDocumentKeeper::kept() const
{
    QList<KeptDocument> documents;
    const QStringList paths = files();
    for (const QString& path : paths) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            qFatal("a copy cannot be read");
        documents << KeptDocument::decode(file.readAll());
    }
    return documents;
}

QStringList TstDocumentKeeper::kept_texts() const
{
    QStringList texts;
    for (const KeptDocument& one : kept())
        texts << one.text;
    return texts;
}

QString TstDocumentKeeper::make_file(const QString& name, const QByteArray& content)
{
    const QString path = mDirectory->filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("the file cannot be written");
    return path;
}

void TstDocumentKeeper::modified_documents_are_kept()
{
    typed_document(*mEditor, u"one"_s);
    typed_document(*mEditor, u"two\nlines"_s);
    mEditor->fileNew();
    QVERIFY(keep());
    QCOMPARE(kept_texts(), (QStringList{u"one"_s, u"two\nlines"_s}));
    QCOMPARE(kept().first().file, QString());
    QCOMPARE(mReports, QStringList());
}

void TstDocumentKeeper::document_with_a_file_is_kept_with_its_whole_name()
{
    const QString first = make_file(u"a - b.jou"_s, "x");
    const QString second = make_file(u"\u4e2d - Journal Editor"_s, "y");
    mEditor->open_file(first);
    mEditor->open_file(second);
    for (int i = 0; i < 2; ++i)
        document_of(*mEditor, i)->insertPlainText(u"new "_s);
    QVERIFY(keep());
    QCOMPARE(kept().size(), 2);
    QCOMPARE(kept()[0].file, first);
    QCOMPARE(kept()[0].text, u"new x\n"_s);
    QCOMPARE(kept()[1].file, second);
}

void TstDocumentKeeper::names_are_found_without_a_trace_in_the_window()
{
    mEditor->open_file(make_file(u"a.jou"_s, "x"));
    document_of(*mEditor, 0)->insertPlainText(u"new "_s);
    typed_document(*mEditor, u"two"_s);
    const QString title = mEditor->windowTitle();
    const QStringList tabs = tab_texts(*mEditor);
    QVERIFY(keep());
    QCOMPARE(kept().size(), 2);
    QCOMPARE(mEditor->windowTitle(), title);
    QCOMPARE(tab_texts(*mEditor), tabs);
    QCOMPARE(tabs_of(*mEditor)->currentIndex(), 1);
}

void TstDocumentKeeper::only_what_has_changed_is_written_again()
{
    typed_document(*mEditor, u"one"_s);
    JournalDocument* second = typed_document(*mEditor, u"two"_s);
    QVERIFY(keep());
    // Whoever writes a copy anew makes this go.
    for (const QString& path : files()) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(file.write("mark") == 4);
    }
    QVERIFY(keep());
    QCOMPARE(kept_texts(), (QStringList{u"mark"_s, u"mark"_s}));
    second->insertPlainText(u"!"_s);
    QVERIFY(keep());
    QCOMPARE(kept_texts(), (QStringList{u"mark"_s, u"two!"_s}));
}

void TstDocumentKeeper::new_name_alone_is_written()
{
    JournalDocument* document = typed_document(*mEditor, u"one"_s);
    QVERIFY(keep());
    // As a save under a new name leaves it when the writing fails.
    document->set_file_name(u"/a/b.jou"_s);
    document->document()->setModified(true);
    QVERIFY(keep());
    QCOMPARE(kept().size(), 1);
    QCOMPARE(kept().first().file, u"/a/b.jou"_s);
}

void TstDocumentKeeper::time_is_that_of_the_last_change()
{
    typed_document(*mEditor, u"one"_s);
    QVERIFY(keep());
    const QDateTime before = QDateTime::currentDateTimeUtc();
    document_of(*mEditor, 0)->insertPlainText(u"!"_s);
    const QDateTime after = QDateTime::currentDateTimeUtc();
    QTRY_VERIFY(QDateTime::currentDateTimeUtc() > after);
    QVERIFY(keep());
    QVERIFY(kept().first().changed >= before && kept().first().changed <= after);
}

void TstDocumentKeeper::text_is_exact_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("nul") << u"a\0b\0"_s;
    QTest::newRow("other scripts") << u"\u4e2d\u6587 \u0628 \U0001f600 e\u0301"_s;
    QTest::newRow("no-break space") << u"a\u00a0b"_s;
    QTest::newRow("line separator") << u"a\u2028b"_s;
    QTest::newRow("carriage returns") << u"a\r\nb\rc\r\n"_s;
    QTest::newRow("byte order mark") << u"\ufeff# a"_s;
    QTest::newRow("half a pair") << QString(u'a') + QChar(0xd83d) + u'b';
    QTest::newRow("empty lines") << u"\n\n  \n\t\n"_s;
    QTest::newRow("form feed and tabs") << u"a\f\t\v\x1b\x7f"_s;
    QTest::newRow("megabytes") << u"block x 10 y 10 z 10 # \u00e9\n"_s.repeated(100'000);
}

void TstDocumentKeeper::text_is_exact()
{
    QFETCH(const QString, text);
    mEditor->add_document(text);
    JournalDocument* document = document_of(*mEditor, 0);
    document->document()->setModified(true);
    const QString raw = document->document()->toRawText();
    QVERIFY(keep());
    QCOMPARE(kept().size(), 1);

    JournalEditor other;
    DocumentKeeper opener(&other, mDirectory->filePath(u"other"_s), 0ms, [](const QString&) {});
    opener.open(kept().first());
    QCOMPARE(document_of(other, 0)->document()->toRawText().size(), raw.size());
    QVERIFY(document_of(other, 0)->document()->toRawText() == raw);
}

void TstDocumentKeeper::long_text_is_taken_in_turns_while_the_user_types()
{
    // Much longer than what can be taken in one turn.
    mEditor->add_document(u"block x 10 y 10 z 10\n"_s.repeated(100'000));
    JournalDocument* document = document_of(*mEditor, 0);
    mKeeper->keep();
    document->insertPlainText(u"typed "_s);
    // A second pass does not begin before the first is over.
    mKeeper->keep();
    QTRY_COMPARE(files().size(), 1);
    QVERIFY(kept().first().text.startsWith("typed block"_L1));
    QCOMPARE(kept().first().text.size(), document->document()->toRawText().size());
}

void TstDocumentKeeper::saved_document_has_no_copy()
{
    const QString path = make_file(u"a.jou"_s, "x");
    mEditor->open_file(path);
    document_of(*mEditor, 0)->insertPlainText(u"new "_s);
    QVERIFY(keep());
    QCOMPARE(files().size(), 1);
    mEditor->fileSave();
    // At once, not with the next pass.
    QVERIFY(mKeeper->finish());
    QCOMPARE(files(), QStringList());
    QVERIFY(keep());
    QCOMPARE(files(), QStringList());
    document_of(*mEditor, 0)->insertPlainText(u"newer "_s);
    QVERIFY(keep());
    QCOMPARE(kept_texts(), QStringList{u"new newer x\n"_s});
}

void TstDocumentKeeper::copy_stays_if_the_file_turns_out_to_be_cut()
{
    mEditor->open_file(make_file(u"a.jou"_s, "x"));
    QPlainTextEdit* const document = document_of(*mEditor, 0);
    bool is_cut = true;
    // Whoever compares the file with the text follows the document before the keeper does.
    connect(document->document(), &QTextDocument::modificationChanged, this, [&](bool modified) {
        if (!modified && is_cut)
            document->document()->setModified(true);
    });
    document->insertPlainText(u"new "_s);
    QVERIFY(keep());
    mEditor->fileSave();
    QVERIFY(mKeeper->finish());
    QCOMPARE(files().size(), 1);
    is_cut = false;
    mEditor->fileSave();
    QVERIFY(mKeeper->finish());
    QCOMPARE(files(), QStringList());
}

void TstDocumentKeeper::undone_document_has_no_copy_until_redone()
{
    typed_document(*mEditor, u"one"_s);
    QVERIFY(keep());
    mEditor->editUndo();
    QVERIFY(!document_of(*mEditor, 0)->document()->isModified());
    QVERIFY(mKeeper->finish());
    QCOMPARE(files(), QStringList());
    mEditor->editRedo();
    QVERIFY(keep());
    QCOMPARE(kept_texts(), QStringList{u"one"_s});
}

void TstDocumentKeeper::closed_document_has_no_copy_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("close in the menu") << 0;
    QTest::newRow("close button of the tab") << 1;
    QTest::newRow("close the window") << 2;
}

void TstDocumentKeeper::closed_document_has_no_copy()
{
    QFETCH(const int, way);
    JournalEditor::set_save_prompt(false);
    typed_document(*mEditor, u"one"_s);
    typed_document(*mEditor, u"two"_s);
    QVERIFY(keep());
    QCOMPARE(files().size(), 2);
    if (way == 0)
        mEditor->fileClose();
    else if (way == 1)
        mEditor->close_tab(1);
    else
        mEditor->close();
    QVERIFY(mKeeper->finish());
    QCOMPARE(kept_texts(), way == 2 ? QStringList() : QStringList{u"one"_s});
    QVERIFY(keep());
    QCOMPARE(kept_texts(), way == 2 ? QStringList() : QStringList{u"one"_s});
}

void TstDocumentKeeper::deleted_document_has_no_copy()
{
    typed_document(*mEditor, u"one"_s);
    delete typed_document(*mEditor, u"two"_s);
    typed_document(*mEditor, u"three"_s);
    QVERIFY(keep());
    QCOMPARE(kept_texts(), (QStringList{u"one"_s, u"three"_s}));
    delete document_of(*mEditor, 1);
    QVERIFY(mKeeper->finish());
    QCOMPARE(kept_texts(), QStringList{u"one"_s});
}

void TstDocumentKeeper::end_leaves_nothing()
{
    typed_document(*mEditor, u"one"_s);
    QVERIFY(keep());
    QCOMPARE(files().size(), 1);
    document_of(*mEditor, 0)->insertPlainText(u"!"_s);
    // This one is still being written.
    mKeeper->keep();
    mKeeper.reset();
    QVERIFY(!QFile::exists(root()));
    // Changes that come later find nobody.
    document_of(*mEditor, 0)->insertPlainText(u"!"_s);
    QVERIFY(!QFile::exists(root()));
}

void TstDocumentKeeper::folder_of_others_stays_at_the_end()
{
    const auto other = RecoveryFolder::make(root());
    QCOMPARE(other->write(1, {{}, {}, u"other"_s}), QString());
    typed_document(*mEditor, u"one"_s);
    QVERIFY(keep());
    QCOMPARE(files().size(), 2);
    mKeeper.reset();
    QCOMPARE(kept_texts(), QStringList{u"other"_s});
}

void TstDocumentKeeper::editor_may_go_first()
{
    typed_document(*mEditor, u"one"_s);
    QVERIFY(keep());
    mEditor.reset();
    QVERIFY(keep());
    QCOMPARE(files(), QStringList());
    mKeeper->open({{}, {}, u"text"_s});
}

void TstDocumentKeeper::nothing_is_made_without_a_modified_document()
{
    mEditor->open_file(make_file(u"a.jou"_s, "x"));
    QVERIFY(keep());
    QVERIFY(!QFile::exists(root()));
}

void TstDocumentKeeper::interval_starts_a_timer()
{
    QVERIFY(!mKeeper->findChild<QTimer*>());
    make_keeper(15s);
    const auto* timer = mKeeper->findChild<QTimer*>();
    QVERIFY(timer && timer->isActive() && !timer->isSingleShot());
    QCOMPARE(timer->intervalAsDuration(), 15'000ms);
}

void TstDocumentKeeper::timer_keeps_the_documents()
{
    make_keeper(1ms);
    JournalDocument* document = typed_document(*mEditor, u"one"_s);
    QTRY_COMPARE(kept_texts(), QStringList{u"one"_s});
    document->insertPlainText(u"!"_s);
    QTRY_COMPARE(kept_texts(), QStringList{u"one!"_s});
}

void TstDocumentKeeper::failing_write_is_told_once_and_tried_again()
{
    QFile obstacle(make_file(u"recovery"_s, "a file where the folder should be"));
    typed_document(*mEditor, u"one"_s);
    typed_document(*mEditor, u"two"_s);
    for (int pass = 0; pass < 3; ++pass) {
        QVERIFY(!keep());
        QCOMPARE(mReports.size(), 1);
    }
    QCOMPARE(mReports.first(), u"Unsaved journals cannot be kept for a recovery: no folder can be made in "
                               "\"%1\". It will be tried again."_s.arg(root()));
    QVERIFY(obstacle.remove());
    QVERIFY(keep());
    QCOMPARE(kept_texts(), (QStringList{u"one"_s, u"two"_s}));
    QCOMPARE(mReports.size(), 1);
}

void TstDocumentKeeper::failure_after_a_success_is_told_again()
{
    typed_document(*mEditor, u"one"_s);
    QVERIFY(keep());
    const QString copy = files().first();
    // A copy cannot replace a folder.
    QVERIFY(QFile::remove(copy) && QDir().mkpath(copy + u"/x"_s));
    for (int failure = 1; failure <= 2; ++failure) {
        document_of(*mEditor, 0)->insertPlainText(u"!"_s);
        QVERIFY(!keep());
        QCOMPARE(mReports.size(), failure);
        QVERIFY(QDir(copy).removeRecursively());
        QVERIFY(keep());
        QVERIFY(QFile::remove(copy) && QDir().mkpath(copy + u"/x"_s));
    }
    QVERIFY(QDir(copy).removeRecursively());
}

void TstDocumentKeeper::failure_goes_with_its_document()
{
    QFile obstacle(make_file(u"recovery"_s, "a file where the folder should be"));
    typed_document(*mEditor, u"one"_s);
    QVERIFY(!keep());
    mEditor->editUndo();
    QVERIFY(mKeeper->finish());
}

void TstDocumentKeeper::folder_that_others_have_removed_is_made_again()
{
    typed_document(*mEditor, u"one"_s);
    JournalDocument* second = typed_document(*mEditor, u"two"_s);
    QVERIFY(keep());
    QVERIFY(QDir(root()).removeRecursively());
    second->insertPlainText(u"!"_s);
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(u"^Could not remove our own lock file \"%1/"_s.arg(root())));
    QVERIFY(keep());
    QCOMPARE(kept_texts(), QStringList{u"two!"_s});
    // The others follow with the next pass.
    QVERIFY(keep());
    QCOMPARE(kept_texts(), (QStringList{u"one"_s, u"two!"_s}));
    QCOMPARE(mReports, QStringList());
}

void TstDocumentKeeper::opened_document_is_modified_and_untitled_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("text") << u"brick x 1\n"_s;
    QTest::newRow("blank") << u" \n"_s;
    QTest::newRow("empty") << QString();
}

void TstDocumentKeeper::opened_document_is_modified_and_untitled()
{
    QFETCH(const QString, text);
    typed_document(*mEditor, u"other"_s);
    mKeeper->open({u"/a/part.jou"_s, {}, text});
    QCOMPARE(tab_texts(*mEditor), (QStringList{u"* Untitled"_s, u"* Untitled"_s}));
    const JournalDocument* document = document_of(*mEditor, 1);
    QCOMPARE(mEditor->returnCurrentDocument(), document);
    QCOMPARE(document->toPlainText(), text);
    QVERIFY(document->document()->isModified());
    QCOMPARE(document->file_name(), QString());
    QCOMPARE(tabs_of(*mEditor)->tabToolTip(1), u"/a/part.jou"_s);
    QCOMPARE(tabs_of(*mEditor)->tabToolTip(0), QString());
}

void TstDocumentKeeper::opened_document_fills_the_pristine_one()
{
    mKeeper->open({{}, {}, u"one"_s});
    mKeeper->open({{}, {}, u"two"_s});
    QCOMPARE(texts_of(*mEditor), (QStringList{u"one"_s, u"two"_s}));
}

void TstDocumentKeeper::opened_document_keeps_its_name_and_time_for_the_next_time()
{
    const QDateTime changed = QDateTime::fromString(u"2026-05-01T12:03:00Z"_s, Qt::ISODate);
    mKeeper->open({u"/a/part.jou"_s, changed, u"one"_s});
    QVERIFY(keep());
    QCOMPARE(kept().size(), 1);
    QCOMPARE(kept().first().file, u"/a/part.jou"_s);
    QCOMPARE(kept().first().changed, changed);
    document_of(*mEditor, 0)->insertPlainText(u"!"_s);
    QVERIFY(keep());
    QCOMPARE(kept().first().file, u"/a/part.jou"_s);
    QVERIFY(kept().first().changed > changed);
}

void TstDocumentKeeper::name_of_an_opened_document_goes_when_it_is_saved()
{
    const QString path = make_file(u"new.jou"_s, {});
    mKeeper->open({u"/a/part.jou"_s, {}, u"one"_s});
    document_of(*mEditor, 0)->set_file_name(path);
    mEditor->fileSave();
    QCOMPARE(tabs_of(*mEditor)->tabToolTip(0), QString());
    document_of(*mEditor, 0)->insertPlainText(u"!"_s);
    document_of(*mEditor, 0)->set_file_name({});
    QVERIFY(keep());
    QCOMPARE(kept().size(), 1);
    QCOMPARE(kept().first().file, QString());
}

void TstDocumentKeeper::name_of_an_opened_document_goes_with_the_keeper()
{
    mKeeper->open({u"/a/part.jou"_s, {}, u"one"_s});
    mKeeper.reset();
    QCOMPARE(tabs_of(*mEditor)->tabToolTip(0), QString());
}

// After each pass that all is kept which is modified, and nothing else.
void TstDocumentKeeper::random_work_is_kept_as_it_is()
{
    JournalEditor::set_save_prompt(false);
    QRandomGenerator random(random_seed());
    const QString path = make_file(u"a.jou"_s, "x");
    for (int step = 0; step < 120; ++step) {
        QTabWidget* tabs = tabs_of(*mEditor);
        const int tab = random.bounded(tabs->count());
        tabs->setCurrentIndex(tab);
        JournalDocument* document = document_of(*mEditor, tab);
        switch (random.bounded(8)) {
        case 0:
            typed_document(*mEditor, u"new"_s);
            break;
        case 1:
            mEditor->open_file(path);
            break;
        case 2:
            if (tabs->count() > 1)
                mEditor->close_tab(tab);
            break;
        case 3:
            if (tabs->count() > 1)
                mEditor->fileClose();
            break;
        case 4:
            if (!document->file_name().isEmpty())
                mEditor->fileSave();
            break;
        case 5:
            mEditor->editUndo();
            break;
        case 6:
            mEditor->editRedo();
            break;
        default:
            document->insertPlainText(QString(QChar(random.bounded(0x20, 0x100))));
        }
        if (random.bounded(3) != 0)
            continue;
        QVERIFY(keep());
        QStringList expected;
        for (int i = 0; i < mEditor->findChild<QTabWidget*>()->count(); ++i) {
            if (document_of(*mEditor, i)->document()->isModified())
                expected << document_of(*mEditor, i)->file_name() + u'|' +
                                document_of(*mEditor, i)->document()->toRawText();
        }
        QStringList found;
        for (const KeptDocument& one : kept())
            found << one.file + u'|' + QString(one.text).replace(u'\n', QChar::ParagraphSeparator);
        expected.sort();
        found.sort();
        QCOMPARE(found, expected);
    }
}

OSTREL_TEST(TstDocumentKeeper)
#include "tst_documentkeeper.moc"
