// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "support/dialogs.h"
#include "support/windows.h"

#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

/** What a driver does with dialogs that come as expected; tst_testcase has what it does with others. */
class TstDialogs : public TestCase
{
    Q_OBJECT

private slots:
    void dialogs_are_met_in_their_order();
    void dialog_is_expected_by_object_name_class_or_base_class_data();
    void dialog_is_expected_by_object_name_class_or_base_class();
    void dialog_opened_by_an_action_is_the_next_expectation();
    void dialog_that_stays_open_is_met_again_if_expected_again();
    void same_dialog_shown_again_is_met_again();
    void dialog_that_blocks_nobody_is_met();
    void dialog_of_another_dialogs_life_is_met_once();
    void keys_and_close_box_reach_the_dialog();
    void no_dialog_is_no_problem();

    void file_dialog_is_read_and_answered_data();
    void file_dialog_is_read_and_answered();
    void overwriting_is_the_next_expectation();
};

void TstDialogs::dialogs_are_met_in_their_order()
{
    DialogDriver driver;
    driver.expect(u"QMessageBox"_s, press(QDialogButtonBox::Yes));
    driver.expect(u"QMessageBox"_s, press(QDialogButtonBox::No));
    const auto buttons = QMessageBox::Yes | QMessageBox::No;
    QCOMPARE(QMessageBox::question(nullptr, u"One"_s, u"Two?"_s, buttons), QMessageBox::Yes);
    QCOMPARE(QMessageBox::question(nullptr, u"Three"_s, u"Four?"_s, buttons), QMessageBox::No);
    QVERIFY(driver.finish());
    QCOMPARE(driver.seen(), QStringList({u"QMessageBox: One: Two?"_s, u"QMessageBox: Three: Four?"_s}));
}

void TstDialogs::dialog_is_expected_by_object_name_class_or_base_class_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("object name") << u"asking"_s;
    QTest::newRow("class") << u"QMessageBox"_s;
    QTest::newRow("base class") << u"QDialog"_s;
}

void TstDialogs::dialog_is_expected_by_object_name_class_or_base_class()
{
    QFETCH(const QString, name);
    QMessageBox box;
    box.setObjectName(u"asking"_s);
    box.setStandardButtons(QMessageBox::Retry);
    DialogDriver driver;
    driver.expect(name, press(QDialogButtonBox::Retry));
    QCOMPARE(box.exec(), int(QMessageBox::Retry));
    QVERIFY(driver.finish());
}

void TstDialogs::dialog_opened_by_an_action_is_the_next_expectation()
{
    QDialog outer;
    int inner = 0;
    DialogDriver driver;
    driver.expect<QDialog>([&](QDialog* dialog) {
        inner = QMessageBox::warning(dialog, u"Inner"_s, u"text"_s, QMessageBox::Ok | QMessageBox::Cancel);
        dialog->accept();
    });
    driver.expect(u"QMessageBox"_s, press(QDialogButtonBox::Cancel));
    QCOMPARE(outer.exec(), int(QDialog::Accepted));
    QCOMPARE(inner, int(QMessageBox::Cancel));
    QVERIFY(driver.finish());
}

void TstDialogs::dialog_that_stays_open_is_met_again_if_expected_again()
{
    QDialog dialog;
    QStringList acts;
    DialogDriver driver;
    driver.expect<QDialog>([&](QDialog*) { acts << u"first"_s; });
    driver.expect<QDialog>([&](QDialog* met) {
        acts << u"second"_s;
        met->accept();
    });
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QVERIFY(driver.finish());
    QCOMPARE(acts, QStringList({u"first"_s, u"second"_s}));
    QCOMPARE(driver.seen().size(), 1);
}

void TstDialogs::same_dialog_shown_again_is_met_again()
{
    QDialog dialog;
    DialogDriver driver;
    for (const int code : {3, 4}) {
        driver.expect<QDialog>([code](QDialog* met) { met->done(code); });
        QCOMPARE(dialog.exec(), code);
    }
    QVERIFY(driver.finish());
    QCOMPARE(driver.seen().size(), 2);
}

void TstDialogs::dialog_that_blocks_nobody_is_met()
{
    QDialog dialog;
    DialogDriver driver;
    driver.expect<QDialog>([](QDialog* met) { met->accept(); });
    dialog.open();
    QTRY_VERIFY(!dialog.isVisible());
    QVERIFY(driver.finish());
}

