// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "journal/JournalEditor.h"
#include "support/FullDisk.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/WorkbenchTest.h"
#include "workbench/application/component_manager/ComponentManager.h"

#include <QDirIterator>
#include <QFile>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QStandardPaths>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

/** A disk that fills up while the program saves a journal. */
class TstJournalSaves : public WorkbenchTest
{
    Q_OBJECT

protected:
    void prepare(Workbench& workbench) override;
    void set_up() override;
    void tear_down() override;

private slots:
    void journal_that_is_cut_is_told_without_components();
    void copy_of_a_journal_that_is_cut_stays_until_it_is_whole();

private:
    static JournalEditor& editor() { return *window().journal_editor(); }
    static QPlainTextEdit& document()
    {
        return *qobject_cast<QPlainTextEdit*>(editor().findChild<QTabWidget*>(u"mDocTab"_s)->currentWidget());
    }
    static bool is_told() { return editor().findChild<QMessageBox*>(u"journalNotSaved"_s); }
    static void save_on_a_full_disk();
    static QStringList copies();

    std::unique_ptr<QTemporaryDir> mDirectory;
};

void TstJournalSaves::prepare(Workbench& workbench)
{
    workbench.leave_components_out();
    qputenv("FENNAR_COMPONENT_PATH", TREE_COMPONENTS);
}

void TstJournalSaves::set_up()
{
    mDirectory = std::make_unique<QTemporaryDir>();
    QFile file(mDirectory->filePath(u"a.jou"_s));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("0123456789") > 0);
    file.close();
    editor().open_file(file.fileName());
    document().insertPlainText(u"more "_s);
}

void TstJournalSaves::tear_down()
{
    // The journal can be saved again, which ends the complaint.
    editor().fileSave();
    flush();
    QVERIFY(!is_told());
    QVERIFY(!document().document()->isModified());
    editor().fileClose();
}

void TstJournalSaves::save_on_a_full_disk()
{
    const FullDisk full(4);
    editor().fileSave();
}

QStringList TstJournalSaves::copies()
{
    QObject* const keeper = window().findChild<QObject*>(u"documentKeeper"_s);
    bool done = false;
    if (!keeper || !QMetaObject::invokeMethod(keeper, "finish", Q_RETURN_ARG(bool, done)) || !done)
        return {u"no keeper"_s};
    QStringList found;
    QDirIterator files(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + u"/recovery"_s,
                       {u"*.journal"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext())
        found << files.next();
    return found;
}

void TstJournalSaves::journal_that_is_cut_is_told_without_components()
{
    save_on_a_full_disk();
    QVERIFY(is_told());
    QVERIFY(document().document()->isModified());
}

void TstJournalSaves::copy_of_a_journal_that_is_cut_stays_until_it_is_whole()
{
    QCOMPARE(workbench().components().load(u"recovery"_s), QString());
    QVERIFY(QMetaObject::invokeMethod(window().findChild<QObject*>(u"documentKeeper"_s), "keep"));
    QCOMPARE(copies().size(), 1);
    const QStringList kept = copies();
    save_on_a_full_disk();
    QCOMPARE(copies(), kept);
    editor().fileSave();
    QCOMPARE(copies(), QStringList());
}

OSTREL_TEST(TstJournalSaves)
#include "tst_journalsaves.moc"