void TstDialogs::dialog_of_another_dialogs_life_is_met_once()
{
    QDialog outer;
    int met_outer = 0;
    DialogDriver driver;
    driver.expect<QDialog>([&](QDialog* dialog) {
        ++met_outer;
        // While the inner ones are open and again afterwards the driver looks at the outer one as well.
        QMessageBox::information(dialog, u"One"_s, u"text"_s);
        QMessageBox::information(dialog, u"Two"_s, u"text"_s);
        dialog->accept();
    });
    driver.expect(u"QMessageBox"_s, press(QDialogButtonBox::Ok));
    driver.expect(u"QMessageBox"_s, press(QDialogButtonBox::Ok));
    outer.exec();
    QCOMPARE(met_outer, 1);
    QVERIFY(driver.finish());
    QCOMPARE(driver.seen().size(), 3);
}

void TstDialogs::keys_and_close_box_reach_the_dialog()
{
    DialogDriver driver;
    driver.expect(u"QMessageBox"_s, press_key(Qt::Key_Escape));
    driver.expect(u"QMessageBox"_s, press_close_box());
    driver.expect(u"QDialog"_s, press(u"go"_s));
    const auto buttons = QMessageBox::Yes | QMessageBox::Cancel;
    QCOMPARE(QMessageBox::question(nullptr, u"a"_s, u"b"_s, buttons), QMessageBox::Cancel);
    QCOMPARE(QMessageBox::question(nullptr, u"a"_s, u"b"_s, buttons), QMessageBox::Cancel);
    QDialog dialog;
    auto* button = new QPushButton(&dialog);
    button->setObjectName(u"go"_s);
    connect(button, &QPushButton::clicked, &dialog, [&dialog] { dialog.done(7); });
    QCOMPARE(dialog.exec(), 7);
    QVERIFY(driver.finish());
}

void TstDialogs::no_dialog_is_no_problem()
{
    DialogDriver driver;
    QVERIFY(driver.finish());
    QVERIFY(driver.seen().isEmpty());
}

void TstDialogs::file_dialog_is_read_and_answered_data()
{
    QTest::addColumn<bool>("saves");
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("selected");
    QTest::newRow("open with the first filter") << false << QString() << u"Texts (*.txt)"_s;
    QTest::newRow("open with another filter") << false << u"All (*)"_s << u"All (*)"_s;
    QTest::newRow("save with the first filter") << true << QString() << u"Texts (*.txt)"_s;
    QTest::newRow("save with another filter") << true << u"All (*)"_s << u"All (*)"_s;
}

void TstDialogs::file_dialog_is_read_and_answered()
{
    QFETCH(const bool, saves);
    QFETCH(const QString, filter);
    QFETCH(const QString, selected);
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"a b.txt"_s);
    if (!saves)
        QVERIFY(QFile(path).open(QIODevice::WriteOnly));

    FileQuestion asked;
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        asked = file_question(dialog);
        choose(dialog, path, filter);
    });
    const QString filters = u"Texts (*.txt);;All (*)"_s;
    QString used;
    const QString given =
        saves ? QFileDialog::getSaveFileName(nullptr, u"Save it"_s, directory.filePath(u"name"_s), filters,
                                             &used)
              : QFileDialog::getOpenFileName(nullptr, u"Open it"_s, directory.path(), filters, &used);
    QVERIFY(driver.finish());
    QCOMPARE(given, path);
    QCOMPARE(used, selected);
    QCOMPARE(asked.caption, saves ? u"Save it"_s : u"Open it"_s);
    QCOMPARE(asked.directory, directory.path());
    QCOMPARE(asked.filters, QStringList({u"Texts (*.txt)"_s, u"All (*)"_s}));
    QCOMPARE(asked.selected_filter, u"Texts (*.txt)"_s);
    QCOMPARE(asked.name, saves ? u"name"_s : QString());
    QCOMPARE(asked.accept_mode, saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    QCOMPARE(asked.file_mode, saves ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    QVERIFY(!asked.directories_only);
}

void TstDialogs::overwriting_is_the_next_expectation()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"here.txt"_s);
    QVERIFY(QFile(path).open(QIODevice::WriteOnly));
    const QString other = directory.filePath(u"there.txt"_s);

    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose(dialog, path); });
    driver.expect(u"QMessageBox"_s, press(QDialogButtonBox::No));
    driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose(dialog, other); });
    const QString given = QFileDialog::getSaveFileName(nullptr, u"Save"_s, directory.path());
    QVERIFY(driver.finish());
    QCOMPARE(given, other);
}

OSTREL_TEST(TstDialogs)
#include "tst_dialogs.moc"
